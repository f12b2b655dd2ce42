#pragma once

#include <QString>

class ChartSurface;

// The temperature under the chart's cursor at x, for the CURSOR DATA window: the reading series
// interpolated linearly between its two neighbouring readings, with "0.00". hasData is set to 1
// when the cursor stands over data, else 0. x outside the X axis range gives "OFF CHART"; no
// readings, or x before the first or after the newest reading, gives "NO DATA".
//
// The neighbours are found by a binary search over the readings' X values, which grow with time.
QString CursorReadout(const ChartSurface& chart, double& x, qint16& hasData);
