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
    void writeReading(const QDateTime& now, double reading);
    void close();

    // "2026-03-14,21:05:07,12.5,75"
    static QString Line(const QDateTime& start, const QDateTime& now, double reading);

private:
    QFile file_;
    QDateTime start_;
};
