// Moving the visible window by whole window widths. Each operation reads one axis's limits as
// 32-bit floats, as the scroll controls always have, and writes the new ones in one batch.
#include "GraphingFunctions.h"

#include "base/AppState.h"
#include "base/MainWindowModel.h"
#include "base/Numbers.h"

namespace {
using Axis = ChartSurface::Axis;

struct Window {
    float max;
    float min;
    float width;
};

Window readWindow(const ChartSurface& chart, Axis axis)
{
    const float max = float(chart.axisMax(axis));
    const float min = float(chart.axisMin(axis));
    return { max, min, max - min };
}
} // namespace

void GraphingFunctions::CompressXRange()
{
    ChartBatch batch(chart_);
    const double max = chart_.axisMax(Axis::X);
    chart_.setAxisMax(Axis::X, max + max);
    UpdateLimitLines();
}

void GraphingFunctions::ScrollXForward()
{
    double min = chart_.axisMin(Axis::X);
    double max = chart_.axisMax(Axis::X);
    pageForward(min, max);
    ChartBatch batch(chart_);
    chart_.setAxisMin(Axis::X, min);
    chart_.setAxisMax(Axis::X, max);
    UpdateLimitLines();
}

// Pages on by one width; while sensing with a time unit other than seconds the window is
// re-anchored on the newest reading instead, which keeps a slow record in view when a page
// would jump far past it. With no reading yet there is nothing to anchor on, and it pages.
void GraphingFunctions::pageForward(double& min, double& max) const
{
    const float fmax = float(max);
    const float width = fmax - float(min);
    const bool sensing = mainWindow_.mnuSenseTemperature.checked();
    const int n = chart_.pointCount(ReadingSeries);
    if (sensing && n > 1 && state_.SettingsValues.timeUnit.value() != 0.0) {
        const float newest = float(chart_.x(ReadingSeries, n - 1));
        min = newest;
        max = width + newest;
        return;
    }
    min = fmax;
    max = fmax + width;
}

// Time never goes below zero: a step that would leaves the maximum and starts the window at 0.
void GraphingFunctions::ScrollXBack()
{
    const Window w = readWindow(chart_, Axis::X);
    const float t = w.min - w.width;
    ChartBatch batch(chart_);
    if (t < 0) {
        chart_.setAxisMin(Axis::X, 0.0);
    } else {
        chart_.setAxisMax(Axis::X, w.min);
        chart_.setAxisMin(Axis::X, t);
    }
    UpdateLimitLines();
}

void GraphingFunctions::ScrollYUp()
{
    const Window w = readWindow(chart_, Axis::Y);
    ChartBatch batch(chart_);
    chart_.setAxisMin(Axis::Y, w.max);
    chart_.setAxisMax(Axis::Y, w.max + w.width);
}

// Temperatures may go below zero, so Y has no floor.
void GraphingFunctions::ScrollYDown()
{
    const Window w = readWindow(chart_, Axis::Y);
    ChartBatch batch(chart_);
    chart_.setAxisMin(Axis::Y, w.min - w.width);
    chart_.setAxisMax(Axis::Y, w.min);
}
