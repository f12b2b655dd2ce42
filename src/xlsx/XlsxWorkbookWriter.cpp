#include "XlsxWorkbookWriter.h"

#include "base/WholeFile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <xlsxwriter.h>

namespace {

// Sheet text is plain: control characters (a stamp's BEL) would make the XML invalid.
QByteArray cellText(const QString& text)
{
    QString clean;
    clean.reserve(text.size());
    for (QChar c : text) {
        if (c.unicode() >= 32)
            clean += c;
    }
    return clean.toUtf8();
}

bool fail(QString* why, const QString& reason)
{
    if (why)
        *why = reason;
    return false;
}

struct WorkbookCloser {
    lxw_workbook* workbook;
    ~WorkbookCloser()
    {
        if (workbook)
            workbook_close(workbook);
    }
};

} // namespace

bool XlsxWorkbookWriter::write(const QString& path, const WorkbookSheet& sheet, QString* why)
{
    QTemporaryDir scratch;
    if (!scratch.isValid())
        return fail(why, scratch.errorString());
    const QByteArray scratchFile = QFile::encodeName(scratch.filePath(QStringLiteral("book.xlsx")));
    const QByteArray scratchDir = QFile::encodeName(scratch.path());

    lxw_workbook_options options {};
    options.tmpdir = const_cast<char*>(scratchDir.constData());
    WorkbookCloser book { workbook_new_opt(scratchFile.constData(), &options) };
    if (!book.workbook)
        return fail(why, QStringLiteral("The workbook could not be started."));
    const QByteArray sheetName = cellText(sheet.name);
    lxw_worksheet* ws = workbook_add_worksheet(book.workbook, sheetName.constData());
    if (!ws)
        return fail(why, QStringLiteral("The sheet could not be added."));
    lxw_format* bold = workbook_add_format(book.workbook);
    format_set_bold(bold);

    // The first heading (the title) in bold, the others plain, then an empty row.
    lxw_row_t row = 0;
    for (const QString& heading : sheet.headings) {
        worksheet_write_string(
            ws, row, 0, cellText(heading).constData(), row == 0 ? bold : nullptr);
        ++row;
    }
    if (!sheet.headings.isEmpty())
        ++row;
    const lxw_row_t titleRow = row;
    worksheet_write_string(ws, titleRow, 0, cellText(sheet.xTitle).constData(), bold);
    worksheet_write_string(ws, titleRow, 1, cellText(sheet.yTitle).constData(), bold);
    worksheet_set_column(ws, 0, 1, 24, nullptr);
    const lxw_row_t firstData = titleRow + 1;
    const qsizetype count = std::min<qsizetype>(sheet.rows.size(), MaxRows - qsizetype(firstData));
    for (qsizetype i = 0; i < count; ++i) {
        const WorkbookRow& r = sheet.rows.at(i);
        const lxw_row_t at = firstData + lxw_row_t(i);
        worksheet_write_number(ws, at, 0, r.x, nullptr);
        if (r.y)
            worksheet_write_number(ws, at, 1, *r.y, nullptr);
    }
    const lxw_row_t last = firstData + lxw_row_t(std::max<qsizetype>(count, 1) - 1);

    if (!sheet.rows.isEmpty()) {
        lxw_chart* chart = workbook_add_chart(book.workbook, LXW_CHART_LINE);
        lxw_chart_series* series = chart_add_series(chart, nullptr, nullptr);
        chart_series_set_categories(series, sheetName.constData(), firstData, 0, last, 0);
        chart_series_set_values(series, sheetName.constData(), firstData, 1, last, 1);
        chart_series_set_name(series, cellText(sheet.yTitle).constData());
        chart_title_set_name(chart, cellText(sheet.chartTitle).constData());
        chart_axis_set_name(chart->x_axis, cellText(sheet.xTitle).constData());
        chart_axis_set_name(chart->y_axis, cellText(sheet.yTitle).constData());
        chart_legend_set_position(chart, LXW_CHART_LEGEND_NONE);
        worksheet_insert_chart(ws, titleRow, 3, chart);
    }

    lxw_workbook* done = book.workbook;
    book.workbook = nullptr;
    if (const lxw_error error = workbook_close(done); error != LXW_NO_ERROR)
        return fail(why, QString::fromUtf8(lxw_strerror(error)));
    QFile made(scratch.filePath(QStringLiteral("book.xlsx")));
    if (!made.open(QIODevice::ReadOnly))
        return fail(why, made.errorString());
    const QByteArray bytes = made.readAll();
    if (made.error() != QFileDevice::NoError)
        return fail(why, made.errorString());
    const WholeFile::Result written = WholeFile::Write(path, bytes);
    return written ? true : fail(why, written.reason);
}
