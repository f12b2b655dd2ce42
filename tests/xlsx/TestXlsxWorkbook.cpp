#include "support/Rows.h"
#include "support/TestRegistry.h"
#include "support/XlsxReader.h"
#include "xlsx/XlsxWorkbookWriter.h"
#include <QTemporaryDir>
#include <QTest>

// A workbook written and read back the hard way: every cell, and the chart's ranges.
class TestXlsxWorkbook : public QObject {
    Q_OBJECT
private slots:
    void sheetReadsBack_data()
    {
        // headings | every cell, in reference order | first data row
        rows::add({ "TITLE;\x07"
                    "BATCH 7 \x01<&>|A1=TITLE A2=BATCH 7 <&> A4=LOCATION A5=1 A6=2 "
                    "A7=3 B4=TEMPERATURE B5=75 B7=-12.5|5",
            "|A1=LOCATION A2=1 A3=2 A4=3 B1=TEMPERATURE B2=75 B4=-12.5|2" });
    }
    void sheetReadsBack()
    {
        QFETCH(QString, row);
        const int first = row.section('|', 2).toInt();
        QTemporaryDir dir;
        const QString path = dir.filePath("book.xlsx");
        WorkbookSheet sheet;
        sheet.headings = row.section('|', 0, 0).split(';', Qt::SkipEmptyParts);
        sheet.xTitle = QStringLiteral("LOCATION");
        sheet.yTitle = QStringLiteral("TEMPERATURE");
        sheet.rows = { { 1, 75.0 }, { 2, std::nullopt }, { 3, -12.5 } };
        QVERIFY(XlsxWorkbookWriter().write(path, sheet, nullptr));
        const auto cells = XlsxReader::cells(path);
        QString all;
        for (auto it = cells.begin(); it != cells.end(); ++it)
            all += it.key() + '=' + it.value() + ' ';
        QCOMPARE(all.trimmed(), row.section('|', 1, 1));
        QVERIFY(XlsxReader::part(path, "xl/workbook.xml").contains("name=\"IR DATA\""));
        const QString chart = QString::fromUtf8(XlsxReader::part(path, "xl/charts/chart1.xml"));
        for (const char* column : { "A", "B" }) {
            const QString range = QStringLiteral("'IR DATA'!$%1$%2:$%1$%3");
            QVERIFY(chart.contains(range.arg(column).arg(first).arg(first + 2)));
        }
    }
};
TALAVEX_TEST(TestXlsxWorkbook)
#include "TestXlsxWorkbook.moc"
