#pragma once

#include "ChartSurface.h"

#include <QString>

// What the reading series of the chart holds: how many readings, where they start and end on
// the X axis, and their lowest, highest and mean values. Points with an empty X or Y (the
// trailing empty slot, or a reading emptied in the middle) are not readings.
struct ChartSummary {
    int count = 0;
    double firstX = 0.0;
    double lastX = 0.0;
    double minY = 0.0;
    double minX = 0.0;
    double maxY = 0.0;
    double maxX = 0.0;
    double meanY = 0.0;

    static ChartSummary of(const ChartSurface& chart, int series);

    // The summary as the operator reads it, one fact a line (CR LF between lines); `unit` is
    // the X axis title ("SECONDS", ...), left out when empty.
    QString text(const QString& unit) const;
};
