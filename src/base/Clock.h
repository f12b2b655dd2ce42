#pragma once

#include <QDateTime>
#include <QElapsedTimer>
#include <QString>

// The time of day. The system clock in the program, a settable one in tests.
class Clock {
public:
    virtual ~Clock() = default;
    virtual QDateTime now() const = 0;
    // The same instant in UTC, which costs no time-zone lookup: for stamping every reading.
    virtual QDateTime nowUtc() const { return now().toUTC(); }

    // Whole seconds since midnight, rounded to the nearest second; no day rollover.
    virtual qint32 secondsSinceMidnight() const;
    // Milliseconds on a clock that only moves forward and knows no midnight: what time-outs are
    // measured with. The system clock's is the monotonic clock; a settable clock's follows it.
    virtual qint64 monotonicMs() const { return now().toMSecsSinceEpoch(); }
    // The same in whole seconds, rounded to the nearest second.
    qint64 monotonicSeconds() const;
    // Month/day/two-digit year, as "11/22/26".
    QString dateText() const;
    // Hours:minutes:seconds with AM or PM, as "7:05:09 PM".
    QString timeText() const;
};

// The computer's clock. The time of day is read for every received character, so it is taken
// from the wall clock at most once a second and carried forward by the monotonic clock between.
class SystemClock final : public Clock {
public:
    SystemClock() { monotonic_.start(); }
    QDateTime now() const override { return QDateTime::currentDateTime(); }
    QDateTime nowUtc() const override { return QDateTime::currentDateTimeUtc(); }
    qint32 secondsSinceMidnight() const override;
    qint64 monotonicMs() const override { return monotonic_.elapsed(); }

private:
    QElapsedTimer monotonic_;
    mutable qint64 baseMonotonicMs_ = -1;
    mutable qint64 baseTimeOfDayMs_ = 0;
};
