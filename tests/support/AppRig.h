#pragma once

#include "FakeDesktop.h"
#include "RecordingHost.h"

#include "chart/InMemoryChartSurface.h"
#include "link/sim/SimulatedInstrument.h"
#include "ui/QtSerialPort.h"

#include <QFile>
#include <QProcess>
#include <map>
#include <memory>

// The real application, wired as in the program, around fakes of the desktop and the line.
// Work files go to a temporary program directory.
class AppRig : public FakeDesktop {
public:
    AppRig() { build(port); }

    // The line is a pseudo-terminal read through the real serial adapter. On its far end the
    // simulated instrument starts `options` afresh each time the program opens the port (and
    // falls silent when it closes it), as fast as the line takes the characters and a thousand
    // times faster than real time unless `timeScale` says otherwise. With `toolArguments` the
    // far end is instead the separate simulator program ($TALAVEX_SIM) started with them.
    explicit AppRig(const SimulatorOptions& options, double timeScale = 0.001,
        const QStringList& toolArguments = {})
        : line(std::make_unique<QtSerialPort>(portMap))
        , simulated(options)
    {
        build(*line);
        QString device;
        if (toolArguments.isEmpty()) {
            QString error;
            if (!instrument.open(&error))
                qFatal("no pseudo-terminal: %s", qPrintable(error));
            instrument.setCharactersPerSecond(0);
            instrument.setTimeScale(timeScale);
            device = instrument.devicePath();
            QObject::connect(app_.get(), &Application::portOpened, &instrument,
                [this](bool) { instrument.start(simulated); });
            QObject::connect(
                app_.get(), &Application::portClosed, &instrument, [this] { instrument.stop(); });
        } else {
            tool.start(qEnvironmentVariable("TALAVEX_SIM"), toolArguments);
            while (!tool.canReadLine() && tool.waitForReadyRead(20000)) { }
            device = QString::fromLocal8Bit(tool.readLine()).trimmed();
            if (device.isEmpty())
                qFatal("the simulator program gave no device: %s", qPrintable(tool.errorString()));
        }
        portMap.setRunOverride(1, device);
    }
    // The simulator's options as the simulator program takes them on its command line.
    static SimulatorOptions simulatorOptions(const QStringList& args)
    {
        SimulatorOptions o;
        const std::map<QString, int*> numbers { { "--interval", &o.intervalSeconds },
            { "--stored", &o.storedCount }, { "--empty", &o.emptyLocations },
            { "--fault-after", &o.faultAfter } };
        const QStringList faults { "none", "silence", "blank", "wrongmode", "noise",
            "noise-nobel" };
        for (int i = 0; i < args.size(); ++i) {
            const QString value = args.value(i + 1);
            if (numbers.count(args[i]))
                *numbers.at(args[i]) = value.toInt();
            else if (args[i] == "--mode" && value == "download")
                o.mode = SimulatorOptions::Mode::Download;
            else if (args[i] == "--units" && value == "C")
                o.units = SimulatorOptions::Units::Celsius;
            else if (args[i] == "--fault")
                o.fault = SimulatorOptions::Fault(faults.indexOf(value));
            else if (args[i] == "--seed")
                o.seed = value.toUInt();
            o.shortForm |= args[i] == "--short";
            o.ambientMissing |= args[i] == "--no-ambient";
        }
        return o;
    }
    ~AppRig()
    {
        app_.reset();
        if (tool.state() != QProcess::NotRunning) {
            tool.kill();
            tool.waitForFinished();
        }
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

    InMemoryChartSurface chart;
    RecordingHost host;
    // The pseudo-terminal's far end and the adapter reading it, in the second form only.
    std::unique_ptr<QtSerialPort> line;
    SimulatorOptions simulated;
    SimulatedInstrument instrument;
    QProcess tool;

private:
    void build(SerialPort& serial)
    {
        app_ = std::make_unique<Application>(platform(serial, chart));
        app_->state.ProgramDirectory = dir.path();
        app_->main.mnuRealTimeGraphOn.setChecked(true);
        host.onShowStoredPoints = [this] { app_->storedPoints.Form_Load(); };
        host.onUnloadStoredPoints = [this] { app_->storedPoints.Form_Unload(); };
        app_->setWindowHost(&host);
        app_->controller.mnuClearChart_Click();
    }

    std::unique_ptr<Application> app_;
};
