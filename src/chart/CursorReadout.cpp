#include "CursorReadout.h"

#include "ChartSurface.h"
#include "GraphingFunctions.h"
#include "base/Numbers.h"

#include <algorithm>

CursorPoint CursorPointAt(const ChartSurface& chart, double x)
{
    using Axis = ChartSurface::Axis;
    using Kind = CursorPoint::Kind;
    constexpr int series = GraphingFunctions::ReadingSeries;
    const double low = std::min(chart.axisMin(Axis::X), chart.axisMax(Axis::X));
    const double high = std::max(chart.axisMin(Axis::X), chart.axisMax(Axis::X));
    if (!(x >= low && x <= high))
        return { Kind::OffChart, 0.0 };
    // The last point is the series' empty slot.
    const int readings = chart.pointCount(series) - 1;
    if (readings < 1)
        return { Kind::NoData, 0.0 };

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
    if (first <= readings && chart.x(series, first) == x)
        return { Kind::Data, chart.y(series, first) };
    if (first > 1 && first <= readings) {
        const double x0 = chart.x(series, first - 1);
        const double x1 = chart.x(series, first);
        const double y0 = chart.y(series, first - 1);
        const double y1 = chart.y(series, first);
        return { Kind::Data, (x - x0) * (y1 - y0) / (x1 - x0) + y0 };
    }
    return { Kind::NoData, 0.0 };
}

CursorText CursorReadout(const ChartSurface& chart, double x)
{
    const CursorPoint point = CursorPointAt(chart, x);
    switch (point.kind) {
    case CursorPoint::Kind::Data:
        return { Numbers::Format(point.y, QStringLiteral("0.00")), true };
    case CursorPoint::Kind::OffChart:
        return { QStringLiteral("OFF CHART"), false };
    case CursorPoint::Kind::NoData:
        break;
    }
    return { QStringLiteral("NO DATA"), false };
}
