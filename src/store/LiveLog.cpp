#include "LiveLog.h"

#include "base/Numbers.h"

#include <cstdio>

bool LiveLog::open(const QString& path, const QDateTime& start)
{
    close();
    start_ = start;
    file_.setFileName(path);
    if (!file_.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        return false;
    file_.write(QByteArray(TitleLine) + "\r\n");
    return true;
}

QString LiveLog::Line(const QDateTime& start, const QDateTime& now, double reading)
{
    // Tenths of a second are as fine as the instrument's own clock.
    const double elapsed = Numbers::RoundHalfEven(double(start.msecsTo(now)) / 100.0) / 10.0;
    // Written out by hand: a line goes to disk for every reading, and the general date format
    // costs more than the rest of the reading's path.
    const QDate date = now.date();
    const QTime time = now.time();
    char stamp[40];
    std::snprintf(stamp, sizeof stamp, "%04d-%02d-%02d,%02d:%02d:%02d,", date.year(), date.month(),
        date.day(), time.hour(), time.minute(), time.second());
    return QLatin1String(stamp) + Numbers::NumberText(elapsed) + QLatin1Char(',')
        + Numbers::NumberText(reading);
}

void LiveLog::writeReading(const QDateTime& now, double reading)
{
    if (!file_.isOpen())
        return;
    file_.write((Line(start_, now, reading) + QStringLiteral("\r\n")).toLatin1());
}

void LiveLog::close()
{
    if (file_.isOpen())
        file_.close();
}
