#include "support/TestRegistry.h"
#include "support/XlsxReader.h"

#include "xlsx/XlsxWorkbookWriter.h"

#include <QTemporaryDir>
#include <QTest>

namespace {
WorkbookSheet sample()
{
    WorkbookSheet sheet;
    sheet.headings = QStringList { "BRANDOK ENGINEERING Infrared Thermometer Data Logging",
        "Date: (mm/dd/yy) 03/14/26  Time: 9:05:07 AM", "INT (SECS)      2" };
    sheet.xTitle = QStringLiteral("LOCATION");
    sheet.yTitle = QStringLiteral("TEMPERATURE");
    sheet.chartTitle = QStringLiteral("STORED DATA POINTS");
    sheet.rows = { { 1, 75.0 }, { 2, std::nullopt }, { 3, -12.5 } };
    return sheet;
}
} // namespace

class TestXlsxWorkbook : public QObject {
    Q_OBJECT
private slots:
    void sheetReadsBack()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath("book.xlsx");
        XlsxWorkbookWriter writer;
        QVERIFY(writer.write(path, sample(), nullptr));
        const auto cells = XlsxReader::cells(path);
        QCOMPARE(cells.value("A1"),
            QStringLiteral("BRANDOK ENGINEERING Infrared Thermometer Data Logging"));
        QCOMPARE(cells.value("A3"), QStringLiteral("INT (SECS)      2"));
        QVERIFY(!cells.contains("A4"));
        QCOMPARE(cells.value("A5"), QStringLiteral("LOCATION"));
        QCOMPARE(cells.value("B5"), QStringLiteral("TEMPERATURE"));
        QCOMPARE(cells.value("A6"), QStringLiteral("1"));
        QCOMPARE(cells.value("B6"), QStringLiteral("75"));
        QCOMPARE(cells.value("A7"), QStringLiteral("2"));
        QVERIFY(!cells.contains("B7"));
        QCOMPARE(cells.value("B8"), QStringLiteral("-12.5"));
        QVERIFY(!cells.contains("A9"));

        const QByteArray workbook = XlsxReader::part(path, "xl/workbook.xml");
        QVERIFY(workbook.contains("name=\"IR DATA\""));
        const QByteArray chart = XlsxReader::part(path, "xl/charts/chart1.xml");
        QVERIFY(chart.contains("<c:lineChart>"));
        QVERIFY(chart.contains("'IR DATA'!$B$6:$B$8"));
        QVERIFY(chart.contains("'IR DATA'!$A$6:$A$8"));
    }

    void controlCharactersLeftOut()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath("book.xlsx");
        WorkbookSheet sheet = sample();
        sheet.headings = QStringList { QStringLiteral("\x07"
                                                      "BATCH 7 \x01<&>") };
        XlsxWorkbookWriter writer;
        QVERIFY(writer.write(path, sheet, nullptr));
        QCOMPARE(XlsxReader::cells(path).value("A1"), QStringLiteral("BATCH 7 <&>"));
    }

    void noHeadingsTableAtTheTop()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath("book.xlsx");
        WorkbookSheet sheet = sample();
        sheet.headings.clear();
        XlsxWorkbookWriter writer;
        QVERIFY(writer.write(path, sheet, nullptr));
        const auto cells = XlsxReader::cells(path);
        QCOMPARE(cells.value("A1"), QStringLiteral("LOCATION"));
        QCOMPARE(cells.value("B2"), QStringLiteral("75"));
    }
};
TALAVEX_TEST(TestXlsxWorkbook)
#include "TestXlsxWorkbook.moc"
