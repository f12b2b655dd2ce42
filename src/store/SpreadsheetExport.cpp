#include "SpreadsheetExport.h"

#include "DataPointStore.h"
#include "FileHeader.h"
#include "LastObtainedFile.h"
#include "base/AppState.h"
#include "base/Numbers.h"
#include "base/Prompter.h"
#include "base/StringUtils.h"

#include <QFile>
#include <QFileInfo>

using StringUtils::Bel;
using StringUtils::Tab;

namespace {

const QString EmptyLocation = QStringLiteral("EMPTY LOCATION - NO DATA.");

QStringList lines(const QString& text)
{
    QStringList result = text.split(QLatin1Char('\n'));
    for (QString& line : result) {
        while (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
    }
    return result;
}

QString headingOf(const QString& line)
{
    return StringUtils::StripControlCharacters(line).trimmed();
}

void addHeading(QStringList& headings, const QString& line)
{
    const QString heading = headingOf(line);
    if (!heading.isEmpty() && !headings.contains(heading))
        headings << heading;
}

} // namespace

WorkbookSheet SheetFromLastObtained(const QByteArray& file, double interval)
{
    WorkbookSheet sheet;
    sheet.xTitle = QStringLiteral("ELAPSED TIME (SECONDS)");
    sheet.yTitle = QStringLiteral("TEMPERATURE");
    sheet.chartTitle = QStringLiteral("ACQUIRED DATA POINTS");
    for (const QString& line : lines(QString::fromLatin1(file))) {
        if (line.isEmpty())
            continue;
        if (line.startsWith(Tab) || line.startsWith(Bel)) {
            addHeading(sheet.headings, line);
            continue;
        }
        const QString field = StringUtils::SpacesToTabs(line).section(Tab, 0, 0);
        if (!Numbers::IsNumeric(field))
            continue;
        sheet.rows.append({ double(sheet.rows.size()) * interval, Numbers::Val(field) });
    }
    return sheet;
}

WorkbookSheet SheetFromStore(const QString& storeText, const QStringList& headings)
{
    WorkbookSheet sheet;
    sheet.xTitle = QStringLiteral("LOCATION");
    sheet.yTitle = QStringLiteral("TEMPERATURE");
    sheet.chartTitle = QStringLiteral("STORED DATA POINTS");
    for (const QString& heading : headings)
        addHeading(sheet.headings, heading);
    double location = 0.0;
    for (const QString& line : lines(storeText)) {
        if (line.startsWith(Bel)) {
            addHeading(sheet.headings, line);
            continue;
        }
        if (line.trimmed() == EmptyLocation) {
            location += 1.0;
            sheet.rows.append({ location, std::nullopt });
            continue;
        }
        const qsizetype mark = line.indexOf(QLatin1Char('#'));
        if (mark < 0)
            continue;
        // "#012", then the reading as the next column.
        const QStringList columns = line.mid(mark + 1).split(Tab);
        const QString number = columns.value(0).trimmed();
        location = Numbers::IsNumeric(number) ? Numbers::Val(number) : location + 1.0;
        const QString reading = columns.value(1).trimmed();
        sheet.rows.append({ location,
            Numbers::IsNumeric(reading) ? std::optional<double>(Numbers::Val(reading))
                                        : std::nullopt });
    }
    return sheet;
}

SpreadsheetExport::SpreadsheetExport(
    const AppState& state, const DataPointStore& store, const Clock& clock, Prompter& prompter)
    : state_(state)
    , store_(store)
    , clock_(clock)
    , prompter_(prompter)
{
}

void SpreadsheetExport::CreateExcelFile()
{
    QFile file(state_.filePath(QString::fromLatin1(LastObtainedFile::FileName)));
    QByteArray bytes;
    if (file.open(QIODevice::ReadOnly))
        bytes = file.readAll();
    double interval = state_.Instrument.interval.seconds();
    if (interval <= 0.0)
        interval = state_.TimeInterval;
    save(SheetFromLastObtained(bytes, interval));
}

void SpreadsheetExport::CreateExcelFileForDownLoadedData()
{
    const QStringList headings
        = BuildFileHeader(state_, clock_).split(StringUtils::CrLf, Qt::SkipEmptyParts);
    save(SheetFromStore(store_.text(), headings));
}

void SpreadsheetExport::save(const WorkbookSheet& sheet)
{
    if (sheet.rows.isEmpty()) {
        prompter_.message(
            QStringLiteral("NO DATA TO SAVE"), QStringLiteral("YOU HAVE NO DATA TO SAVE"));
        return;
    }
    Prompter::FileChoice choice;
    choice.title = QStringLiteral("CREATE EXCEL FILE");
    choice.filter = QStringLiteral("*.xlsx");
    choice.defaultExtension = QStringLiteral("xlsx");
    choice.directory = state_.ProgramDirectory;
    const QString fileName = prompter_.saveFileName(choice);
    if (fileName.isEmpty())
        return;
    if (QFileInfo::exists(fileName)
        && prompter_.message(QStringLiteral("DUPLICATE FILE FOUND"),
               QStringLiteral("THIS ALREADY EXISTS, DO YOU WISH TO OVERWRITE THE DATA?"),
               Prompter::Buttons::YesNo, Prompter::Icon::Question, Prompter::Answer::No)
            != Prompter::Answer::Yes)
        return;
    QString why = QStringLiteral("No workbook writer is available.");
    if (writer_ && writer_->write(fileName, sheet, &why))
        return;
    prompter_.message(QStringLiteral("EXCEL FILE NOT CREATED"),
        QStringLiteral("THE FILE COULD NOT BE WRITTEN:") + StringUtils::CrLf + fileName
            + StringUtils::CrLf + why,
        Prompter::Buttons::Ok, Prompter::Icon::Exclamation);
}
