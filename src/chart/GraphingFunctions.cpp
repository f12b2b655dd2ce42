#include "GraphingFunctions.h"

#include "ChartPanel.h"
#include "base/AppState.h"
#include "base/MainWindowModel.h"
#include "base/Numbers.h"

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

    const double xmin = Numbers::RoundHalfEven(chart_.axisMin(Axis::X));
    const double xmax = Numbers::RoundHalfEven(chart_.axisMax(Axis::X));
    chart_.setX(HighLimitSeries, 1, xmin);
    chart_.setX(LowLimitSeries, 1, xmin);
    chart_.setX(HighLimitSeries, 2, xmax);
    chart_.setX(LowLimitSeries, 2, xmax);

    const double high = Numbers::Val(state_.SettingsValues[HighLimitEntry]);
    const double low = Numbers::Val(state_.SettingsValues[LowLimitEntry]);
    chart_.setY(HighLimitSeries, 1, high);
    chart_.setY(HighLimitSeries, 2, high);
    chart_.setY(LowLimitSeries, 1, low);
    chart_.setY(LowLimitSeries, 2, low);

    const bool shown = Numbers::Val(state_.SettingsValues[LimitLinesEntry]) == 1.0;
    chart_.setSeriesVisible(HighLimitSeries, shown);
    chart_.setSeriesVisible(LowLimitSeries, shown);
}

void GraphingFunctions::ResetChartSeries()
{
    {
        ChartBatch batch(chart_);
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
    const QString interval = mainWindow_.lblSystParameters(2).caption();
    if (interval.isEmpty() || interval == noInterval())
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

// Moves or widens the X window once the newest reading has reached its right edge. The test is
// made on the reading already plotted, so the axis moves just before the next one is appended.
void GraphingFunctions::keepXWindowAhead(int pointCount)
{
    const double last = Numbers::RoundHalfEven(chart_.x(ReadingSeries, pointCount - 1));
    const double xmax = Numbers::RoundHalfEven(chart_.axisMax(Axis::X));
    if (last >= xmax) {
        if (mainWindow_.mnuAutoCompressed.checked())
            CompressXRange();
        if (mainWindow_.mnuRealTimeGraphOn.checked())
            ScrollXForward();
    }
    applyWindowRule();
    updatePanel();
}

// The live view never spans 300 sample intervals or more: the maximum stays and the minimum
// moves up. An overflow of the window arithmetic leaves the range as it is.
void GraphingFunctions::applyWindowRule()
{
    const double xMin = chart_.axisMin(Axis::X);
    const double xMax = chart_.axisMax(Axis::X);
    if (!IsXRangeOverWindow(xMin, xMax))
        return;
    const auto windowMin = CalcXMinForWindow(xMin, xMax);
    if (!windowMin) {
        reportOverflow(QStringLiteral("THE 300-INTERVAL WINDOW WAS NOT APPLIED: "
                                      "THE POINT SPACING IS TOO LARGE."));
        return;
    }
    ChartBatch batch(chart_);
    chart_.setAxisMin(Axis::X, *windowMin);
    chart_.setAxisMax(Axis::X, xMax);
    chart_.setAxisLabelFormat(Axis::X, labelFormat());
    chart_.setAxisLabelFormat(Axis::Y, labelFormat());
}

bool GraphingFunctions::appendReading(qint16 reading)
{
    const int k = chart_.pointCount(ReadingSeries);
    if (k == std::numeric_limits<int>::max()) {
        reportOverflow(QStringLiteral("THE CHART IS FULL: THE READING WAS NOT PLOTTED."));
        return false;
    }
    state_.TimeInterval = toTimeUnit(state_.TimeInterval, state_.TimeUnitIndex);
    chart_.setX(ReadingSeries, k, state_.TimeInterval + chart_.x(ReadingSeries, k - 1));
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
    if (t > state_.RunningYMax) {
        state_.RunningYMax = t;
        ChartBatch batch(chart_);
        chart_.setAxisMax(Axis::Y, wholeBound(state_.RunningYMax * 1.1));
    }
    if (t < state_.RunningYMin) {
        state_.RunningYMax = t;
        ChartBatch batch(chart_);
        chart_.setAxisMin(Axis::Y, wholeBound(state_.RunningYMax * 0.9));
    }
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
    ChartBatch batch(chart_);
    chart_.setAxisMax(Axis::X, last);
    chart_.setAxisMin(Axis::X, 0.0);
    chart_.setAxisMax(Axis::Y, highest * 1.1);
    chart_.setAxisMin(Axis::Y, lowest * 0.9);
    CommonAxisUpdate();
}

void GraphingFunctions::CommonAxisUpdate()
{
    {
        ChartBatch batch(chart_);
        chart_.setAxisLabelFormat(Axis::X, labelFormat());
        chart_.setAxisLabelFormat(Axis::Y, labelFormat());
    }
    updatePanel();
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
