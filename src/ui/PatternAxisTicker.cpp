#include "PatternAxisTicker.h"

#include "base/Numbers.h"

QString PatternAxisTicker::getTickLabel(
    double tick, const QLocale& locale, QChar formatChar, int precision)
{
    if (pattern_.isEmpty())
        return QCPAxisTicker::getTickLabel(tick, locale, formatChar, precision);
    return Numbers::Format(tick, pattern_);
}
