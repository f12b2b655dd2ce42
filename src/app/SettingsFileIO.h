#pragma once

#include <QString>
#include <functional>

struct AppState;
class ChartSurface;
class MainWindowModel;
class SerialPort;

// Moves the 23 settings entries between the live program and "Settings.dat".
class SettingsFileIO {
public:
    static constexpr const char* FileName = "Settings.dat";
    static constexpr const char* DefaultFileName = "DefaultSettings.dat";

    SettingsFileIO(AppState& state, MainWindowModel& main, ChartSurface& chart);

    // Refreshes the entries the live state owns.
    void GatherSettings();
    // Gathers, then writes all 23 entries; false when the file could not be written.
    bool SaveSettings();
    // Reads "Settings.dat" (or the factory file when useDefaults) and applies it. A missing or
    // unreadable user file falls back to the factory settings, so the first start looks right.
    bool LoadSettings(bool useDefaults);
    void ApplySettings();

    // Applies the temperature bar's entries, 11 to 15; set by the application.
    std::function<void()> ApplyTempBarSettings;

private:
    bool readInto(const QString& path);

    AppState& state_;
    MainWindowModel& main_;
    ChartSurface& chart_;
};
