#include "GraphingFunctions.h"

#include "ChartPanel.h"
#include "base/AppState.h"
#include "base/MainWindowModel.h"
#include "base/Numbers.h"

#include <cmath>
#include <limits>

namespace {
using Axis = ChartSurface::Axis;

// Divides an interval in seconds down to the X axis unit: seconds, minutes, hours, days.
float toTimeUnit(float seconds, qint16 unitIndex)
{
    switch (unitIndex) {
    case 0:
        return seconds / 1;
    case 1:
        return seconds / 60;
    case 2:
        return seconds / 3600;
    case 3:
        return seconds / 86400;
    default:
        return seconds;
    }
}

// A margin bound: rendered as a whole number and read back, as the axis text box would show it.
double wholeBound(double value)
{
    return Numbers::Val(Numbers::Format(value, QStringLiteral("0")));
}
} // namespace

GraphingFunctions::GraphingFunctions(
    ChartSurface& chart, AppState& state, MainWindowModel& mainWindow)
    : chart_(chart)
    , state_(state)
    , mainWindow_(mainWindow)
{
}

void GraphingFunctions::InitializeChart()
{
    ChartBatch batch(chart_);
    chart_.setSeriesCount(3);
    chart_.setPointCount(HighLimitSeries, 2);
    chart_.setPointCount(LowLimitSeries, 2);
    chart_.setAxisLabelFormat(Axis::X, labelFormat());
    chart_.setAxisLabelFormat(Axis::Y, labelFormat());

    // The lines span the X range on show from the start.
    UpdateLimitLines();

    const bool shown = state_.SettingsValues.limitLinesShown.valueIsOne();
    chart_.setSeriesVisible(HighLimitSeries, shown);
    chart_.setSeriesVisible(LowLimitSeries, shown);
}

void GraphingFunctions::ResetChartSeries()
{
    {
        ChartBatch batch(chart_);
        // No view of readings that are gone is held.
        ReleaseView();
        chart_.setEmptyPointValue(EmptyPoint);
        chart_.setPointCount(ReadingSeries, 1);
        chart_.setX(ReadingSeries, 1, EmptyPoint);
    }
    SeriesReplaced();
    mainWindow_.cmdResetChart.setVisible(false);
    state_.RunningYMax = 0.0;
    state_.RunningYMin = 0.0;
}

bool GraphingFunctions::ChartHasPoints() const { return chart_.pointCount(ReadingSeries) != 1; }

void GraphingFunctions::AddReadingToChart(qint16 reading)
{
    if (!state_.Instrument.interval.isGiven())
        return;

    // One redraw for the whole reading, however many groups of changes it makes.
    ChartBatch batch(chart_);
    const int n = chart_.pointCount(ReadingSeries);
    if (n == 1) {
        chart_.setX(ReadingSeries, 1, 0.0);
        chart_.setY(ReadingSeries, 1, reading);
        chart_.setPointCount(ReadingSeries, n + 1);
    } else if (n > 1) {
        keepXWindowAhead(n);
        if (!appendReading(reading))
            return;
    } else {
        // A series without its empty slot was never set up by ResetChartSeries: nothing to
        // append to.
        return;
    }
    if (mainWindow_.mnuAutoScaleYAxis.checked())
        autoScaleY(reading);
}

// Moves the live X range on once the newest reading has reached its right edge. The test is
// made on the reading already plotted, so the range moves just before the next one is appended.
// Compressed mode keeps the whole record in view: X from 0, whatever the range was before (a
// strip chart that paged), and the maximum doubled until the newest reading lies before it, never
// cut to the 300-interval window.
void GraphingFunctions::keepXWindowAhead(int pointCount)
{
    Ranges live = liveRanges();
    const double last = Numbers::RoundHalfEven(chart_.x(ReadingSeries, pointCount - 1));
    if (mainWindow_.mnuAutoCompressed.checked()) {
        live.xMin = 0.0;
        if (!(live.xMax > 0.0))
            live.xMax = EmptyAxisWidth;
        while (last >= Numbers::RoundHalfEven(live.xMax) && std::isfinite(live.xMax))
            live.xMax += live.xMax;
    } else {
        if (mainWindow_.mnuRealTimeGraphOn.checked() && last >= Numbers::RoundHalfEven(live.xMax))
            pageForward(live.xMin, live.xMax);
        applyWindowRule(live.xMin, live.xMax);
    }
    setLiveRanges(live);
    updatePanel();
}

// The live view never spans 300 sample intervals or more: the maximum stays and the minimum
// moves up. An overflow of the window arithmetic leaves the range as it is.
void GraphingFunctions::applyWindowRule(double& xMin, double xMax)
{
    if (!IsXRangeOverWindow(xMin, xMax))
        return;
    if (const auto windowMin = CalcXMinForWindow(xMin, xMax))
        xMin = *windowMin;
    else
        ReportWindowOverflow();
}

GraphingFunctions::Ranges GraphingFunctions::shownRanges() const
{
    return { chart_.axisMin(Axis::X), chart_.axisMax(Axis::X), chart_.axisMin(Axis::Y),
        chart_.axisMax(Axis::Y) };
}

GraphingFunctions::Ranges GraphingFunctions::liveRanges() const
{
    return held_ ? *held_ : shownRanges();
}

