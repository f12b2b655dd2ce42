#pragma once

#include "FakeBeeper.h"
#include "FakeClock.h"
#include "FakeLauncher.h"
#include "FakePrompter.h"
#include "FakeSerialPort.h"
#include "FakeSystemInfo.h"
#include "RecordingHost.h"

#include "app/Application.h"
#include "chart/InMemoryChartSurface.h"
#include "link/PortMap.h"

#include <QFile>
#include <QTemporaryDir>
#include <memory>

// The real application, wired as in the program, around fakes of the desktop and the line.
// Work files go to a temporary program directory.
class AppRig {
public:
    AppRig()
    {
        app_ = std::make_unique<Application>(
            Platform { prompter, clock, beeper, launcher, systemInfo, port, chart, portMap });
        app_->state.ProgramDirectory = dir.path();
        app_->main.mnuRealTimeGraphOn.setChecked(true);
        host.onShowStoredPoints = [this] { app_->storedPoints.Form_Load(); };
        host.onUnloadStoredPoints = [this] { app_->storedPoints.Form_Unload(); };
        app_->setWindowHost(&host);
        app_->controller.mnuClearChart_Click();
    }

    Application& app() { return *app_; }

    void feed(const QByteArray& bytes) { port.receive(bytes); }

    // SEND DATA IN REALTIME.
    void startSensing() { app_->acquisition.mnuSenseTemperature_Click(); }
    // DOWNLOAD STORED DATA, then START RECEIVING in the stored points window.
    void startDownload()
    {
        app_->acquisition.mnuDownloadData_Click();
        app_->storedPoints.cmdStartDownload_Click();
    }

    QByteArray lastObtained() const
    {
        QFile file(dir.filePath(QStringLiteral("LAST_OBTAINED_DATA_PTS.dat")));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // The instrument's parameter block with the given units line, interval and ambient value.
    static QByteArray parameterBlock(const char* units, const char* interval, const char* ambient)
    {
        return QByteArray("\x0b") + units + "\r\nINT (SECS)      " + interval
            + "\r\nEMISSIVITY      0.95\r\nHI ALARM        200\r\nLO ALARM        50\r\n"
              "MAX TEMP        152\r\nAMB TEMP        "
            + ambient
            + "\r\nMIN TEMP        70\r\nAVG TEMP        101\r\nSTORED PTS      120\r\n"
              "  1234   DEG F\r\n\x07";
    }

    QTemporaryDir dir;
    FakePrompter prompter;
    FakeClock clock;
    FakeBeeper beeper;
    FakeLauncher launcher;
    FakeSystemInfo systemInfo;
    FakeSerialPort port;
    InMemoryChartSurface chart;
    PortMap portMap;
    RecordingHost host;

private:
    std::unique_ptr<Application> app_;
};
