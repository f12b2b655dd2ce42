#pragma once

#include <QObject>
#include <QString>
#include <utility>

struct AppState;
class ControlTesterModel;
class DemoWindows;
class IRSystem;
class TempBar;
class TempBarWindowController;

// The control tester: puts readings of the operator's choosing on the temperature bar, flips
// the bar's switches and steps the link status display through its states, so every colour,
// caption and animation can be seen without an instrument. It never reaches the serial port,
// the acquisition mode, the chart or a file. What it changed on the bar (switches, units,
// reading) and the link status display are put back when it closes.
class ControlTesterController : public QObject {
    Q_OBJECT
public:
    ControlTesterController(AppState& state, ControlTesterModel& model, TempBar& bar,
        IRSystem& system, TempBarWindowController& barWindow, QObject* parent = nullptr);

    void setWindows(DemoWindows* windows) { windows_ = windows; }

    // The slider's range for a bar scale: the scale and a margin either side (an eighth of
    // the span, at least one degree), so the under and over limit captions can be reached.
    // A reversed scale is taken from its lower end; the range stays within 16 bits.
    static std::pair<int, int> SliderRange(int minTemp, int maxTemp);
    static QString StateName(int state);

    // The window loads: remembers the bar's switches and units, and shows them.
    void Form_Load();
    // The window unloads: the bar's switches and units as they were, the reading cleared, the
    // link status display idle.
    void Form_Unload();
    bool loaded() const { return loaded_; }

    void sldReading_Change(int value);
    void chkAlarmLimits_Click();
    void chkAutoRange_Click();
    void chkDegC_Click();
    void cmdClearTemp_Click();
    void cmdScanForIrSystem_Click();
    void cmdSenseTemperature_Click();
    void cmdDownloadIRData_Click();
    void cmdSetToIdle_Click();
    void cmdResetOldState_Click();
    void cmdClose_Click();

signals:
    void closeRequested();

private:
    // The bar and the link status window are shown before either is driven.
    void ensureBarShown();
    void ensureStatusShown();
    // Shows the bar's and the display's present state on the tester.
    void refresh();

    AppState& state_;
    ControlTesterModel& model_;
    TempBar& bar_;
    IRSystem& system_;
    TempBarWindowController& barWindow_;
    DemoWindows* windows_ = nullptr;
    bool loaded_ = false;
    bool savedAlarms_ = true;
    bool savedAutoRange_ = false;
    qint16 savedUnits_ = 1;
};
