#include "CursorReadout.h"

#include "ChartSurface.h"
#include "GraphingFunctions.h"
#include "base/Numbers.h"

#include <algorithm>

QString CursorReadout(const ChartSurface& chart, double& x, qint16& hasData)
{
    using Axis = ChartSurface::Axis;
    constexpr int series = GraphingFunctions::ReadingSeries;
    hasData = 0;
    const double low = std::min(chart.axisMin(Axis::X), chart.axisMax(Axis::X));
    const double high = std::max(chart.axisMin(Axis::X), chart.axisMax(Axis::X));
    if (!(x >= low && x <= high))
        return QStringLiteral("OFF CHART");
    // The last point is the series' empty slot.
    const int readings = chart.pointCount(series) - 1;
    if (readings < 1)
        return QStringLiteral("NO DATA");

    // The first reading at or right of x.
    int first = 1;
    int count = readings;
    while (count > 0) {
        const int half = count / 2;
        if (chart.x(series, first + half) < x) {
            first += half + 1;
            count -= half + 1;
        } else {
            count = half;
        }
    }
    double y = 0.0;
    if (first <= readings && chart.x(series, first) == x) {
        y = chart.y(series, first);
    } else if (first > 1 && first <= readings) {
        const double x0 = chart.x(series, first - 1);
        const double x1 = chart.x(series, first);
        const double y0 = chart.y(series, first - 1);
        const double y1 = chart.y(series, first);
        y = (x - x0) * (y1 - y0) / (x1 - x0) + y0;
    } else {
        return QStringLiteral("NO DATA");
    }
    hasData = 1;
    return Numbers::Format(y, QStringLiteral("0.00"));
}
