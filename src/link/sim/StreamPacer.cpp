#include "StreamPacer.h"

#include <cmath>

namespace {
constexpr qint64 UsPerSecond = 1000000;
}

StreamPacer::StreamPacer(const SimulatorOptions& options, int charactersPerSecond, double timeScale)
    : simulator_(options)
    , cps_(qMax(0, charactersPerSecond))
    , timeScale_(timeScale > 0 ? timeScale : 1.0)
{
}

bool StreamPacer::loadNextRecord()
{
    while (!haveRecord_) {
        if (simulator_.finished())
            return false;
        const qint64 due
            = std::llround(simulator_.nextRecordDueSeconds() * timeScale_ * UsPerSecond);
        record_ = simulator_.nextRecord();
        offset_ = 0;
        recordStartUs_ = qMax(due, previousEndUs_);
        haveRecord_ = !record_.isEmpty();
    }
    return true;
}

// Character k (0-based) of the current record is on the line once its ten bits have gone out.
qint64 StreamPacer::byteDueUs(qint64 offset) const
{
    if (cps_ == 0)
        return recordStartUs_;
    return recordStartUs_ + ((offset + 1) * UsPerSecond + cps_ - 1) / cps_;
}

qint64 StreamPacer::nextDueUs()
{
    if (!loadNextRecord())
        return -1;
    return byteDueUs(offset_);
}

bool StreamPacer::finished() { return !loadNextRecord(); }

StreamPacer::Output StreamPacer::take(qint64 usSinceStart, qint64 maxBytes)
{
    Output out;
    while (loadNextRecord()) {
        if (usSinceStart < recordStartUs_)
            break;
        qint64 available = record_.size();
        if (cps_ > 0)
            available = qMin(available, (usSinceStart - recordStartUs_) * cps_ / UsPerSecond);
        qint64 count = available - offset_;
        if (maxBytes >= 0)
            count = qMin(count, maxBytes - out.bytes.size());
        if (count <= 0)
            break;
        out.bytes += record_.mid(offset_, count);
        offset_ += count;
        if (offset_ < record_.size())
            break;
        out.completed.append(record_);
        haveRecord_ = false;
        previousEndUs_ = byteDueUs(record_.size() - 1);
    }
    return out;
}
