#pragma once

#include "app/Application.h"
#include "base/Clock.h"
#include "base/Prompter.h"
#include "base/Services.h"
#include "chart/InMemoryChartSurface.h"
#include "link/PortMap.h"
#include "link/SerialPort.h"

#include <QByteArray>
#include <QTemporaryDir>
#include <memory>

// The program's core with quiet stand-ins for the desktop, for measuring the receive path.
namespace bench {

class QuietPrompter : public Prompter {
public:
    using Prompter::message;
    Answer message(const Message&) override { return Answer::Ok; }
    std::optional<QString> inputBox(const QString&, const QString&, const QString&) override
    {
        return std::nullopt;
    }
    QString saveFileName(const FileChoice&) override { return {}; }
    QString openFileName(const FileChoice&) override { return {}; }
};

class QuietBeeper : public Beeper {
public:
    void beep() override { }
};

class QuietLauncher : public Launcher {
public:
    bool startDetached(const QString&, const QStringList&) override { return true; }
    bool openDocument(const QString&) override { return true; }
};

class FixedSystemInfo : public SystemInfo {
public:
    quint64 totalPhysicalMemory() const override { return 8ull << 30; }
    quint64 availablePhysicalMemory() const override { return 4ull << 30; }
    int processorType() const override { return 8664; }
};

// A port that hands out a prepared buffer.
class BufferPort : public SerialPort {
public:
    int portNumber() const override { return 1; }
    void setPortNumber(int) override { }
    bool isOpen() const override { return open_; }
    bool open() override { return open_ = true; }
    void close() override { open_ = false; }
    QString errorString() const override { return {}; }
    QString deviceName() const override { return QStringLiteral("/dev/bench"); }
    void resetBufferCounts() override { offset_ = data_.size(); }
    bool readChar(char& c) override
    {
        if (offset_ >= data_.size())
            return false;
        c = data_.at(offset_++);
        return true;
    }
    void deliver(const QByteArray& bytes)
    {
        data_ = bytes;
        offset_ = 0;
        notifyReceived();
    }

private:
    bool open_ = false;
    QByteArray data_;
    qsizetype offset_ = 0;
};

struct Rig {
    QTemporaryDir dir;
    QuietPrompter prompter;
    SystemClock clock;
    QuietBeeper beeper;
    QuietLauncher launcher;
    FixedSystemInfo systemInfo;
    BufferPort port;
    InMemoryChartSurface chart;
    PortMap portMap;
    std::unique_ptr<Application> app;

    Rig()
    {
        app = std::make_unique<Application>(
            Platform { prompter, clock, beeper, launcher, systemInfo, port, chart, portMap });
        app->state.ProgramDirectory = dir.path();
        app->main.mnuRealTimeGraphOn.setChecked(true);
        app->main.mnuAutoScaleYAxis.setChecked(true);
        app->state.SettingsValues.highAlarmLimit.text = QStringLiteral("85");
        app->state.SettingsValues.lowAlarmLimit.text = QStringLiteral("25");
        app->acquisition.mnuSenseTemperature_Click();
    }
};

} // namespace bench
