#pragma once

#include "link/SerialPort.h"

#include <QByteArray>
#include <QSerialPort>
#include <QStringList>
#include <memory>

class PortMap;

// The serial port on a real device: 4800 baud, 8 data bits, no parity, one stop bit, no flow
// control, opened for reading only. The port number names the device through the port map at
// the moment the port is opened.
class QtSerialPort : public SerialPort {
public:
    explicit QtSerialPort(PortMap& map);
    ~QtSerialPort() override;
    QtSerialPort(const QtSerialPort&) = delete;
    QtSerialPort& operator=(const QtSerialPort&) = delete;

    int portNumber() const override { return number_; }
    void setPortNumber(int number) override { number_ = number; }
    bool isOpen() const override { return port_.isOpen(); }
    bool open() override;
    void close() override;
    QString errorString() const override { return error_; }
    QString deviceName() const override;
    void resetBufferCounts() override;
    bool readChar(char& c) override
    {
        if (offset_ < buffer_.size()) {
            c = buffer_.constData()[offset_++];
            return true;
        }
        return false;
    }

    // Characters received and not yet taken.
    qsizetype pendingCount() const { return buffer_.size() - offset_; }

    // A port of its own on `device` (as COM 1), for listening beside the program's port.
    static std::shared_ptr<SerialPort> forDevice(const QString& device);

    // What the operator is told when COM `number` (on `device`) would not open. `reason` is the
    // system's own wording; `readable` tells whether this user may read the device at all.
    static QString describeOpenFailure(int number, const QString& device,
        QSerialPort::SerialPortError error, const QString& reason, bool readable);

private:
    void takeArrivals();
    void onError(QSerialPort::SerialPortError error);
    void onDeviceLost();
    // The far end of the line is gone: the descriptor reports hang-up or an error.
    bool hungUp() const;

    PortMap& map_;
    QSerialPort port_;
    int number_ = 1;
    QString error_;
    QString openedDevice_;
    // Received characters; readChar walks them with offset_. The consumed front is dropped only
    // now and then, so each character costs a compare and an increment.
    QByteArray buffer_;
    qsizetype offset_ = 0;
    bool lossPending_ = false;
};
