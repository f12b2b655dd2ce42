#pragma once

#include <QDateTime>
#include <QString>

// The time of day. The system clock in the program, a settable one in tests.
class Clock {
public:
    virtual ~Clock() = default;
    virtual QDateTime now() const = 0;

    // Whole seconds since midnight, rounded to the nearest second; no day rollover.
    virtual qint32 secondsSinceMidnight() const;
    // Month/day/two-digit year, as "11/22/26".
    QString dateText() const;
    // Hours:minutes:seconds with AM or PM, as "7:05:09 PM".
    QString timeText() const;
};

class SystemClock final : public Clock {
public:
    QDateTime now() const override { return QDateTime::currentDateTime(); }
    // Read for every received character, so it skips the date and time-zone work.
    qint32 secondsSinceMidnight() const override
    {
        return (QTime::currentTime().msecsSinceStartOfDay() + 500) / 1000;
    }
};