// The live ranges go on the axes, or aside while a view is held. The limit lines follow a new X
// range on show.
void GraphingFunctions::setLiveRanges(const Ranges& live)
{
    if (held_) {
        *held_ = live;
        return;
    }
    const Ranges shown = shownRanges();
    ChartBatch batch(chart_);
    if (live.yMin != shown.yMin)
        chart_.setAxisMin(Axis::Y, live.yMin);
    if (live.yMax != shown.yMax)
        chart_.setAxisMax(Axis::Y, live.yMax);
    if (live.xMin == shown.xMin && live.xMax == shown.xMax)
        return;
    chart_.setAxisMin(Axis::X, live.xMin);
    chart_.setAxisMax(Axis::X, live.xMax);
    chart_.setAxisLabelFormat(Axis::X, labelFormat());
    chart_.setAxisLabelFormat(Axis::Y, labelFormat());
    UpdateLimitLines();
}

void GraphingFunctions::HoldView()
{
    if (held_)
        return;
    held_ = shownRanges();
    if (mainWindow_.mnuSenseTemperature.checked())
        mainWindow_.lblViewHeld.setVisible(true);
}

void GraphingFunctions::ReleaseView()
{
    if (!held_)
        return;
    const Ranges live = *held_;
    held_.reset();
    mainWindow_.lblViewHeld.setVisible(false);
    const Ranges shown = shownRanges();
    if (live.xMin == shown.xMin && live.xMax == shown.xMax && live.yMin == shown.yMin
        && live.yMax == shown.yMax)
        return;
    ChartBatch batch(chart_);
    chart_.setAxisMin(Axis::X, live.xMin);
    chart_.setAxisMax(Axis::X, live.xMax);
    chart_.setAxisMin(Axis::Y, live.yMin);
    chart_.setAxisMax(Axis::Y, live.yMax);
    CommonAxisUpdate();
}

bool GraphingFunctions::appendReading(qint16 reading)
{
    const int k = chart_.pointCount(ReadingSeries);
    if (k == std::numeric_limits<int>::max()) {
        reportOverflow(QStringLiteral("THE CHART IS FULL: THE READING WAS NOT PLOTTED."));
        return false;
    }
    const float step = toTimeUnit(state_.TimeInterval, state_.TimeUnitIndex);
    chart_.setX(ReadingSeries, k, step + chart_.x(ReadingSeries, k - 1));
    chart_.setY(ReadingSeries, k, reading);
    chart_.setPointCount(ReadingSeries, k + 1);
    return true;
}

// Grows the Y range with the readings: 10 % above a new maximum; a reading below the lower
// threshold (0 since the reset, never moved) pulls the minimum down to 90 % of it and also
// becomes the running maximum, so the next higher reading raises the top again from there.
void GraphingFunctions::autoScaleY(qint16 reading)
{
    const float t = reading;
    Ranges live = liveRanges();
    if (t > state_.RunningYMax) {
        state_.RunningYMax = t;
        live.yMax = wholeBound(state_.RunningYMax * 1.1);
    }
    if (t < state_.RunningYMin) {
        state_.RunningYMax = t;
        live.yMin = wholeBound(state_.RunningYMax * 0.9);
    }
    setLiveRanges(live);
    updatePanel();
}

void GraphingFunctions::ShowAllPoints()
{
    if (!ChartHasPoints())
        return;
    const int n = chart_.pointCount(ReadingSeries);
    const float last = float(chart_.x(ReadingSeries, n - 1));
    double highest = chart_.y(ReadingSeries, 1);
    double lowest = highest;
    for (int i = 2; i < n; ++i) {
        const double y = chart_.y(ReadingSeries, i);
        if (y > highest)
            highest = y;
        if (y < lowest)
            lowest = y;
    }
    double xMax = last;
    if (!(last > 0)) {
        // A single reading spans nothing: the width stays, from 0.
        const double width = chart_.axisMax(Axis::X) - chart_.axisMin(Axis::X);
        xMax = width > 0 ? width : EmptyAxisWidth;
    }
    ChartBatch batch(chart_);
    chart_.setAxisMax(Axis::X, xMax);
    chart_.setAxisMin(Axis::X, 0.0);
    chart_.setAxisMax(Axis::Y, highest * 1.1);
    chart_.setAxisMin(Axis::Y, lowest * 0.9);
    CommonAxisUpdate();
}

void GraphingFunctions::StartXRangeAtZero()
{
    const double width = chart_.axisMax(Axis::X) - chart_.axisMin(Axis::X);
    ChartBatch batch(chart_);
    chart_.setAxisMin(Axis::X, 0.0);
    chart_.setAxisMax(Axis::X, width > 0 ? width : EmptyAxisWidth);
    CommonAxisUpdate();
}

void GraphingFunctions::CommonAxisUpdate()
{
    {
        ChartBatch batch(chart_);
        chart_.setAxisLabelFormat(Axis::X, labelFormat());
        chart_.setAxisLabelFormat(Axis::Y, labelFormat());
        UpdateLimitLines();
    }
    updatePanel();
}

void GraphingFunctions::ReportWindowOverflow()
{
    reportOverflow(QStringLiteral("THE 300-INTERVAL WINDOW WAS NOT APPLIED: "
                                  "THE POINT SPACING IS TOO LARGE."));
}

void GraphingFunctions::updatePanel()
{
    if (state_.GraphSettingsOpen && panel_)
        panel_->UpdatePanelWithCurrentChartSettings();
}

void GraphingFunctions::reportOverflow(const QString& what)
{
    ++overflowCount_;
    if (overflowNotice_)
        overflowNotice_(what);
}
