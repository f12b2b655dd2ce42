#pragma once

#include "base/Clock.h"

// A clock the test sets and moves by hand.
class FakeClock : public Clock {
public:
    FakeClock()
        : now_(QDate(2026, 3, 14), QTime(9, 5, 7))
    {
    }
    QDateTime now() const override { return now_; }
    void set(const QDateTime& t) { now_ = t; }
    void advance(double seconds) { now_ = now_.addMSecs(qint64(seconds * 1000)); }

private:
    QDateTime now_;
};
