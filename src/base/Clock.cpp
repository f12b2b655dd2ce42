#include "Clock.h"

#include "Numbers.h"

qint32 Clock::secondsSinceMidnight() const
{
    const QTime time = now().time();
    return static_cast<qint32>(Numbers::RoundHalfEven(time.msecsSinceStartOfDay() / 1000.0));
}

qint64 Clock::monotonicSeconds() const
{
    return static_cast<qint64>(Numbers::RoundHalfEven(monotonicMs() / 1000.0));
}

QString Clock::dateText() const { return now().date().toString(QStringLiteral("MM/dd/yy")); }

QString Clock::timeText() const
{
    const QTime time = now().time();
    const int hour12 = time.hour() % 12 == 0 ? 12 : time.hour() % 12;
    return QStringLiteral("%1:%2:%3 %4")
        .arg(hour12)
        .arg(time.minute(), 2, 10, QLatin1Char('0'))
        .arg(time.second(), 2, 10, QLatin1Char('0'))
        .arg(time.hour() < 12 ? QStringLiteral("AM") : QStringLiteral("PM"));
}

qint32 SystemClock::secondsSinceMidnight() const
{
    const qint64 elapsed = monotonic_.elapsed();
    if (baseMonotonicMs_ < 0 || elapsed - baseMonotonicMs_ >= 1000) {
        baseMonotonicMs_ = elapsed;
        baseTimeOfDayMs_ = QTime::currentTime().msecsSinceStartOfDay();
    }
    return static_cast<qint32>((baseTimeOfDayMs_ + (elapsed - baseMonotonicMs_) + 500) / 1000);
}
