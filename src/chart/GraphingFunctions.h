#pragma once

#include "ChartSurface.h"

#include <QString>
#include <functional>
#include <optional>
#include <utility>

struct AppState;
class ChartPanel;
class MainWindowModel;

// The chart engine: builds the three series of the chart, appends each real-time reading and
// keeps the axes fitted to the data. Series 1 holds the readings and always ends in one empty
// slot (a point count of 1 means no readings); series 2 and 3 are the alarm-limit lines.
//
// Every axis change is made inside a ChartBatch, so the chart redraws once per change group.
// A reading costs a constant number of chart operations plus a search of the newest X values:
// the series is never walked while readings arrive.
//
// Arithmetic overflow (the 16-bit point spacing and window width, a 32-bit X bound) gives an
// empty result out of GetPointSpacing, CalcXMinForWindow and CalcXMaxForWindow, so their
// callers abandon the one operation. AddReadingToChart and UpdateLimitLines then leave the
// chart as it was (the reading is still plotted) and tell the operator through the overflow
// notice.
//
// The source files follow the engine's seams: GraphingFunctions.cpp (series, readings, show
// all), ChartScrolling.cpp, AxisWindow.cpp (the 300-interval window rule) and LimitLines.cpp.
class GraphingFunctions {
public:
    static constexpr int ReadingSeries = 1;
    static constexpr int HighLimitSeries = 2;
    static constexpr int LowLimitSeries = 3;
    static constexpr double EmptyPoint = 999999999.0;
    // No X window spans this many sample intervals or more.
    static constexpr int MaxWindowPoints = 300;
    // The limit lines reach this share of each X bound beyond it.
    static constexpr double LineMargin = 0.2;
    // Settings entries the engine reads.
    static constexpr int HighLimitEntry = 13;
    static constexpr int LowLimitEntry = 14;
    static constexpr int TimeUnitEntry = 16;
    static constexpr int LimitLinesEntry = 21;

    static QString labelFormat() { return QStringLiteral("#.##"); }
    // What the instrument reports when it has no known sampling interval.
    static QString noInterval() { return QStringLiteral("NO-INT"); }

    using Notice = std::function<void(const QString&)>;

    GraphingFunctions(ChartSurface& chart, AppState& state, MainWindowModel& mainWindow);
    GraphingFunctions(const GraphingFunctions&) = delete;
    GraphingFunctions& operator=(const GraphingFunctions&) = delete;

    // The graph settings panel, told of axis changes while GraphSettingsOpen; may be null.
    void setPanel(ChartPanel* panel) { panel_ = panel; }
    ChartPanel* panel() const { return panel_; }
    ChartSurface& chart() { return chart_; }
    const ChartSurface& chart() const { return chart_; }
    // Told, in words, of an operation abandoned for an arithmetic overflow.
    void setOverflowNotice(Notice notice) { overflowNotice_ = std::move(notice); }
    // Told whenever the reading series is emptied or replaced as a whole (cleared, reset, a plot
    // loaded), so what refers to its readings (the cursor's pinned point) lets go of them.
    void setSeriesReplacedListener(std::function<void()> listener)
    {
        seriesReplaced_ = std::move(listener);
    }
    int overflowCount() const { return overflowCount_; }

    // Three series, the limit lines across the current X range at the alarm limits, shown when
    // settings entry 21 is 1, and the axis label format.
    void InitializeChart();
    // Empties the reading series (one empty slot), hides RESET CHART, zeroes the running Y values.
    void ResetChartSeries();
    // True unless the reading series holds exactly its empty slot.
    bool ChartHasPoints() const;
    // Plots one reading at the previous X plus TimeInterval, which is converted to the current
    // time unit in place, after moving the X window on as the plotting mode says and cutting it
    // back to the 300-interval window. Dropped when the interval label is empty or reads
    // "NO-INT".
    void AddReadingToChart(qint16 reading);
    // X from 0 to the newest reading, Y from 90 % of the lowest to 110 % of the highest reading.
    void ShowAllPoints();

    // Scrolling by whole window widths (ChartScrolling.cpp).
    void CompressXRange();
    void ScrollXForward();
    void ScrollXBack();
    void ScrollYUp();
    void ScrollYDown();

    // The window rule (AxisWindow.cpp).
    // The X step between readings 1 and 2 (0 with fewer than two readings); nothing when it
    // does not fit 16 bits.
    std::optional<qint16> GetPointSpacing() const;
    bool IsXRangeOverWindow(double xMin, double xMax) const;
    // The bound that makes the window end at xMax (start at xMin): the given one when the
    // readings have no spacing, nothing when the window arithmetic overflows.
    std::optional<double> CalcXMinForWindow(double xMin, double xMax) const;
    std::optional<double> CalcXMaxForWindow(double xMin, double xMax) const;
    // The reading series was rewritten other than by AddReadingToChart (a plot loaded, say).
    void SeriesReplaced();

    // The limit lines (LimitLines.cpp).
    void UpdateLimitLines();
    void ShowLimitMarkers();
    void HideLimitMarkers();

    // The labels "#.##" on both axes and the panel told: what follows every change of a range.
    void CommonAxisUpdate();

private:
    std::function<void()> seriesReplaced_;
    void keepXWindowAhead(int pointCount);
    void applyWindowRule();
    bool appendReading(qint16 reading);
    void autoScaleY(qint16 reading);
    void updatePanel();
    void reportOverflow(const QString& what);

    // Whether the rounded X values of readings 1 .. n - 1 never decrease, kept up to date in
    // amortised constant time as the series grows (AxisWindow.cpp).
    bool readingsInOrder(int n) const;
    int firstAbove(double limit, int from, int to) const;

    ChartSurface& chart_;
    AppState& state_;
    MainWindowModel& mainWindow_;
    ChartPanel* panel_ = nullptr;
    Notice overflowNotice_;
    int overflowCount_ = 0;

    // The order check of readings 1 .. checkedCount_ - 1.
    mutable int checkedCount_ = 0;
    mutable bool inOrder_ = true;
    mutable double lastChecked_ = 0.0;
};
