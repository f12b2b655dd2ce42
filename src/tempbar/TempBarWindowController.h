#pragma once

#include <QObject>

struct AppState;
class MainWindowModel;
class TempBar;
class TempBarDisplay;
class TempBarWindows;

// The bar window's handlers, and the main window's VIEW > TEMP BAR command that opens and
// closes it. `TempBarVisible` is true exactly while the window is shown; only then do readings
// reach the bar.
class TempBarWindowController : public QObject {
    Q_OBJECT
public:
    TempBarWindowController(
        AppState& state, MainWindowModel& main, TempBar& bar, QObject* parent = nullptr);

    void setWindows(TempBarWindows* windows) { windows_ = windows; }

    // VIEW > TEMP BAR: shows the window when it is not shown, else puts it away.
    void mnuViewTempBar_Click();
    // Prepares the bar for showing: the units of the last parameter block, the range, the
    // limits and the alarm switch from the settings, and an empty reading.
    void Form_Load();
    // The window was closed by its own title bar: the main window's record follows.
    void Form_Unload();
    void mnuConfigure_Click();

    // The settings entries 11 to 15: applied to the bar (15 only while the window is shown),
    // and gathered from it.
    void applySettings();
    void gatherSettings();

    // The bar while its window is shown, else null.
    TempBarDisplay* display();

private:
    AppState& state_;
    MainWindowModel& main_;
    TempBar& bar_;
    TempBarWindows* windows_ = nullptr;
};
