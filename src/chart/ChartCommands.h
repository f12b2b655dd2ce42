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
// RESET CHART brings back the view that stood before the first zoom, drag or SHOW ALL POINTS
// since the button was last hidden; later zooms keep that view.
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
    void TempChart_InteractionStart();
    void TempChart_InteractionEnd();

    // The plot-reset routine: the saved view back on the axes.
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
    void rememberViewOnce(const Limits& view);
    void saveWithDialog();
    void refreshPanel();
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
    Limits savedView_ {};
    bool haveSavedView_ = false;
};
