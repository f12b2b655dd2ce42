#pragma once

#include "link/SerialPort.h"

#include <QByteArray>
#include <functional>

// A serial port the test feeds by hand.
class FakeSerialPort : public SerialPort {
public:
    int portNumber() const override { return number; }
    void setPortNumber(int n) override { number = n; }
    bool isOpen() const override { return opened; }
    bool open() override
    {
        ++openCount;
        if (!failure.isEmpty())
            return false;
        opened = true;
        return true;
    }
    void close() override
    {
        if (onClose)
            onClose();
        ++closeCount;
        opened = false;
        pending.clear();
        readOffset = 0;
    }
    QString errorString() const override { return failure; }
    QString deviceName() const override { return QStringLiteral("/dev/fake%1").arg(number); }
    void resetBufferCounts() override
    {
        pending.clear();
        readOffset = 0;
    }
    bool readChar(char& c) override
    {
        if (readOffset >= pending.size()) {
            pending.clear();
            readOffset = 0;
            return false;
        }
        c = pending.at(readOffset++);
        return true;
    }
    // Bytes arriving on the line: queued and announced like a real port.
    void receive(const QByteArray& bytes)
    {
        if (!opened)
            return;
        pending.append(bytes);
        notifyReceived();
    }

    // The device goes away under the open port.
    void vanish(const QString& reason)
    {
        opened = false;
        failure = reason;
        notifyReceived();
    }

    std::function<void()> onClose;
    int number = 1;
    bool opened = false;
    int openCount = 0;
    int closeCount = 0;
    QString failure;
    QByteArray pending;
    qsizetype readOffset = 0;
};
