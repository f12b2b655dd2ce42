// The alarm limits as two horizontal lines: series 2 the high limit, series 3 the low one.
#include "GraphingFunctions.h"

#include "base/AppState.h"
#include "base/Numbers.h"

#include <algorithm>
#include <utility>

namespace {
using Axis = ChartSurface::Axis;
} // namespace

// Stretches both lines 20 % of each whole bound beyond the X axis: the margin follows the
// bound's own size, so a minimum of 0 starts the lines at 0. Where that falls short of the range
// on show (a negative bound, or one rounded past itself) the lines reach its edge, so they always
// span what is shown. Lines already in place are left alone, which keeps readings added to a
// still view drawn in part.
void GraphingFunctions::UpdateLimitLines()
{
    const double xMin = chart_.axisMin(Axis::X);
    const double xMax = chart_.axisMax(Axis::X);
    const double lo = Numbers::RoundHalfEven(xMin);
    const double hi = Numbers::RoundHalfEven(xMax);
    const double start = std::min(lo - lo * LineMargin, std::min(xMin, xMax));
    const double end = std::max(hi + hi * LineMargin, std::max(xMin, xMax));
    const double high = state_.SettingsValues.highAlarmLimit.value();
    const double low = state_.SettingsValues.lowAlarmLimit.value();

    auto inPlace = [&](int series, double y) {
        return chart_.pointCount(series) == 2 && chart_.x(series, 1) == start
            && chart_.x(series, 2) == end && chart_.y(series, 1) == y && chart_.y(series, 2) == y;
    };
    if (inPlace(HighLimitSeries, high) && inPlace(LowLimitSeries, low))
        return;
    ChartBatch batch(chart_);
    for (const auto& [series, y] :
        { std::pair(HighLimitSeries, high), std::pair(LowLimitSeries, low) }) {
        chart_.setPointCount(series, 2);
        chart_.setX(series, 1, start);
        chart_.setX(series, 2, end);
        chart_.setY(series, 1, y);
        chart_.setY(series, 2, y);
    }
}

void GraphingFunctions::ShowLimitMarkers()
{
    ChartBatch batch(chart_);
    chart_.setSeriesVisible(HighLimitSeries, true);
    chart_.setSeriesVisible(LowLimitSeries, true);
}

void GraphingFunctions::HideLimitMarkers()
{
    ChartBatch batch(chart_);
    chart_.setSeriesVisible(HighLimitSeries, false);
    chart_.setSeriesVisible(LowLimitSeries, false);
}
