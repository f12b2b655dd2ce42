#pragma once

#include "link/IRSystem.h"

#include <QObject>
#include <QString>
#include <QTimer>

struct AppState;
class ChartSurface;
class DemoWindows;
class MainWindowModel;
class Prompter;
class TempBar;
class TempBarWindowController;

// The "&DEMO CONTROLS" menu: the test function (a simulated reading swept through the
// temperature bar's scale while the link status display runs through its states), the survey
// of the chart's readings (SEARCH FOR IR), the control tester and the splash. None of them
// opens the port, changes the acquisition mode, writes to the chart or touches a file; the
// test function and the control tester are closed to the operator while acquisition runs.
class DemoController : public QObject {
    Q_OBJECT
public:
    static constexpr int SweepIntervalMs = 100;
    // Steps of the sweep: up over the first half, down over the second (about 8 seconds).
    static constexpr int SweepSteps = 80;

    DemoController(AppState& state, MainWindowModel& main, ChartSurface& chart, TempBar& bar,
        IRSystem& system, TempBarWindowController& barWindow, Prompter& prompter,
        QObject* parent = nullptr);

    void setWindows(DemoWindows* windows) { windows_ = windows; }

    // The reading at `step` (0 to `steps`) of a sweep from `low` up to `high` and back.
    static int SweepReading(int step, int steps, int low, int high);
    // The link status display's state at `step`: scanning, then sensing, then receiving.
    static IRSystem::State SweepState(int step, int steps);

    void mnuTestFunction_Click();
    void mnuSearchForIR_Click();
    void mnuControlTester_Click();
    void mnuSplash_Click();

    void tmrSweep_Timer();
    QTimer& tmrSweep() { return tmrSweep_; }
    bool sweeping() const { return tmrSweep_.isActive(); }

    static QString refusedTitle() { return QStringLiteral("DEMO CONTROLS"); }
    static QString summaryTitle() { return QStringLiteral("READINGS ON THE CHART"); }

private:
    bool acquisitionRunning() const;
    // Tells the operator why a demo cannot run now; true when refused.
    bool refuseWhileAcquiring(const QString& what);
    // The test function and the control tester follow the acquisition mode.
    void followAcquisition();
    void startSweep();
    // Ends the sweep; `tidy` clears the bar and idles the display (not when acquisition took
    // them over).
    void stopSweep(bool tidy);
    void showSweepStep();

    AppState& state_;
    MainWindowModel& main_;
    ChartSurface& chart_;
    TempBar& bar_;
    IRSystem& system_;
    TempBarWindowController& barWindow_;
    Prompter& prompter_;
    DemoWindows* windows_ = nullptr;
    QTimer tmrSweep_;
    int step_ = 0;
    int low_ = 0;
    int high_ = 100;
    int shownState_ = -1;
};
