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
// Arithmetic overflow (the 16-bit point spacing and window width) gives an empty result out of
// GetPointSpacing, CalcXMinForWindow and CalcXMaxForWindow, so their callers take the range as
// it stands. AddReadingToChart then leaves the range as it was (the reading is still plotted)
// and tells the operator through the overflow notice; the graph settings panel says the same
// through ReportWindowOverflow.
//
// The operator's own view (a zoom, a drag, SHOW ALL POINTS) is held: from HoldView until
// ReleaseView the engine keeps the live X and Y ranges apart from the ranges on show. Readings
// go on moving the live ranges (paging, compression, the window rule, Y scaling) while the view
// on show stays; RESET CHART releases it and shows the live ranges again.
//
// The limit lines span the X range on show: every change of it ends in UpdateLimitLines.
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
    // The X width a range without one is given.
    static constexpr double EmptyAxisWidth = 100.0;

    static QString labelFormat() { return QStringLiteral("#.##"); }

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
    // time unit, after moving the live X range on as the plotting mode says: the strip chart
    // pages and is cut back to the 300-interval window; compressed mode keeps the whole record,
    // X from 0 and the maximum doubled once the newest reading reaches it. Dropped when no
    // interval is known.
    void AddReadingToChart(qint16 reading);
    // X from 0 to the newest reading, Y from 90 % of the lowest to 110 % of the highest reading.
    // A single reading keeps the X width, from 0.
    void ShowAllPoints();
    // A real-time run starts the X range at 0 with the width it had (EmptyAxisWidth when none).
    void StartXRangeAtZero();

    // The view on show held apart from the live ranges (the first hold counts), and released:
    // the live ranges shown again. The main window's "VIEW HELD" notice is shown while a view
    // taken during a real-time run is held.
    void HoldView();
    void ReleaseView();
    bool ViewHeld() const { return held_.has_value(); }

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

    // The labels "#.##" on both axes, the limit lines across the X range and the panel told:
    // what follows every change of a range.
    void CommonAxisUpdate();
    // The window arithmetic overflowed and a range was taken as it stands: the operator is told.
    void ReportWindowOverflow();

private:
    struct Ranges {
        double xMin, xMax, yMin, yMax;
    };
    std::function<void()> seriesReplaced_;
    void keepXWindowAhead(int pointCount);
    void pageForward(double& min, double& max) const;
    void applyWindowRule(double& xMin, double xMax);
    Ranges shownRanges() const;
    // The live ranges: the axes, or the ranges kept apart while a view is held.
    Ranges liveRanges() const;
    void setLiveRanges(const Ranges& live);
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
    std::optional<Ranges> held_;

    // The order check of readings 1 .. checkedCount_ - 1.
    mutable int checkedCount_ = 0;
    mutable bool inOrder_ = true;
    mutable double lastChecked_ = 0.0;
};
