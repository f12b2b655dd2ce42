#pragma once

#include "PlotFile.h"

#include <QString>
#include <array>
#include <functional>

struct AppState;
class GraphingFunctions;
class MainWindowModel;
class Prompter;

// The chart's own commands on the main window: SHOW ALL POINTS, DISPLAY LIMIT MARKERS, RESET
// CHART, the mouse zoom and drag of the chart, and the plot files (save, load, and the offer to
// save when an acquisition stops).
//
// A zoom, a drag or SHOW ALL POINTS holds the view on show (GraphingFunctions::HoldView): during
// a real-time run the readings go on in the live range while the view stays. RESET CHART shows
// the live range again, which is the view that stood before the first of them when no readings
// arrived meanwhile.
class ChartCommands {
public:
    ChartCommands(
        GraphingFunctions& engine, AppState& state, MainWindowModel& main, Prompter& prompter);

    // Called with true before and false after a command that may take a while (the hourglass).
    void setBusyIndicator(std::function<void(bool)> busy) { busy_ = std::move(busy); }

    void mnuShowAllPts_Click();
    void mnuDispLimits_Click();
    void cmdResetChart_Click();
    void mnuSavePlotToFile_Click();
    void mnuLoadPlotFile_Click();
    // When an acquisition stops with an unsaved plot on the chart.
    void OfferToSavePlot();

    // The axis snapshot taken when a mouse interaction with the chart starts.
    void SaveAxisLimits();
    bool AxisLimitsChanged() const;
    // A gesture holds the view from its start; one that changed nothing lets a view it took go.
    void TempChart_InteractionStart();
    // The plot moved its axes during the gesture: the limit lines follow at once.
    void TempChart_InteractionMove();
    void TempChart_InteractionEnd();

    // The plot-reset routine: the live view back on the axes.
    void ResetPlotView();
    // The chart as a plot, and a plot put on the chart.
    PlotData TakePlot() const;
    void RestorePlot(const PlotData& plot);
    // Writes the chart to path and sets PlotSaved; tells the operator when it cannot.
    bool SavePlot(const QString& path);
    // Puts the plot file on the chart; a file that is not a whole plot is reported and the chart
    // stays as it was.
    bool LoadPlot(const QString& path);

private:
    using Limits = std::array<double, 4>; // X min, X max, Y min, Y max
    Limits currentLimits() const;
    void saveWithDialog();
    void busy(bool on)
    {
        if (busy_)
            busy_(on);
    }

    GraphingFunctions& engine_;
    AppState& state_;
    MainWindowModel& main_;
    Prompter& prompter_;
    std::function<void(bool)> busy_;
    Limits snapshot_ {};
    bool heldBefore_ = false;
};
