#include "app/Application.h"
#include "app/CommandLine.h"
#include "app/ProgramFolder.h"
#include "base/Clock.h"
#include "link/PortMap.h"
#include "link/sim/SimulatedInstrument.h"
#include "ui/ChartPlot.h"
#include "ui/LinuxSystemInfo.h"
#include "ui/Logo.h"
#include "ui/MainWindow.h"
#include "ui/QCustomPlotSurface.h"
#include "ui/QtBeeper.h"
#include "ui/QtLauncher.h"
#include "ui/QtPrompter.h"
#include "ui/QtSerialPort.h"
#include "ui/SplashWindow.h"
#include "xlsx/XlsxWorkbookWriter.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QMessageBox>
#include <QSerialPortInfo>
#include <QSocketNotifier>
#include <QTimer>
#include <csignal>
#include <cstdio>
#include <qcustomplot.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

int signalPipe[2] = { -1, -1 };

void onTerminationSignal(int)
{
    const char byte = 1;
    [[maybe_unused]] const auto written = ::write(signalPipe[1], &byte, 1);
}

// A termination request from the system ends the program like EXIT does: port closed,
// settings saved.
void shutDownOnSignals(MainController& controller)
{
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, signalPipe) != 0)
        return;
    auto* notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, &controller);
    QObject::connect(notifier, &QSocketNotifier::activated, &controller, [&controller] {
        char byte;
        [[maybe_unused]] const auto got = ::read(signalPipe[0], &byte, 1);
        controller.Shutdown();
    });
    struct sigaction action { };
    action.sa_handler = onTerminationSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (int sig : { SIGTERM, SIGINT, SIGHUP })
        sigaction(sig, &action, nullptr);
}

QStringList serialDevices()
{
    QStringList devices;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts())
        devices << info.systemLocation();
    return devices;
}

} // namespace

int main(int argc, char** argv)
{
    QElapsedTimer sinceLaunch;
    sinceLaunch.start();
    QApplication qapp(argc, argv);
    QApplication::setApplicationName(QStringLiteral("TALAVEX"));
    QApplication::setApplicationVersion(QStringLiteral(TALAVEX_VERSION));

    const CommandLine line = CommandLine::parse(QApplication::arguments());
    if (!line.error.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(line.error));
        return line.error == CommandLine::usage() ? 0 : 2;
    }

    // Every work and settings file lives in the directory the program was started from; a start
    // from the desktop menu uses a folder of its own in the home folder.
    if (line.home) {
        const QString folder = ProgramFolder::inHome(QDir::homePath());
        const QString factory
            = QDir(QApplication::applicationDirPath())
                  .filePath(QStringLiteral("../share/talavex/DefaultSettings.dat"));
        QString error;
        if (!ProgramFolder::prepare(folder, factory, &error) || !QDir::setCurrent(folder)) {
            QMessageBox::critical(nullptr, QStringLiteral("TALAVEX"),
                error.isEmpty() ? QStringLiteral("The folder %1 cannot be used.").arg(folder)
                                : error);
            return 1;
        }
    }
    const QString programDirectory = QDir::currentPath();
    PortMap portMap;
    portMap.load(programDirectory);
    QtSerialPort port(portMap);
    QtPrompter prompter;
    SystemClock clock;
    QtBeeper beeper;
    QtLauncher launcher;
    LinuxSystemInfo systemInfo;
    auto* plot = new ChartPlot;
    QCustomPlotSurface surface(*plot);

    Platform platform { prompter, clock, beeper, launcher, systemInfo, port, surface, portMap };
    platform.listSerialDevices = serialDevices;
    platform.openForSearch = &QtSerialPort::forDevice;
    XlsxWorkbookWriter workbook;
    platform.workbook = &workbook;
    Application app(platform);
    app.state.ProgramDirectory = programDirectory;
    // The manual installed with the program, for a program directory that has none; run from
    // the build tree, the source tree's.
    const QString installedManual
        = QDir(QApplication::applicationDirPath())
              .filePath(QStringLiteral("../share/talavex/Web Manual/Index.html"));
    app.help.setInstalledManual(QFileInfo::exists(installedManual)
            ? installedManual
            : QStringLiteral(TALAVEX_SOURCE_MANUAL));
    QApplication::setWindowIcon(Logo::icon());
    MainWindow window(app, plot);
    QObject::connect(&app.controller, &MainController::quitRequested, &qapp, &QApplication::quit,
        Qt::QueuedConnection);
    QObject::connect(&qapp, &QApplication::aboutToQuit, &app.controller, &MainController::Shutdown);
    shutDownOnSignals(app.controller);

    SimulatedInstrument demo;
    auto bringUpMainWindow = [&] {
        app.controller.Form_Load();
        if (!line.portDevice.isEmpty())
            portMap.setRunOverride(app.state.CommPortNumber, line.portDevice);
        if (line.demo) {
            QString error;
            if (demo.open(&error)) {
                portMap.setRunOverride(app.state.CommPortNumber, demo.devicePath());
                window.statusBar()->showMessage(
                    QStringLiteral("Simulated instrument on %1 (COM %2)")
                        .arg(demo.devicePath())
                        .arg(app.state.CommPortNumber));
            } else {
                std::fprintf(stderr, "talavex: no simulated instrument: %s\n", qPrintable(error));
            }
        }
        window.show();
        if (line.startupProbe) {
            QTimer::singleShot(0, &qapp, [&] {
                std::printf("startup_ms %lld\n", static_cast<long long>(sinceLaunch.elapsed()));
                std::fflush(stdout);
                QApplication::exit(0);
            });
        }
    };
    if (line.demo) {
        // The simulated instrument sends whatever the operator asked the program to receive.
        QObject::connect(&app, &Application::portOpened, &demo, [&demo](bool realTime) {
            SimulatorOptions options;
            options.mode
                = realTime ? SimulatorOptions::Mode::RealTime : SimulatorOptions::Mode::Download;
            options.intervalSeconds = 1;
            demo.start(options);
        });
        QObject::connect(&app, &Application::portClosed, &demo, &SimulatedInstrument::stop);
    }

    if (line.splash && !line.startupProbe) {
        auto* splash = new SplashWindow;
        QObject::connect(splash, &SplashWindow::finished, &window, [splash, bringUpMainWindow] {
            splash->hide();
            splash->deleteLater();
            bringUpMainWindow();
        });
        splash->show();
        splash->start();
    } else {
        bringUpMainWindow();
    }
    return qapp.exec();
}
