#pragma once

#include "ChartSurface.h"

#include <QString>

struct AppState;
class ChartPanel;
class MainWindowModel;

// The chart engine: builds the three series of the chart, appends each real-time reading and
// keeps the axes fitted to the data. Series 1 holds the readings and always ends in one empty
// slot (a point count of 1 means no readings); series 2 and 3 are the alarm-limit lines.
//
// Every axis change is made inside a ChartBatch, so the chart redraws once per change group.
// A reading costs a constant number of chart operations: the series is never walked.
class GraphingFunctions {
public:
    static constexpr int ReadingSeries = 1;
    static constexpr int HighLimitSeries = 2;
    static constexpr int LowLimitSeries = 3;
    static constexpr double EmptyPoint = 999999999.0;
    // Settings entries the engine reads.
    static constexpr int HighLimitEntry = 13;
    static constexpr int LowLimitEntry = 14;
    static constexpr int LimitLinesEntry = 21;

    static QString labelFormat() { return QStringLiteral("#.##"); }
    // What the instrument reports when it has no known sampling interval.
    static QString noInterval() { return QStringLiteral("NO-INT"); }

    GraphingFunctions(ChartSurface& chart, AppState& state, MainWindowModel& mainWindow);
    GraphingFunctions(const GraphingFunctions&) = delete;
    GraphingFunctions& operator=(const GraphingFunctions&) = delete;

    // The graph settings panel, told of axis changes while GraphSettingsOpen; may be null.
    void setPanel(ChartPanel* panel) { panel_ = panel; }
    ChartSurface& chart() { return chart_; }

    // Three series, the limit lines across the current X range at the alarm limits, shown when
    // settings entry 21 is 1, and the axis label format.
    void InitializeChart();
    // Empties the reading series (one empty slot), hides RESET CHART, zeroes the running Y values.
    void ResetChartSeries();
    // True unless the reading series holds exactly its empty slot.
    bool ChartHasPoints() const;
    // Plots one reading at the previous X plus TimeInterval, which is converted to the current
    // time unit in place. Dropped when the interval label is empty or reads "NO-INT".
    // Throws std::overflow_error when the point count cannot grow any further.
    void AddReadingToChart(qint16& reading);
    // Doubles the X axis maximum; the minimum stays.
    void CompressXRange();
    // Moves the X window on by one whole width.
    void ScrollXForward();

private:
    void keepXWindowAhead(int pointCount);
    void appendReading(qint16 reading);
    void autoScaleY(qint16 reading);
    void updatePanel();

    ChartSurface& chart_;
    AppState& state_;
    MainWindowModel& mainWindow_;
    ChartPanel* panel_ = nullptr;
};
