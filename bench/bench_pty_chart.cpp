// The whole receive path through a pseudo-terminal, with the real serial adapter, main window
// (offscreen) and chart: processor time per 1,000 readings at the instrument's full line rate
// with a million readings already plotted, and the fastest burst consumed with every reading
// plotted and logged.
//
//   bench_pty_chart paced [seconds]   35 readings a second for the given time (default 20)
//   bench_pty_chart burst [readings]  that many readings as fast as the terminal takes them
#include "app/Application.h"
#include "base/Clock.h"
#include "link/PortMap.h"
#include "link/sim/InstrumentSimulator.h"
#include "ui/ChartPlot.h"
#include "ui/LinuxSystemInfo.h"
#include "ui/MainWindow.h"
#include "ui/QCustomPlotSurface.h"
#include "ui/QtBeeper.h"
#include "ui/QtLauncher.h"
#include "ui/QtPrompter.h"
#include "ui/QtSerialPort.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <qcustomplot.h>
#include <sys/resource.h>
#include <termios.h>
#include <thread>
#include <unistd.h>

namespace {

// Processor time of the calling thread, the program's only thread of its own.
double threadCpuSeconds()
{
    rusage usage {};
    getrusage(RUSAGE_THREAD, &usage);
    return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec)
        + double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

struct Terminal {
    int master = -1;
    QString slave;
    bool open()
    {
        master = posix_openpt(O_RDWR | O_NOCTTY);
        if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0)
            return false;
        slave = QString::fromLocal8Bit(ptsname(master));
        return true;
    }
    ~Terminal()
    {
        if (master >= 0)
            ::close(master);
    }
};

bool writeAll(int fd, const char* data, size_t size)
{
    while (size > 0) {
        const ssize_t n = ::write(fd, data, size);
        if (n <= 0)
            return false;
        data += n;
        size -= size_t(n);
    }
    return true;
}

QByteArray readings(int count)
{
    SimulatorOptions options;
    options.intervalSeconds = 1;
    InstrumentSimulator simulator(options);
    simulator.nextRecord(); // the parameter block
    QByteArray bytes;
    bytes.reserve(qsizetype(count) * 16);
    for (int i = 0; i < count; ++i)
        bytes += simulator.nextRecord();
    return bytes;
}

QByteArray parameterBlock()
{
    SimulatorOptions options;
    options.intervalSeconds = 1;
    return InstrumentSimulator(options).nextRecord();
}

struct Program {
    QTemporaryDir dir;
    PortMap portMap;
    QtSerialPort port { portMap };
    QtPrompter prompter;
    SystemClock clock;
    QtBeeper beeper;
    QtLauncher launcher;
    LinuxSystemInfo systemInfo;
    QCustomPlot* plot = new ChartPlot;
    QCustomPlotSurface surface { *plot };
    Application app { Platform {
        prompter, clock, beeper, launcher, systemInfo, port, surface, portMap } };
    MainWindow window { app, plot };

    explicit Program(const QString& device)
    {
        app.state.ProgramDirectory = dir.path();
        app.controller.Form_Load();
        portMap.setRunOverride(app.state.CommPortNumber, device);
        app.main.mnuRealTimeGraphOn.setChecked(true);
        app.main.mnuAutoCompressed.setChecked(false);
        app.main.mnuAutoScaleYAxis.setChecked(true);
        window.resize(1000, 700);
        window.show();
        app.acquisition.mnuSenseTemperature_Click();
    }
    int plotted() const { return surface.pointCount(1) - 1; }
    qint64 loggedLines()
    {
        app.acquisition.lastObtainedFile().flush();
        QFile file(app.state.filePath(QStringLiteral("LAST_OBTAINED_DATA_PTS.dat")));
        if (!file.open(QIODevice::ReadOnly))
            return 0;
        return file.readAll().count('\n');
    }
    // Runs the event loop until the condition holds or the time is up. The condition is looked
    // at every `every` ms: the burst is timed to 5 ms, while the paced run looks seldom, so that
    // its own wake-ups do not count as the program's processor time.
    bool waitFor(const std::function<bool()>& done, int ms, int every = 5)
    {
        QEventLoop loop;
        QTimer poll;
        QObject::connect(&poll, &QTimer::timeout, &loop, [&] {
            if (done())
                loop.quit();
        });
        QTimer::singleShot(ms, &loop, &QEventLoop::quit);
        poll.start(every);
        if (!done())
            loop.exec();
        return done();
    }
};

