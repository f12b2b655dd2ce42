#include "SettingsFileIO.h"

#include "base/AppState.h"
#include "base/MainWindowModel.h"
#include "base/Numbers.h"
#include "chart/ChartSurface.h"
#include "store/SettingsFile.h"

#include <QFile>

// The factory settings are built into the program too; the static library's resources must be
// registered by hand.
static void registerBuiltInFiles() { Q_INIT_RESOURCE(resources); }

namespace {
const char* const TimeUnitTitles[] = { "SECONDS", "MINUTES", "HOURS", "DAYS" };
const QString BuiltInDefaults = QStringLiteral(":/talavex/DefaultSettings.dat");

QString flag(bool on) { return on ? QStringLiteral("1") : QStringLiteral("0"); }
} // namespace

SettingsFileIO::SettingsFileIO(AppState& state, MainWindowModel& main, ChartSurface& chart)
    : state_(state)
    , main_(main)
    , chart_(chart)
{
}

void SettingsFileIO::GatherSettings()
{
    auto& v = state_.SettingsValues;
    using Axis = ChartSurface::Axis;
    v[0] = Numbers::NumberText(chart_.axisMax(Axis::Y));
    v[1] = Numbers::NumberText(chart_.axisMin(Axis::Y));
    v[2] = Numbers::NumberText(chart_.axisMax(Axis::X));
    v[3] = Numbers::NumberText(chart_.axisMin(Axis::X));
    v[6] = chart_.axisTitle(Axis::Y);
    v[7] = chart_.axisTitle(Axis::X);
    if (v[0] == v[1])
        v[0] = Numbers::NumberText(Numbers::Val(v[0]) + 100);
    if (v[3] == v[2])
        v[2] = Numbers::NumberText(Numbers::Val(v[2]) + 100);
    // Entry 22 belongs to the audible-alarms box of the bar settings, which writes it itself.
    v[8] = flag(main_.mnuAutoScaleYAxis.checked());
    v[21] = flag(main_.mnuDispLimits.checked());
    v[17] = flag(main_.mnuAutoScaleYAxis.checked());
    v[9] = flag(main_.mnuAutoCompressed.checked());
    v[10] = flag(main_.mnuRealTimeGraphOn.checked());
    if (main_.mnuPlainChart.checked())
        v[18] = QStringLiteral("1");
    else if (main_.mnuScopeChart.checked())
        v[18] = QStringLiteral("2");
    else if (main_.mnuStandardChart.checked())
        v[18] = QStringLiteral("0");
    v[16] = QString::number(state_.TimeUnitIndex);
    v[19] = QString::number(state_.CommPortNumber);
    v[20] = QStringLiteral("300");
}

bool SettingsFileIO::SaveSettings()
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
    const bool autoRange = v[8] == QLatin1String("1");
    main_.mnuAutoScaleYAxis.setChecked(autoRange);
    if (!autoRange)
        v[8] = QStringLiteral("0");
    const bool limits = v[21] == QLatin1String("1");
    main_.mnuDispLimits.setChecked(limits);
    if (!limits)
        v[21] = QStringLiteral("0");
    main_.mnuAutoCompressed.setChecked(v[9] == QLatin1String("1"));
    main_.mnuRealTimeGraphOn.setChecked(v[10] == QLatin1String("1"));
    if (ApplyTempBarSettings)
        ApplyTempBarSettings();

    // The time unit: a value that does not fit 16 bits ends the apply here, as a conversion
    // error would.
    const auto unit = Numbers::ToInt16(Numbers::Val(v[16]));
    if (!unit)
        return;
    state_.TimeUnitIndex = *unit;
    if (*unit >= 0 && *unit <= 3)
        chart_.setAxisTitle(Axis::X, QString::fromLatin1(TimeUnitTitles[*unit]));

    // The port number last, converted strictly: a non-numeric entry leaves the port unchanged.
    if (const auto port = Numbers::TextToInt16(v[19]))
        state_.CommPortNumber = *port;
}
