#include "LiveLog.h"

#include "base/Numbers.h"
#include "base/WholeFile.h"

#include <cstdio>

bool LiveLog::open(const QString& path, const QDateTime& start)
{
    close();
    failure_.clear();
    startMs_ = start.toMSecsSinceEpoch();
    stampSecond_ = -1;
    file_.setFileName(path);
    if (!file_.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered)) {
        failure_ = file_.errorString();
        return false;
    }
    return put(QByteArray(TitleLine) + "\r\n");
}

bool LiveLog::put(const QByteArray& bytes)
{
    if (WholeFile::WriteAll(file_, bytes))
        return true;
    fail(file_.errorString());
    return false;
}

void LiveLog::fail(const QString& reason)
{
    if (failure_.isEmpty())
        failure_ = reason;
    if (file_.isOpen())
        file_.close();
}

QString LiveLog::stamp(const QDateTime& now)
{
    // Written out by hand: the general date format costs more than the rest of the line.
    const QDateTime local = now.toLocalTime();
    const QDate date = local.date();
    const QTime time = local.time();
    char text[40];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d,%02d:%02d:%02d,", date.year(), date.month(),
        date.day(), time.hour(), time.minute(), time.second());
    return QLatin1String(text);
}

QString LiveLog::line(const QString& stamp, qint64 elapsedMs, double reading)
{
    // Tenths of a second are as fine as the instrument's own clock.
    const double elapsed = Numbers::RoundHalfEven(double(elapsedMs) / 100.0) / 10.0;
    return stamp + Numbers::NumberText(elapsed) + QLatin1Char(',') + Numbers::NumberText(reading);
}

QString LiveLog::Line(const QDateTime& start, const QDateTime& now, double reading)
{
    return line(stamp(now), start.msecsTo(now), reading);
}

void LiveLog::writeReading(const QDateTime& now, double reading)
{
    if (!file_.isOpen())
        return;
    const qint64 ms = now.toMSecsSinceEpoch();
    const qint64 second = ms >= 0 ? ms / 1000 : (ms - 999) / 1000;
    if (second != stampSecond_) {
        stampBytes_ = stamp(now).toLatin1();
        stampSecond_ = second;
    }
    QByteArray out = stampBytes_;
    out += line(QString(), ms - startMs_, reading).toLatin1();
    out += "\r\n";
    put(out);
}

void LiveLog::close()
{
    if (file_.isOpen())
        file_.close();
}
