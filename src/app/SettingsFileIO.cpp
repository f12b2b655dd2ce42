#include "SettingsFileIO.h"

#include "base/AppState.h"
#include "base/MainWindowModel.h"
#include "base/Numbers.h"
#include "chart/ChartSurface.h"

#include <QFile>

// The factory settings are built into the program too; the static library's resources must be
// registered by hand.
static void registerBuiltInFiles() { Q_INIT_RESOURCE(resources); }

namespace {
const char* const TimeUnitTitles[] = { "SECONDS", "MINUTES", "HOURS", "DAYS" };
const QString BuiltInDefaults = QStringLiteral(":/talavex/DefaultSettings.dat");
} // namespace

SettingsFileIO::SettingsFileIO(AppState& state, MainWindowModel& main, ChartSurface& chart)
    : state_(state)
    , main_(main)
    , chart_(chart)
{
    steps.applyChartAxes = [this](Settings& s) { applyChartAxes(s); };
    steps.applyChartFlags = [this](Settings& s) { applyChartFlags(s); };
    steps.applyTimeUnit = [this](Settings& s) { return applyTimeUnit(s); };
    steps.gatherChart = [this](Settings& s) { gatherChart(s); };
}

// ---- The order and the program's own entries ----

void SettingsFileIO::GatherSettings()
{
    Settings& s = state_.SettingsValues;
    if (steps.gatherChart)
        steps.gatherChart(s);
    // A saved axis is never empty.
    if (s.yAxisMax.text == s.yAxisMin.text)
        s.yAxisMax.text = Numbers::NumberText(s.yAxisMax.value() + 100);
    if (s.xAxisMin.text == s.xAxisMax.text)
        s.xAxisMax.text = Numbers::NumberText(s.xAxisMax.value() + 100);
    // The audible-alarms box shows the entry checked only for "1" and writes "1" or "0" into it.
    s.audibleAlarms.normalize();
    s.autoCompressed.set(main_.mnuAutoCompressed.checked());
    s.realTimeGraph.set(main_.mnuRealTimeGraphOn.checked());
    s.commPort.text = QString::number(state_.CommPortNumber);
}

WholeFile::Result SettingsFileIO::SaveSettings()
{
    GatherSettings();
    return SettingsFile::Write(
        state_.filePath(QString::fromLatin1(FileName)), state_.SettingsValues.lines());
}

bool SettingsFileIO::readInto(const QString& path)
{
    // A short file fills only the leading entries: the others keep what they held.
    Settings::Lines lines = state_.SettingsValues.lines();
    if (!SettingsFile::Read(path, lines))
        return false;
    state_.SettingsValues.setLines(lines);
    return true;
}

bool SettingsFileIO::LoadSettings(bool useDefaults)
{
    const QString defaults = state_.filePath(QString::fromLatin1(DefaultFileName));
    bool loaded = false;
    if (!useDefaults)
        loaded = readInto(state_.filePath(QString::fromLatin1(FileName)));
    if (!loaded)
        loaded = readInto(defaults);
    if (!loaded) {
        registerBuiltInFiles();
        loaded = readInto(BuiltInDefaults);
    }
    if (loaded)
        ApplySettings();
    return loaded;
}

void SettingsFileIO::ApplySettings()
{
    Settings& s = state_.SettingsValues;
    // Axis bounds, Y title, appearance.
    if (steps.applyChartAxes)
        steps.applyChartAxes(s);
    // The audible alarms are read by the alarm box and the beep timer where they stand.
    // The two chart flags: anything but "1" is off and is kept as "0".
    if (steps.applyChartFlags)
        steps.applyChartFlags(s);
    s.yAutoRange.normalize();
    s.limitLinesShown.normalize();
    // The plotting mode.
    main_.mnuAutoCompressed.setChecked(s.autoCompressed.on());
    main_.mnuRealTimeGraphOn.setChecked(s.realTimeGraph.on());
    // The temperature bar.
    if (steps.applyTempBar)
        steps.applyTempBar(s);
    // The time unit.
    if (steps.applyTimeUnit && !steps.applyTimeUnit(s))
        return;
    // The port number last, converted strictly: a non-numeric entry ends the apply here and
    // leaves the port unchanged.
    if (const auto port = s.commPort.strictInt16())
        state_.CommPortNumber = *port;
}

// ---- The chart's entries ----

void SettingsFileIO::gatherChart(Settings& s)
{
    using Axis = ChartSurface::Axis;
    s.yAxisMax.text = Numbers::NumberText(chart_.axisMax(Axis::Y));
    s.yAxisMin.text = Numbers::NumberText(chart_.axisMin(Axis::Y));
    s.xAxisMax.text = Numbers::NumberText(chart_.axisMax(Axis::X));
    s.xAxisMin.text = Numbers::NumberText(chart_.axisMin(Axis::X));
    s.yAxisTitle.text = chart_.axisTitle(Axis::Y);
    s.xAxisTitle.text = chart_.axisTitle(Axis::X);
    s.yAutoRange.set(main_.mnuAutoScaleYAxis.checked());
    s.limitLinesShown.set(main_.mnuDispLimits.checked());
    s.autoScaleY.set(main_.mnuAutoScaleYAxis.checked());
    if (main_.mnuPlainChart.checked())
        s.appearance.text = QStringLiteral("1");
    else if (main_.mnuScopeChart.checked())
        s.appearance.text = QStringLiteral("2");
    else if (main_.mnuStandardChart.checked())
        s.appearance.text = QStringLiteral("0");
    s.timeUnit.text = QString::number(state_.TimeUnitIndex);
}

void SettingsFileIO::applyChartAxes(Settings& s)
{
    using Axis = ChartSurface::Axis;
    {
        ChartBatch batch(chart_);
        auto whole = [](const SettingsNumber& entry) {
            return Numbers::Val(Numbers::Format(entry.value(), QStringLiteral("0")));
        };
        chart_.setAxisMax(Axis::Y, whole(s.yAxisMax));
        chart_.setAxisMin(Axis::Y, whole(s.yAxisMin));
        chart_.setAxisMax(Axis::X, whole(s.xAxisMax));
        chart_.setAxisMin(Axis::X, whole(s.xAxisMin));
        chart_.setAxisTitle(Axis::Y, s.yAxisTitle.text);
    }
    const QString& scheme = s.appearance.text;
    if (scheme == QLatin1String("0") || scheme == QLatin1String("1")
        || scheme == QLatin1String("2")) {
        main_.mnuStandardChart.setChecked(scheme == QLatin1String("0"));
        main_.mnuPlainChart.setChecked(scheme == QLatin1String("1"));
        main_.mnuScopeChart.setChecked(scheme == QLatin1String("2"));
    }
}

void SettingsFileIO::applyChartFlags(Settings& s)
{
    main_.mnuAutoScaleYAxis.setChecked(s.yAutoRange.on());
    main_.mnuDispLimits.setChecked(s.limitLinesShown.on());
}

bool SettingsFileIO::applyTimeUnit(Settings& s)
{
    // A value that does not fit 16 bits ends the apply here, as a conversion error would.
    const auto unit = s.timeUnit.toInt16();
    if (!unit)
        return false;
    state_.TimeUnitIndex = *unit;
    if (*unit >= 0 && *unit <= 3)
        chart_.setAxisTitle(ChartSurface::Axis::X, QString::fromLatin1(TimeUnitTitles[*unit]));
    return true;
}