int paced(Terminal& terminal, int seconds)
{
    Program program(terminal.slave);
    writeAll(terminal.master, parameterBlock().constData(), size_t(parameterBlock().size()));
    if (!program.waitFor([&] { return program.plotted() >= 1; }, 5000)) {
        std::fprintf(stderr, "the parameter block was not taken\n");
        return 1;
    }
    // A million readings already on the chart, as after eight hours at 35 a second.
    for (int i = 0; i < 1000000; ++i) {
        program.app.state.TimeInterval = 1.0f;
        qint16 r = qint16(60 + i % 40);
        program.app.chart.AddReadingToChart(r);
    }
    const int before = program.plotted();
    const int rate = 35;
    const QByteArray stream = readings(rate * seconds);
    std::atomic<bool> stop { false };
    std::thread writer([&] {
        const qsizetype recordSize = stream.size() / (rate * seconds);
        auto due = std::chrono::steady_clock::now();
        for (int i = 0; i < rate * seconds && !stop; ++i) {
            std::this_thread::sleep_until(due);
            writeAll(terminal.master, stream.constData() + i * recordSize, size_t(recordSize));
            due += std::chrono::microseconds(1000000 / rate);
        }
    });
    int replots = 0;
    int parts = 0;
    QObject::connect(program.plot, &QCustomPlot::afterReplot, [&] { ++replots; });
    QObject::connect(
        static_cast<ChartPlot*>(program.plot), &ChartPlot::areaRedrawn, [&] { ++parts; });
    const double cpuBefore = threadCpuSeconds();
    program.waitFor(
        [&] { return program.plotted() - before >= rate * seconds; }, (seconds + 5) * 1000, 500);
    const double cpu = threadCpuSeconds() - cpuBefore;
    stop = true;
    writer.join();
    const int got = program.plotted() - before;
    program.app.state.PlotSaved = true; // no offer to save at the end
    program.app.acquisition.mnuStop_Click();
    std::printf("paced_cpu_s_per_1000 %.4f over %d readings at %d/s, %d already plotted; "
                "%d replots, %d partial redraws\n",
        got > 0 ? cpu * 1000.0 / got : -1.0, got, rate, before, replots, parts);
    return got == rate * seconds ? 0 : 1;
}

int burst(Terminal& terminal, int count)
{
    Program program(terminal.slave);
    writeAll(terminal.master, parameterBlock().constData(), size_t(parameterBlock().size()));
    if (!program.waitFor([&] { return program.plotted() >= 1; }, 5000)) {
        std::fprintf(stderr, "the parameter block was not taken\n");
        return 1;
    }
    const int before = program.plotted();
    const qint64 loggedBefore = program.loggedLines();
    const QByteArray stream = readings(count);
    QElapsedTimer clock;
    clock.start();
    std::thread writer(
        [&] { writeAll(terminal.master, stream.constData(), size_t(stream.size())); });
    const bool all = program.waitFor([&] { return program.plotted() - before >= count; }, 120000);
    const double seconds = double(clock.nsecsElapsed()) / 1e9;
    writer.join();
    const int got = program.plotted() - before;
    const qint64 logged = program.loggedLines() - loggedBefore;
    program.app.state.PlotSaved = true; // no offer to save at the end
    program.app.acquisition.mnuStop_Click();
    std::printf("burst_readings_per_s %.0f: %d readings in %.3f s, %d plotted, %lld logged\n",
        got / seconds, count, seconds, got, static_cast<long long>(logged));
    return all && logged == count ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication qapp(argc, argv);
    const QString mode = argc > 1 ? QString::fromLatin1(argv[1]) : QStringLiteral("paced");
    const int amount = argc > 2 ? std::atoi(argv[2]) : 0;
    Terminal terminal;
    if (!terminal.open()) {
        std::fprintf(stderr, "no pseudo-terminal\n");
        return 1;
    }
    if (mode == QLatin1String("burst"))
        return burst(terminal, amount > 0 ? amount : 200000);
    return paced(terminal, amount > 0 ? amount : 20);
}
