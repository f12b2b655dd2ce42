#include "CommandLine.h"

CommandLine CommandLine::parse(const QStringList& arguments)
{
    CommandLine line;
    for (int i = 1; i < arguments.size(); ++i) {
        const QString& arg = arguments.at(i);
        if (arg == QLatin1String("--demo")) {
            line.demo = true;
        } else if (arg == QLatin1String("--home")) {
            line.home = true;
        } else if (arg == QLatin1String("--no-splash")) {
            line.splash = false;
        } else if (arg == QLatin1String("--startup-probe")) {
            line.startupProbe = true;
        } else if (arg == QLatin1String("--port")) {
            if (i + 1 >= arguments.size() || arguments.at(i + 1).startsWith(QLatin1String("--"))) {
                line.error = QStringLiteral("--port needs a device, as in --port /dev/ttyUSB0");
                return line;
            }
            line.portDevice = arguments.at(++i);
        } else if (arg.startsWith(QLatin1String("--port="))) {
            line.portDevice = arg.mid(7);
        } else if (arg == QLatin1String("--help") || arg == QLatin1String("-h")) {
            line.error = usage();
            return line;
        } else if (!arg.startsWith(QLatin1Char('-'))) {
            continue; // Qt's own options have been taken out already; stray words are ignored
        } else {
            line.error = QStringLiteral("Unknown option %1\n\n%2").arg(arg, usage());
            return line;
        }
    }
    return line;
}

QString CommandLine::usage()
{
    return QStringLiteral(
        "Usage: talavex [--demo] [--port DEVICE] [--no-splash] [--home]\n"
        "  --demo           start with a simulated instrument bound to the current port\n"
        "  --port DEVICE    bind the current COM number to DEVICE (e.g. /dev/ttyUSB0) for this "
        "run\n"
        "  --no-splash      show the main window at once\n"
        "  --home           keep work and settings files in ~/TALAVEX (made on first start)\n"
        "Otherwise work and settings files are kept in the current directory.");
}
