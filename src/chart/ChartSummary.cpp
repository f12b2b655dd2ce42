#include "ChartSummary.h"

#include "base/Numbers.h"

#include <QStringList>

ChartSummary ChartSummary::of(const ChartSurface& chart, int series)
{
    ChartSummary s;
    if (series < 1 || series > chart.seriesCount())
        return s;
    const double empty = chart.emptyPointValue();
    double sum = 0.0;
    const int points = chart.pointCount(series);
    for (int k = 1; k <= points; ++k) {
        const double x = chart.x(series, k);
        const double y = chart.y(series, k);
        if (x == empty || y == empty)
            continue;
        if (s.count == 0) {
            s.firstX = x;
            s.minY = s.maxY = y;
            s.minX = s.maxX = x;
        }
        if (y < s.minY) {
            s.minY = y;
            s.minX = x;
        }
        if (y > s.maxY) {
            s.maxY = y;
            s.maxX = x;
        }
        s.lastX = x;
        sum += y;
        ++s.count;
    }
    if (s.count > 0)
        s.meanY = sum / s.count;
    return s;
}

QString ChartSummary::text(const QString& unit) const
{
    if (count == 0)
        return QStringLiteral("NO READINGS ON THE CHART.");
    const QString picture = QStringLiteral("0.###");
    auto at = [&](double x) {
        const QString number = Numbers::Format(x, picture);
        return unit.isEmpty() ? number : number + QLatin1Char(' ') + unit;
    };
    const QString crlf = QStringLiteral("\r\n");
    QStringList lines;
    lines << QStringLiteral("READINGS ON THE CHART: %1").arg(count)
          << QStringLiteral("FIRST READING AT: %1").arg(at(firstX))
          << QStringLiteral("LAST READING AT: %1").arg(at(lastX))
          << QStringLiteral("LOWEST: %1 AT %2").arg(Numbers::Format(minY, picture), at(minX))
          << QStringLiteral("HIGHEST: %1 AT %2").arg(Numbers::Format(maxY, picture), at(maxX))
          << QStringLiteral("AVERAGE: %1").arg(Numbers::Format(meanY, QStringLiteral("0.0")));
    return lines.join(crlf);
}
