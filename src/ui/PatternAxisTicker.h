#pragma once

#include <QString>
#include <qcustomplot.h>

// Axis tick labels written with a digit picture such as "#.##": '0' a digit always shown, '#' a
// digit shown when significant. "#.##" gives 12, 12.5 and .25 (no zero before the point, as the
// picture asks). An empty picture leaves the plot's own number labels.
class PatternAxisTicker : public QCPAxisTicker {
public:
    void setPattern(const QString& pattern) { pattern_ = pattern; }
    const QString& pattern() const { return pattern_; }

protected:
    QString getTickLabel(
        double tick, const QLocale& locale, QChar formatChar, int precision) override;

private:
    QString pattern_;
};
