#pragma once

#include "CursorReadout.h"

#include <QPointF>
#include <QString>

// The two-point measurement of the chart's cursor: from a pinned reading to the point under the
// cursor, the temperature difference, the time difference in the X axis unit and the rate of
// change per minute, each as the CURSOR DATA window shows it ("0.00").
struct TwoPointTexts {
    QString deltaTime;
    QString deltaTemp;
    QString rate;
};

// Minutes in one unit of the X axis, by its title: "SECONDS", "MINUTES", "HOURS" or "DAYS". Any
// other title counts as seconds, as plotting does with an unknown unit.
double MinutesPerTimeUnit(const QString& xAxisTitle);

// From `pinned` (time, temperature) to `current`, the cursor's point at time `x`. Without data
// under the cursor the texts say why, as the read-out does; the same time at both points has no
// rate ("SAME TIME").
TwoPointTexts TwoPointMeasure(
    const QPointF& pinned, double x, const CursorPoint& current, double minutesPerUnit);

// The pinned point's caption: "FROM 10.00 AT 200.00".
QString PinnedPointText(const QPointF& pinned);
