// The settings reader and applier on an arbitrary "Settings.dat": each entry is its line, cut to
// the length bound; what is applied follows the entries; and a file saved, loaded and saved
// again comes out the same. The files go to a folder under TMPDIR (scripts/fuzz uses /dev/shm).
#include "FuzzCheck.h"
#include "app/SettingsFileIO.h"
#include "base/AppState.h"
#include "base/MainWindowModel.h"
#include "chart/InMemoryChartSurface.h"

#include <QFile>
#include <QTemporaryDir>
#include <cmath>
#include <cstdint>

namespace {
using Axis = ChartSurface::Axis;

struct Program {
    AppState state;
    MainWindowModel main;
    InMemoryChartSurface chart;
    SettingsFileIO io { state, main, chart };
    Settings& s = state.SettingsValues;

    // The chart starts in seconds, as the program's does.
    explicit Program(const QString& folder)
    {
        state.ProgramDirectory = folder;
        chart.setAxisTitle(Axis::X, QStringLiteral("SECONDS"));
    }
};

QByteArray readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void checkApplied(Program& p)
{
    const Settings& s = p.s;
    const std::pair<double, const SettingsNumber*> axes[]
        = { { p.chart.axisMax(Axis::Y), &s.yAxisMax }, { p.chart.axisMin(Axis::Y), &s.yAxisMin },
              { p.chart.axisMax(Axis::X), &s.xAxisMax },
              { p.chart.axisMin(Axis::X), &s.xAxisMin } };
    for (const auto& [axis, entry] : axes)
        FUZZ_CHECK(axis == std::floor(axis) && std::fabs(axis - entry->value()) <= 0.5);
    FUZZ_CHECK(p.chart.axisTitle(Axis::Y) == s.yAxisTitle.text);
    FUZZ_CHECK(p.main.mnuAutoScaleYAxis.checked() == s.yAutoRange.on());
    FUZZ_CHECK(p.main.mnuDispLimits.checked() == s.limitLinesShown.on());
    FUZZ_CHECK(p.main.mnuAutoCompressed.checked() == s.autoCompressed.on());
    FUZZ_CHECK(p.main.mnuRealTimeGraphOn.checked() == s.realTimeGraph.on());
    const auto unit = s.timeUnit.toInt16();
    FUZZ_CHECK(p.state.TimeUnitIndex == unit.value_or(0));
    const auto port = unit ? s.commPort.strictInt16() : std::nullopt;
    FUZZ_CHECK(p.state.CommPortNumber == port.value_or(1));
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static QTemporaryDir folder;
    const QString path = folder.filePath(QString::fromLatin1(SettingsFileIO::FileName));
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    QFile file(path);
    FUZZ_CHECK(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    FUZZ_CHECK(file.write(bytes) == bytes.size());
    file.close();

    Program p(folder.path());
    Settings::Lines before;
    for (int i = 0; i < Settings::Count; ++i)
        before[size_t(i)] = QStringLiteral("kept %1").arg(i);
    p.s.setLines(before);
    FUZZ_CHECK(p.io.LoadSettings(false));

    // Line k + 1 is entry k: whole when under the bound, cut to it otherwise; entries past the
    // end of the file keep what they held. The two chart switches are kept as "1" or "0".
    QList<QByteArray> lines = bytes.split('\n');
    if (lines.last().isEmpty())
        lines.removeLast();
    for (int i = 0; i < Settings::Count; ++i) {
        QByteArray line = i < lines.size() ? lines[i] : before[size_t(i)].toLatin1();
        const bool whole = line.size() < SettingsFile::MaxLineLength;
        while (whole && line.endsWith('\r'))
            line.chop(1);
        const QString entry = p.s.line(i);
        if (i == 8 || i == 21)
            FUZZ_CHECK(entry == (line == "1" ? "1" : "0"));
        else if (i == 20)
            FUZZ_CHECK(entry == Settings::fixedEntry());
        else
            FUZZ_CHECK(whole ? entry == QString::fromLatin1(line)
                             : entry.size() <= SettingsFile::MaxLineLength
                        && line.startsWith(entry.toLatin1()));
    }
    checkApplied(p);

    FUZZ_CHECK(p.io.SaveSettings().ok);
    const QByteArray saved = readAll(path);
    Program again(folder.path());
    FUZZ_CHECK(again.io.LoadSettings(false) && again.s.lines() == p.s.lines());
    FUZZ_CHECK(again.io.SaveSettings().ok && readAll(path) == saved);
    return 0;
}
