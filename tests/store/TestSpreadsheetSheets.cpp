#include "support/TestRegistry.h"

#include "store/SpreadsheetExport.h"

#include <QTest>

Q_DECLARE_METATYPE(QVector<WorkbookRow>)

namespace {
// "x:y" per row, "x:" for an empty cell.
QStringList rowsText(const QVector<WorkbookRow>& rows)
{
    QStringList out;
    for (const WorkbookRow& r : rows)
        out << QString::number(r.x) + QLatin1Char(':') + (r.y ? QString::number(*r.y) : QString());
    return out;
}
} // namespace

class TestSpreadsheetSheets : public QObject {
    Q_OBJECT
private slots:
    void lastObtainedRun_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<double>("interval");
        QTest::addColumn<QStringList>("rows");
        QTest::addColumn<QStringList>("headings");
        const QByteArray header = "\tBRANDOK ENGINEERING Infrared Thermometer Data Logging\r\n"
                                  "\tDate: (mm/dd/yy) 03/14/26  Time: 9:05:07 AM\r\n\r\n";
        QTest::newRow("header, stamp, parameters, first reading, readings")
            << header
                + "\x07"
                  "BATCH 7\r\n\t  DEG F\r\r\n\tINT (SECS)      2\r\r\n\t\r\n"
                  "  1234   DEG F\r\n  1235\t  DEG F\r\n  12\r\n"
            << 2.0 << QStringList { "0:1234", "2:1235", "4:12" }
            << QStringList { "BRANDOK ENGINEERING Infrared Thermometer Data Logging",
                   "Date: (mm/dd/yy) 03/14/26  Time: 9:05:07 AM", "BATCH 7", "DEG F",
                   "INT (SECS)      2" };
        QTest::newRow("non-numeric readings take no row")
            << QByteArray("  ----\t  DEG F\r\n  70\r\nabc\r\n  71\r\n") << 0.5
            << QStringList { "0:70", "0.5:71" } << QStringList();
        QTest::newRow("repeated parameter lines once")
            << QByteArray("\t\tEMISSIVITY      0.95\r\n\tEMISSIVITY      0.95\r\n") << 1.0
            << QStringList() << QStringList { "EMISSIVITY      0.95" };
        QTest::newRow("empty file") << QByteArray() << 1.0 << QStringList() << QStringList();
    }
    void lastObtainedRun()
    {
        QFETCH(QByteArray, file);
        QFETCH(double, interval);
        QFETCH(QStringList, rows);
        QFETCH(QStringList, headings);
        const WorkbookSheet sheet = SheetFromLastObtained(file, interval);
        QCOMPARE(sheet.name, QStringLiteral("IR DATA"));
        QCOMPARE(rowsText(sheet.rows), rows);
        QCOMPARE(sheet.headings, headings);
    }

    void download_data()
    {
        QTest::addColumn<QString>("store");
        QTest::addColumn<QStringList>("rows");
        QTest::newRow("stored points with their numbers")
            << "\r\n\t#001\t75\tDEG F\r\n\r\n\t#002\t76\tDEG F\r\n"
            << QStringList { "1:75", "2:76" };
        QTest::newRow("empty locations count on")
            << "\r\n\t#007\t75\r\n\r\nEMPTY LOCATION - NO DATA.\r\n\r\n\t#009\t80\r\n"
            << QStringList { "7:75", "8:", "9:80" };
        QTest::newRow("empty location first") << "EMPTY LOCATION - NO DATA.\r\n\t#2\t5\r\n"
                                              << QStringList { "1:", "2:5" };
        QTest::newRow("reading that is no number: empty cell") << "\t#003\t----\tDEG F\r\n"
                                                               << QStringList { "3:" };
        QTest::newRow("no number after the mark") << "\t#001\t1\r\n\t#\t2\r\n"
                                                  << QStringList { "1:1", "2:2" };
        QTest::newRow("group separators, stamps and real-time lines left out")
            << "\x07#BATCH\r\n\t\r\n75\r\n\t#010\t60\r\n"
            << QStringList { "10:60" };
    }
    void download()
    {
        QFETCH(QString, store);
        QFETCH(QStringList, rows);
        const WorkbookSheet sheet = SheetFromStore(store, { QStringLiteral("\tTITLE") });
        QCOMPARE(rowsText(sheet.rows), rows);
        QCOMPARE(sheet.headings.first(), QStringLiteral("TITLE"));
        QCOMPARE(sheet.xTitle, QStringLiteral("LOCATION"));
    }

    void stampBecomesAHeading()
    {
        const WorkbookSheet sheet = SheetFromStore(QStringLiteral("\x07"
                                                                  "LINE 2 OVEN\r\n\t#001\t75\r\n"),
            QStringList());
        QCOMPARE(sheet.headings, QStringList { "LINE 2 OVEN" });
    }
};
TALAVEX_TEST(TestSpreadsheetSheets)
#include "TestSpreadsheetSheets.moc"
