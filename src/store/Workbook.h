#pragma once

#include <QString>
#include <QStringList>
#include <QVector>
#include <optional>

// One worksheet of readings for the spreadsheet export: heading lines (title, date, the
// instrument parameters), then a two-column table, drawn as a line chart beside it.
struct WorkbookRow {
    double x = 0.0;
    std::optional<double> y; // empty: an empty cell, a gap in the chart
};

struct WorkbookSheet {
    QString name = QStringLiteral("IR DATA");
    QStringList headings;
    QString xTitle;
    QString yTitle;
    QString chartTitle;
    QVector<WorkbookRow> rows;
};

// Writes a workbook file. The program's writer makes real .xlsx files.
class WorkbookWriter {
public:
    virtual ~WorkbookWriter() = default;
    // False when the file could not be written, with *why saying why; an existing file is then
    // left as it was.
    virtual bool write(const QString& path, const WorkbookSheet& sheet, QString* why) = 0;
};
