#pragma once

#include <QObject>
#include <functional>

struct AppState;
class Acquisition;
class ChartSurface;
class GraphingFunctions;
class MainWindowModel;
class Prompter;
class ReceiveHandler;
class SerialPort;
class SettingsFileIO;
class SystemInfo;

// The main window's own handlers: the load sequence, the memory check, the ways out, and the
// chart menu commands that only flip check marks or call the chart engine.
class MainController : public QObject {
    Q_OBJECT
public:
    MainController(AppState& state, MainWindowModel& main, SerialPort& port,
        GraphingFunctions& chart, SettingsFileIO& settings, ReceiveHandler& receiver,
        Prompter& prompter, SystemInfo& systemInfo, QObject* parent = nullptr);

    // The main window's load sequence, run before it is first shown.
    void Form_Load();
    // Its last step: the windows loaded and at once unloaded so that their load-time defaults
    // apply once (the graph settings panel, then the temperature bar window), without showing.
    void setLoadOnce(std::function<void()> loadOnce) { loadOnce_ = std::move(loadOnce); }
    void CheckMemory();
    // Every way out: the port is closed first, then the settings are saved.
    void Shutdown();
    // Saves the settings; a failure is told, with the system's reason.
    void SaveSettings();

    void mnuRealTimeGraphOn_Click();
    void mnuAutoCompressed_Click();
    void mnuAutoScaleYAxis_Click();
    void mnuRefreshChart_Click();
    void mnuCopyChart_Click();
    void mnuIniChart_Click();
    void mnuClearChart_Click();
    void mnuCreateSettingsFile_Click();

signals:
    // The program should end now.
    void quitRequested();

private:
    AppState& state_;
    MainWindowModel& main_;
    SerialPort& port_;
    GraphingFunctions& chart_;
    SettingsFileIO& settings_;
    ReceiveHandler& receiver_;
    Prompter& prompter_;
    SystemInfo& systemInfo_;
    bool shutDown_ = false;
    std::function<void()> loadOnce_;
};
