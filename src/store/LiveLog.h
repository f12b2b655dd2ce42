#pragma once

#include <QDateTime>
#include <QFile>
#include <QString>

// The live log "datatemp.dat" of a real-time run: a title line, then one comma-separated line
// per reading with the date, the time of day, the seconds since the run began and the reading.
// Each line goes to the operating system as it is written, so a crash loses none.
class LiveLog {
public:
    static constexpr const char* FileName = "datatemp.dat";
    static constexpr const char* TitleLine
        = ",,BRANDOK ENGINEERING Infrared Thermometer Data Logging";

    // Creates or truncates the log and writes its title line; the run's seconds count from
    // `start`. False when it cannot be opened.
    bool open(const QString& path, const QDateTime& start);
    bool isOpen() const { return file_.isOpen(); }
    // The line of a reading taken at `now`, which may be in UTC or local time; the line shows
    // local time either way.
    void writeReading(const QDateTime& now, double reading);
    void close();
    // Why this run's log is not being written: it could not be opened or a write failed (the
    // system's reason). Empty while all is well; after a failure nothing more is written.
    const QString& failure() const { return failure_; }
    void fail(const QString& reason);

    // "2026-03-14,21:05:07,12.5,75"
    static QString Line(const QDateTime& start, const QDateTime& now, double reading);

private:
    // "2026-03-14,21:05:07," for the local time of `now`.
    static QString stamp(const QDateTime& now);
    static QString line(const QString& stamp, qint64 elapsedMs, double reading);

    bool put(const QByteArray& bytes);

    QFile file_;
    QString failure_;
    qint64 startMs_ = 0;
    // The stamp of the second last written: readings that come many a second share it, and the
    // local time is worked out once a second instead of for each of them.
    qint64 stampSecond_ = -1;
    QByteArray stampBytes_;
};
