#pragma once

#include "ChartPanel.h"

#include <QObject>
#include <QString>
#include <functional>

struct AppState;
class Control;
class GraphingFunctions;
class GraphSettingsModel;
class MainWindowModel;
class Prompter;

// The graph settings panel's handlers: the axes set by hand, with every box checked before
// anything reaches the chart. A refused value shows its message, puts the focus back into its box
// and changes nothing on the chart or in the settings.
//
// While loaded the panel is the engine's ChartPanel, so every axis change the engine makes is
// shown in the boxes at once.
//
// Enabling on activation: while an acquisition runs (the main window's CLEAR CHART command is
// disabled then) the time-unit list, the range boxes, their up/down controls, Accept and CLEAR
// CHART are disabled; otherwise they are enabled, CLEAR CHART only when the chart holds readings.
// The scroll controls, the Y title and the check boxes stay usable throughout.
class GraphSettingsController : public QObject, public ChartPanel {
    Q_OBJECT
public:
    static constexpr int KeyEnter = 13;
    static QString messageTitle() { return QStringLiteral("GRAPH SETTINGS"); }

    GraphSettingsController(AppState& state, GraphingFunctions& engine, MainWindowModel& main,
        GraphSettingsModel& model, Prompter& prompter, std::function<void()> clearChart,
        QObject* parent = nullptr);

    void Form_Load();
    void Form_Activate();
    void Form_Unload();
    bool loaded() const { return loaded_; }

    // ChartPanel.
    void UpdatePanelWithCurrentChartSettings() override;
    void SetAutoRangeChecked(bool checked) override;
    void SetDisplayLimitsChecked(bool checked) override;

    // The acquisition's switch of the time-unit list, the four range boxes and Accept: one unit
    // applies to a whole run.
    void SetInputsEnabled(bool enabled);

    // Enter in a box validates and applies that box alone.
    void txtMinX_KeyPress(int keyAscii);
    void txtMaxX_KeyPress(int keyAscii);
    void txtMinY_KeyPress(int keyAscii);
    void txtMaxY_KeyPress(int keyAscii);
    void txtYTitle_KeyPress(int keyAscii);
    void comTimeUnits_Click(int index);
    void chkAutoRange_Click();
    void chkDispLimits_Click();
    void cmdAccept_Click();
    void cmdClose_Click();
    void cmdResetChartParameters_Click();

    // The up/down controls: one fifth of the bound per step.
    void XMinIncrement_UpClick();
    void XMinIncrement_DownClick();
    void XMaxIncrement_UpClick();
    void XMaxIncrement_DownClick();
    void YMinIncrement_UpClick();
    void YMinIncrement_DownClick();
    void YMaxIncrement_UpClick();
    void YMaxIncrement_DownClick();
    void XDomainScroll_UpClick();
    void XDomainScroll_DownClick();
    void YDomainScroll_UpClick();
    void YDomainScroll_DownClick();

    // The step rule, rounded to one decimal. A value never crosses zero.
    static void IncrementValue(float& value);
    static void DecrementValue(float& value);
    static void IncrementValueYAxis(float& value);
    static void DecrementValueYAxis(float& value);

signals:
    // The panel should close now; Form_Unload has already run.
    void closeRequested();

private:
    bool fail(const QString& text, Control& focus);
    // The X range put on the chart, cut to the 300-interval window, with the limit lines
    // following; when the window arithmetic overflows it is put on as it stands.
    void applyX(double xMin, double xMax, bool minChanged);
    void applyY(double yMin, double yMax);
    void stepX(bool minimum, bool up);
    void stepY(bool minimum, bool up);

    AppState& state_;
    GraphingFunctions& engine_;
    MainWindowModel& main_;
    GraphSettingsModel& model_;
    Prompter& prompter_;
    std::function<void()> clearChart_;
    bool loaded_ = false;
};
