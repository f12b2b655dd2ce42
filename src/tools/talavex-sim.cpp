// talavex-sim: a simulated instrument on a pseudo-terminal. Prints the device path as its first
// line, then serves the instrument's stream there until killed (a download ends once a reader
// has taken all of it, unless --stay).

#include "link/sim/InstrumentSimulator.h"
#include "link/sim/PtyServer.h"
#include "link/sim/SimulatedInstrument.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTimer>

#include <cstdio>
#include <optional>

namespace {

struct Settings {
    SimulatorOptions options;
    int rate = SimulatedInstrument::LineRate;
    double timeScale = 1.0;
    double delaySeconds = 0.0;
    bool stay = false;
};

[[noreturn]] void failWith(const QString& message)
{
    std::fprintf(stderr, "talavex-sim: %s\n", qPrintable(message));
    std::exit(1);
}

int wholeNumber(const QCommandLineParser& parser, const QString& name, int minimum)
{
    bool ok = false;
    const int value = parser.value(name).toInt(&ok);
    if (!ok || value < minimum)
        failWith(QStringLiteral("--%1 wants a whole number of at least %2, not \"%3\"")
                     .arg(name)
                     .arg(minimum)
                     .arg(parser.value(name)));
    return value;
}

double positiveNumber(const QCommandLineParser& parser, const QString& name, bool zeroAllowed)
{
    bool ok = false;
    const double value = parser.value(name).toDouble(&ok);
    if (!ok || value < 0 || (value == 0 && !zeroAllowed))
        failWith(QStringLiteral("--%1 wants a %2 number, not \"%3\"")
                     .arg(name,
                         zeroAllowed ? QStringLiteral("non-negative") : QStringLiteral("positive"),
                         parser.value(name)));
    return value;
}

Settings readSettings(const QCoreApplication& app)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Simulated infrared thermometer on a pseudo-terminal. Prints the device path on the first "
        "line, then sends the instrument's stream there at 4800 baud."));
    parser.addHelpOption();
    parser.addOptions({
        { "mode", "realtime (parameter block, then readings) or download (stored readings).",
            "mode", "realtime" },
        { "interval", "Sampling interval in seconds; 0 reports no interval.", "seconds", "2" },
        { "units", "F or C.", "units", "F" },
        { "no-ambient", "The ambient sensor reads nothing (AMB TEMP ---)." },
        { "stored", "Readings in the instrument's memory.", "count", "120" },
        { "empty", "Empty memory locations after a download.", "count", "3" },
        { "fault", "none, silence, blank, wrongmode, noise (bursts ended by BEL) or noise-nobel.",
            "fault", "none" },
        { "fault-after", "Records sent normally before the fault.", "count", "0" },
        { "rate", "Characters per second; 0 sends as fast as the reader takes them.", "cps",
            QString::number(SimulatedInstrument::LineRate) },
        { "seed", "Seed of the waveform and the noise.", "n", "1" },
        { "short", "Real-time readings in the short form (\"  75\")." },
        { "time-scale", "Multiplies the time between real-time readings (0.1 = ten times faster).",
            "factor", "1" },
        { "delay", "Seconds to wait before the stream begins.", "seconds", "0" },
        { "stay", "Keep serving after a download has been read." },
    });
    parser.process(app);
    if (!parser.positionalArguments().isEmpty())
        failWith(
            QStringLiteral("unexpected argument \"%1\"").arg(parser.positionalArguments().first()));

    Settings s;
    const QString mode = parser.value("mode").toLower();
    if (mode == "realtime")
        s.options.mode = SimulatorOptions::Mode::RealTime;
    else if (mode == "download")
        s.options.mode = SimulatorOptions::Mode::Download;
    else
        failWith(QStringLiteral("--mode is realtime or download, not \"%1\"").arg(mode));

    const QString units = parser.value("units").toUpper();
    if (units == "F")
        s.options.units = SimulatorOptions::Units::Fahrenheit;
    else if (units == "C")
        s.options.units = SimulatorOptions::Units::Celsius;
    else
        failWith(QStringLiteral("--units is F or C, not \"%1\"").arg(units));

    const QString fault = parser.value("fault").toLower();
    const std::pair<const char*, SimulatorOptions::Fault> faults[] = {
        { "none", SimulatorOptions::Fault::None },
        { "silence", SimulatorOptions::Fault::Silence },
        { "blank", SimulatorOptions::Fault::BlankRecords },
        { "wrongmode", SimulatorOptions::Fault::WrongMode },
        { "noise", SimulatorOptions::Fault::Noise },
        { "noise-nobel", SimulatorOptions::Fault::NoiseWithoutBel },
    };
    std::optional<SimulatorOptions::Fault> chosen;
    for (const auto& [name, value] : faults)
        if (fault == QLatin1String(name))
            chosen = value;
    if (!chosen)
        failWith(QStringLiteral("unknown --fault \"%1\"").arg(fault));
    s.options.fault = *chosen;

    s.options.intervalSeconds = wholeNumber(parser, "interval", 0);
    s.options.ambientMissing = parser.isSet("no-ambient");
    s.options.storedCount = wholeNumber(parser, "stored", 0);
    s.options.emptyLocations = wholeNumber(parser, "empty", 0);
    s.options.faultAfter = wholeNumber(parser, "fault-after", 0);
    bool seedOk = false;
    s.options.seed = parser.value("seed").toUInt(&seedOk);
    if (!seedOk)
        failWith(
            QStringLiteral("--seed wants a whole number, not \"%1\"").arg(parser.value("seed")));
    s.options.shortForm = parser.isSet("short");
    s.rate = wholeNumber(parser, "rate", 0);
    s.timeScale = positiveNumber(parser, "time-scale", false);
    s.delaySeconds = positiveNumber(parser, "delay", true);
    s.stay = parser.isSet("stay");
    return s;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("talavex-sim"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TALAVEX_VERSION));
    const Settings settings = readSettings(app);

    SimulatedInstrument instrument;
    instrument.setCharactersPerSecond(settings.rate);
    instrument.setTimeScale(settings.timeScale);
    QString error;
    if (!instrument.open(&error))
        failWith(QStringLiteral("cannot open a pseudo-terminal: %1").arg(error));

    std::printf("%s\n", qPrintable(instrument.devicePath()));
    std::fflush(stdout);

    // The terminal is closed when we exit, and a reader loses what it has not read yet; so a
    // finished download waits until the reader has taken everything (twice seen empty, since
    // the last characters may still be on their way into the reader's buffer).
    QTimer readerCheck;
    int emptyChecks = 0;
    QObject::connect(&readerCheck, &QTimer::timeout, &app, [&] {
        emptyChecks = instrument.server().unreadBytes() == 0 ? emptyChecks + 1 : 0;
        if (emptyChecks >= 2)
            QCoreApplication::quit();
    });
    if (settings.options.mode == SimulatorOptions::Mode::Download && !settings.stay)
        QObject::connect(
            &instrument, &SimulatedInstrument::finished, &app, [&] { readerCheck.start(100); });

    QTimer::singleShot(
        int(settings.delaySeconds * 1000), &app, [&] { instrument.start(settings.options); });
    return app.exec();
}
