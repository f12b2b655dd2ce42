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

QString flag(bool on) { return on ? QStringLiteral("1") : QStringLiteral("0"); }
bool isOn(const QString& entry) { return entry == QLatin1String("1"); }
} // namespace

SettingsFileIO::SettingsFileIO(AppState& state, MainWindowModel& main, ChartSurface& chart)
    : state_(state)
    , main_(main)
    , chart_(chart)
{
    steps.applyChartAxes = [this](SettingsFile::Values& v) { applyChartAxes(v); };
    steps.applyChartFlags = [this](SettingsFile::Values& v) { applyChartFlags(v); };
    steps.applyTimeUnit = [this](SettingsFile::Values& v) { return applyTimeUnit(v); };
    steps.gatherChart = [this](SettingsFile::Values& v) { gatherChart(v); };
}

// ---- The order and the program's own entries ----

void SettingsFileIO::GatherSettings()
{
    auto& v = state_.SettingsValues;
    if (steps.gatherChart)
        steps.gatherChart(v);
    // A saved axis is never empty.
    if (v[0] == v[1])
        v[0] = Numbers::NumberText(Numbers::Val(v[0]) + 100);
    if (v[3] == v[2])
        v[2] = Numbers::NumberText(Numbers::Val(v[2]) + 100);
    // The audible-alarms box shows entry 22 checked only for "1" and writes "1" or "0" into it.
    v[22] = flag(isOn(v[22]));
    v[9] = flag(main_.mnuAutoCompressed.checked());
    v[10] = flag(main_.mnuRealTimeGraphOn.checked());
    v[19] = QString::number(state_.CommPortNumber);
    v[20] = QStringLiteral("300");
}

WholeFile::Result SettingsFileIO::SaveSettings()
{
    GatherSettings();
    return SettingsFile::Write(
        state_.filePath(QString::fromLatin1(FileName)), state_.SettingsValues);
}

bool SettingsFileIO::readInto(const QString& path)
{
    return SettingsFile::Read(path, state_.SettingsValues);
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
    auto& v = state_.SettingsValues;
    // Axis bounds, Y title, appearance
    if (steps.applyChartAxes)
        steps.applyChartAxes(v);
    // Entry 22 is read by the audible-alarms box and the beep timer where they stand.
    // The two chart flags; anything but "1" is off and is kept as "0"
    if (steps.applyChartFlags)
        steps.applyChartFlags(v);
    for (int i : { 8, 21 }) {
        if (!isOn(v[i]))
            v[i] = QStringLiteral("0");
    }
    // The plotting mode
    main_.mnuAutoCompressed.setChecked(isOn(v[9]));
    main_.mnuRealTimeGraphOn.setChecked(isOn(v[10]));
    // The temperature bar
    if (steps.applyTempBar)
        steps.applyTempBar(v);
    // The time unit
    if (steps.applyTimeUnit && !steps.applyTimeUnit(v))
        return;
    // The port number last, converted strictly: a non-numeric entry ends the apply here and
    // leaves the port unchanged.
    if (const auto port = Numbers::TextToInt16(v[19]))
        state_.CommPortNumber = *port;
}

// ---- The chart's entries ----

void SettingsFileIO::gatherChart(SettingsFile::Values& v)
{
    using Axis = ChartSurface::Axis;
    v[0] = Numbers::NumberText(chart_.axisMax(Axis::Y));
    v[1] = Numbers::NumberText(chart_.axisMin(Axis::Y));
    v[2] = Numbers::NumberText(chart_.axisMax(Axis::X));
    v[3] = Numbers::NumberText(chart_.axisMin(Axis::X));
    v[6] = chart_.axisTitle(Axis::Y);
    v[7] = chart_.axisTitle(Axis::X);
    v[8] = flag(main_.mnuAutoScaleYAxis.checked());
    v[21] = flag(main_.mnuDispLimits.checked());
    v[17] = flag(main_.mnuAutoScaleYAxis.checked());
    if (main_.mnuPlainChart.checked())
        v[18] = QStringLiteral("1");
    else if (main_.mnuScopeChart.checked())
        v[18] = QStringLiteral("2");
    else if (main_.mnuStandardChart.checked())
        v[18] = QStringLiteral("0");
    v[16] = QString::number(state_.TimeUnitIndex);
}

void SettingsFileIO::applyChartAxes(SettingsFile::Values& v)
{
    using Axis = ChartSurface::Axis;
    {
        ChartBatch batch(chart_);
        auto whole = [&](int i) {
            return Numbers::Val(Numbers::Format(Numbers::Val(v[i]), QStringLiteral("0")));
        };
        chart_.setAxisMax(Axis::Y, whole(0));
        chart_.setAxisMin(Axis::Y, whole(1));
        chart_.setAxisMax(Axis::X, whole(2));
        chart_.setAxisMin(Axis::X, whole(3));
        chart_.setAxisTitle(Axis::Y, v[6]);
    }
    if (v[18] == QLatin1String("0") || v[18] == QLatin1String("1") || v[18] == QLatin1String("2")) {
        main_.mnuStandardChart.setChecked(v[18] == QLatin1String("0"));
        main_.mnuPlainChart.setChecked(v[18] == QLatin1String("1"));
        main_.mnuScopeChart.setChecked(v[18] == QLatin1String("2"));
    }
}

void SettingsFileIO::applyChartFlags(SettingsFile::Values& v)
{
    main_.mnuAutoScaleYAxis.setChecked(isOn(v[8]));
    main_.mnuDispLimits.setChecked(isOn(v[21]));
}

bool SettingsFileIO::applyTimeUnit(SettingsFile::Values& v)
{
    // A value that does not fit 16 bits ends the apply here, as a conversion error would.
    const auto unit = Numbers::ToInt16(Numbers::Val(v[16]));
    if (!unit)
        return false;
    state_.TimeUnitIndex = *unit;
    if (*unit >= 0 && *unit <= 3)
        chart_.setAxisTitle(ChartSurface::Axis::X, QString::fromLatin1(TimeUnitTitles[*unit]));
    return true;
}
