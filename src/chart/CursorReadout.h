#pragma once

#include <QString>

class ChartSurface;

// What lies under the chart's cursor at an X value: a reading (interpolated), nothing because X is
// outside the X axis range, or nothing because there is no reading there.
struct CursorPoint {
    enum class Kind { Data, OffChart, NoData };
    Kind kind = Kind::NoData;
    double y = 0.0;
};

// The reading series at x, interpolated linearly between its two neighbouring readings. x outside
// the X axis range is off the chart; no readings, or x before the first or after the newest
// reading, is no data.
//
// The neighbours are found by a binary search over the readings' X values, which grow with time.
CursorPoint CursorPointAt(const ChartSurface& chart, double x);

// The temperature under the chart's cursor at x, for the CURSOR DATA window: CursorPointAt's
// value with "0.00", "OFF CHART" or "NO DATA", and whether the cursor stands over data.
struct CursorText {
    QString text;
    bool hasData = false;
};
CursorText CursorReadout(const ChartSurface& chart, double x);
