#include "PreviousRuns.h"

#include "LastObtainedFile.h"
#include "LiveLog.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QRegularExpression>
#include <algorithm>
#include <iterator>

namespace {

// "LAST_OBTAINED_DATA_PTS" of "LAST_OBTAINED_DATA_PTS.dat".
QString stem(const char* fileName) { return QString::fromLatin1(fileName).chopped(4); }

QByteArray lineOf(QFile& file)
{
    QByteArray line = file.readLine(1024);
    while (line.endsWith('\n') || line.endsWith('\r'))
        line.chop(1);
    return line;
}

// Header lines begin with a tab (the last-obtained file) or two commas (the live log), a text
// stamp with BEL; any other line is a reading. Both headers are a dozen lines at most.
bool holdsReading(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    for (int i = 0; i < 32 && !file.atEnd(); ++i) {
        const QByteArray line = lineOf(file);
        if (!line.isEmpty() && !line.startsWith('\t') && !line.startsWith('\x07')
            && !line.startsWith(",,"))
            return true;
    }
    return false;
}

// The header's "<tab>Date: (mm/dd/yy) 11/23/26  Time: 2:05:09 PM" line, in this century.
QDateTime headerTime(const QString& path)
{
    static const QRegularExpression dateLine(
        QStringLiteral("^\\tDate: \\(mm/dd/yy\\) (\\d\\d)/(\\d\\d)/(\\d\\d)  "
                       "Time: (\\d{1,2}):(\\d\\d):(\\d\\d) ([AP]M)$"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    for (int i = 0; i < 4 && !file.atEnd(); ++i) {
        const auto match = dateLine.match(QString::fromLatin1(lineOf(file)));
        if (!match.hasMatch())
            continue;
        auto number = [&match](int n) { return match.capturedView(n).toInt(); };
        const int hour = number(4) % 12 + (match.capturedView(7) == QLatin1String("PM") ? 12 : 0);
        return QDateTime(
            QDate(2000 + number(3), number(1), number(2)), QTime(hour, number(5), number(6)));
    }
    return {};
}

} // namespace

namespace PreviousRuns {

bool Keep(const QString& directory, QString* why)
{
    const char* const runFiles[] = { LastObtainedFile::FileName, LiveLog::FileName };
    auto path = [&directory](const QString& name) { return directory + QLatin1Char('/') + name; };
    const QString lastObtained = path(QString::fromLatin1(LastObtainedFile::FileName));
    const QString liveLog = path(QString::fromLatin1(LiveLog::FileName));
    if (!holdsReading(lastObtained) && !holdsReading(liveLog))
        return true;
    QDateTime start = headerTime(lastObtained);
    if (!start.isValid())
        start = QFileInfo(lastObtained).lastModified();
    if (!start.isValid())
        start = QFileInfo(liveLog).lastModified();
    const QString time = start.toString(QStringLiteral("yyyy-MM-dd'T'HH-mm-ss"));

    QString stamp = time;
    auto kept = [&](const char* fileName) {
        return path(stem(fileName) + QLatin1Char('.') + stamp + QStringLiteral(".dat"));
    };
    auto taken = [&] {
        return std::any_of(std::begin(runFiles), std::end(runFiles),
            [&](const char* fileName) { return QFileInfo::exists(kept(fileName)); });
    };
    for (int n = 2; taken(); ++n)
        stamp = time + QLatin1Char('-') + QString::number(n);
    for (const char* fileName : runFiles) {
        const QString file = path(QString::fromLatin1(fileName));
        QFile run(file);
        if (run.exists() && !run.rename(kept(fileName))) {
            if (why)
                *why = run.errorString();
            return false;
        }
    }

    // The kept runs by their time, which their names sort in; the oldest go.
    static const QRegularExpression keptName(
        QStringLiteral("^(?:%1|%2)\\.(\\d{4}-\\d\\d-\\d\\dT\\d\\d-"
                       "\\d\\d-\\d\\d(?:-\\d+)?)\\.dat$")
            .arg(QRegularExpression::escape(stem(LastObtainedFile::FileName)),
                QRegularExpression::escape(stem(LiveLog::FileName))));
    QDir dir(directory);
    QMap<QString, QStringList> runs;
    for (const QString& file : dir.entryList(QDir::Files)) {
        const auto match = keptName.match(file);
        if (match.hasMatch())
            runs[match.captured(1)] << file;
    }
    while (runs.size() > Kept) {
        for (const QString& file : runs.first())
            dir.remove(file);
        runs.erase(runs.begin());
    }
    return true;
}

} // namespace PreviousRuns
