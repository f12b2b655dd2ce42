#include "TwoPointMeasure.h"

#include "base/Numbers.h"

#include <cmath>

namespace {
QString twoPlaces(double value) { return Numbers::Format(value, QStringLiteral("0.00")); }
} // namespace

double MinutesPerTimeUnit(const QString& xAxisTitle)
{
    if (xAxisTitle == QLatin1String("MINUTES"))
        return 1.0;
    if (xAxisTitle == QLatin1String("HOURS"))
        return 60.0;
    if (xAxisTitle == QLatin1String("DAYS"))
        return 1440.0;
    return 1.0 / 60.0;
}

TwoPointTexts TwoPointMeasure(
    const QPointF& pinned, double x, const CursorPoint& current, double minutesPerUnit)
{
    const QString noData = QStringLiteral("NO DATA");
    switch (current.kind) {
    case CursorPoint::Kind::OffChart:
        return { noData, QStringLiteral("OFF CHART"), noData };
    case CursorPoint::Kind::NoData:
        return { noData, noData, noData };
    case CursorPoint::Kind::Data:
        break;
    }
    const double deltaTime = x - pinned.x();
    const double deltaTemp = current.y - pinned.y();
    const double minutes = deltaTime * minutesPerUnit;
    const double rate = minutes != 0.0 ? deltaTemp / minutes : 0.0;
    TwoPointTexts texts { twoPlaces(deltaTime), twoPlaces(deltaTemp), QStringLiteral("SAME TIME") };
    // A time step too small to divide by reads as the same time.
    if (minutes != 0.0 && std::isfinite(rate))
        texts.rate = twoPlaces(rate);
    return texts;
}

QString PinnedPointText(const QPointF& pinned)
{
    return QStringLiteral("FROM %1 AT %2").arg(twoPlaces(pinned.x()), twoPlaces(pinned.y()));
}
