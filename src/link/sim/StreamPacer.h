#pragma once

#include "InstrumentSimulator.h"

#include <QByteArray>
#include <QList>

// Puts the instrument's records on a time line: each record starts when it is due (or when the
// one before it has gone out, if later) and its characters leave at the line rate. Time is
// handed in, never read, so the schedule can be checked without waiting.
class StreamPacer {
public:
    struct Output {
        QByteArray bytes; // everything released by this call, in order
        QList<QByteArray> completed; // the records whose last character is in bytes
    };

    // charactersPerSecond 0 releases each record whole when it is due; timeScale shrinks the
    // time between real-time records (0.01 makes a 2 s interval 20 ms).
    StreamPacer(const SimulatorOptions& options, int charactersPerSecond, double timeScale = 1.0);

    // What the line has carried by usSinceStart (microseconds from the start of the stream)
    // and was not taken before; at most maxBytes, the rest waits for the next call.
    Output take(qint64 usSinceStart, qint64 maxBytes = -1);
    // When the next character is due, in microseconds from the start; -1 once nothing more
    // will ever come.
    qint64 nextDueUs();
    bool finished();

    int charactersPerSecond() const { return cps_; }
    const InstrumentSimulator& simulator() const { return simulator_; }

private:
    bool loadNextRecord();
    qint64 byteDueUs(qint64 offset) const;

    InstrumentSimulator simulator_;
    int cps_;
    double timeScale_;
    QByteArray record_; // the record going out
    qint64 offset_ = 0; // characters of record_ already released
    qint64 recordStartUs_ = 0;
    qint64 previousEndUs_ = 0;
    bool haveRecord_ = false;
};
