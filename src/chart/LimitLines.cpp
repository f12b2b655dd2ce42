// The alarm limits as two horizontal lines: series 2 the high limit, series 3 the low one.
#include "GraphingFunctions.h"

#include "base/AppState.h"
#include "base/Numbers.h"

#include <limits>
#include <optional>

namespace {
using Axis = ChartSurface::Axis;

// An X bound as a 32-bit whole number, half to even; empty when it does not fit.
std::optional<qint32> toInt32(double value)
{
    const double r = Numbers::RoundHalfEven(value);
    if (!(r >= std::numeric_limits<qint32>::min() && r <= std::numeric_limits<qint32>::max()))
        return std::nullopt;
    return qint32(r);
}
} // namespace

// Stretches both lines 20 % of each bound beyond the X axis: the margin follows the bound's
// own size, so a minimum of 0 starts the lines at 0.
void GraphingFunctions::UpdateLimitLines()
{
    const auto hi = toInt32(chart_.axisMax(Axis::X));
    const auto lo = toInt32(chart_.axisMin(Axis::X));
    if (!hi || !lo) {
        reportOverflow(
            QStringLiteral("THE LIMIT LINES WERE NOT MOVED: THE TIME AXIS IS TOO LONG."));
        return;
    }
    const double start = *lo - *lo * LineMargin;
    const double end = *hi + *hi * LineMargin;
    const double high = state_.SettingsValues.highAlarmLimit.value();
    const double low = state_.SettingsValues.lowAlarmLimit.value();

    ChartBatch batch(chart_);
    chart_.setPointCount(HighLimitSeries, 2);
    chart_.setPointCount(LowLimitSeries, 2);
    chart_.setX(HighLimitSeries, 1, start);
    chart_.setX(HighLimitSeries, 2, end);
    chart_.setY(HighLimitSeries, 1, high);
    chart_.setY(HighLimitSeries, 2, high);
    chart_.setX(LowLimitSeries, 1, start);
    chart_.setX(LowLimitSeries, 2, end);
    chart_.setY(LowLimitSeries, 1, low);
    chart_.setY(LowLimitSeries, 2, low);
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
