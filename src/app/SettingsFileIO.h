#pragma once

#include "base/Settings.h"
#include "store/SettingsFile.h"

#include <QString>
#include <functional>

struct AppState;
class ChartSurface;
class MainWindowModel;

// Where the chart and the temperature bar apply and gather their own entries. Each step sees the
// live entries and may rewrite its own; a step left empty is skipped.
struct SettingsSteps {
    using Step = std::function<void(Settings&)>;

    // Apply, run in this order between the program's own entries:
    Step applyChartAxes; // 0 to 3 (axis bounds), 6 (Y title), 18 (appearance)
    Step applyChartFlags; // 8 (auto-range) and 21 (limit lines)
    Step applyTempBar; // 11 to 14, and 15 while the bar's window is shown
    // 16 (time unit and X title); false ends the apply there, as a conversion error would.
    std::function<bool(Settings&)> applyTimeUnit;

    // Gather (the bar's entries 11 to 15 are left as they are):
    Step gatherChart; // 0 to 3, 6 to 8, 16 to 18, 21
};

// Moves the 23 settings entries between the live program and "Settings.dat". The program's own
// entries are 4 and 5 (never applied), 9 and 10 (plotting mode), 19 (port), 20 (always "300")
// and 22 (audible alarms); the chart and the bar plug theirs in through `steps`.
class SettingsFileIO {
public:
    static constexpr const char* FileName = "Settings.dat";
    static constexpr const char* DefaultFileName = "DefaultSettings.dat";

    SettingsFileIO(AppState& state, MainWindowModel& main, ChartSurface& chart);

    // Refreshes the entries the live state owns.
    void GatherSettings();
    // Gathers, then writes all 23 entries at once; when the file could not be written the
    // previous file is left whole and the result says why.
    WholeFile::Result SaveSettings();
    // Reads "Settings.dat" (or the factory file when useDefaults) and applies it. A missing or
    // unreadable user file falls back to the factory settings beside the program, then to the
    // copy built into it, so the first start looks right.
    bool LoadSettings(bool useDefaults);
    void ApplySettings();

    // Installed with the chart's present rules; the chart and the bar may replace their steps.
    SettingsSteps steps;

private:
    bool readInto(const QString& path);
    void applyChartAxes(Settings& s);
    void applyChartFlags(Settings& s);
    bool applyTimeUnit(Settings& s);
    void gatherChart(Settings& s);

    AppState& state_;
    MainWindowModel& main_;
    ChartSurface& chart_;
};
