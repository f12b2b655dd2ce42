// Processor use of the whole program while sensing: the real window (offscreen), the real serial
// adapter and chart, fed one reading a second by talavex-sim in a separate process.
#include "app/Application.h"
#include "base/Clock.h"
#include "link/PortMap.h"
#include "ui/ChartPlot.h"
#include "ui/LinuxSystemInfo.h"
#include "ui/MainWindow.h"
#include "ui/QCustomPlotSurface.h"
#include "ui/QtBeeper.h"
#include "ui/QtLauncher.h"
#include "ui/QtPrompter.h"
#include "ui/QtSerialPort.h"

#include <QApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <qcustomplot.h>
#include <sys/resource.h>

namespace {
double cpuSeconds()
{
    rusage usage {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_utime.tv_sec + usage.ru_stime.tv_sec
        + (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication qapp(argc, argv);
    const int seconds = qEnvironmentVariableIntValue("TALAVEX_BENCH_SECONDS") > 0
        ? qEnvironmentVariableIntValue("TALAVEX_BENCH_SECONDS")
        : 60;
    const QString sim = qEnvironmentVariable("TALAVEX_SIM", QStringLiteral("talavex-sim"));

    QProcess instrument;
    instrument.start(sim, { "--mode", "realtime", "--interval", "1", "--delay", "1" });
    if (!instrument.waitForReadyRead(5000)) {
        std::fprintf(stderr, "no simulated instrument from %s\n", qPrintable(sim));
        return 1;
    }
    const QString device = QString::fromLatin1(instrument.readLine()).trimmed();

    QTemporaryDir dir;
    PortMap portMap;
    portMap.setRunOverride(1, device);
    QtSerialPort port(portMap);
    QtPrompter prompter;
    SystemClock clock;
    QtBeeper beeper;
    QtLauncher launcher;
    LinuxSystemInfo systemInfo;
    auto* plot = new ChartPlot;
    QCustomPlotSurface surface(*plot);
    Application app(
        Platform { prompter, clock, beeper, launcher, systemInfo, port, surface, portMap });
    app.state.ProgramDirectory = dir.path();
    MainWindow window(app, plot);
    app.controller.Form_Load();
    window.show();
    app.acquisition.mnuSenseTemperature_Click();

    const double before = cpuSeconds();
    QTimer::singleShot(seconds * 1000, &qapp, &QApplication::quit);
    qapp.exec();
    const double used = cpuSeconds() - before;
    const int readings = surface.pointCount(1) - 1;
    // No offer to save the plot: there is nobody to answer it.
    app.state.PlotSaved = true;
    app.acquisition.mnuStop_Click();
    instrument.kill();
    instrument.waitForFinished();
    std::printf("sensing_cpu_percent %.2f %% of a core over %d s, %d readings\n",
        100.0 * used / seconds, seconds, readings);
    return readings > 0 ? 0 : 1;
}
