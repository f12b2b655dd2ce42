#include "support/FakeClock.h"
#include "support/TestFiles.h"
#include "support/TestRegistry.h"

#include "base/AppState.h"
#include "base/MainWindowModel.h"
#include "store/DataPointStore.h"
#include "store/FileHeader.h"
#include "store/LastObtainedFile.h"
#include "store/SettingsFile.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

namespace {
using testfiles::readAll;
using testfiles::writeAll;
} // namespace

class TestStoreFiles : public QObject {
    Q_OBJECT
private slots:
    void settingsRead_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("filled"); // how many leading entries the file sets
        QTest::addColumn<QString>("first");
        QByteArray thirty;
        for (int i = 0; i < 30; ++i)
            thirty += QByteArray::number(i) + "\r\n";
        QTest::newRow("thirty lines read as 23") << thirty << 23 << "0";
        QTest::newRow("five lines fill five")
            << QByteArray("9\r\n8\r\n7\r\n6\r\n5\r\n") << 5 << "9";
        QTest::newRow("LF only") << QByteArray("a\nb\n") << 2 << "a";
        QTest::newRow("last line without end") << QByteArray("a\r\nb") << 2 << "a";
        QTest::newRow("empty file") << QByteArray() << 0 << "keep";
        QTest::newRow("binary garbage") << QByteArray("\x00\x01\xff\xfe\r\n\x7f", 7) << 2
                                        << QString::fromLatin1("\x00\x01\xff\xfe", 4);
    }
    void settingsRead()
    {
        QFETCH(QByteArray, content);
        QFETCH(int, filled);
        QFETCH(QString, first);
        QTemporaryDir dir;
        const QString path = dir.filePath("Settings.dat");
        writeAll(path, content);
        SettingsFile::Values values;
        values.fill(QStringLiteral("keep"));
        QVERIFY(SettingsFile::Read(path, values));
        QCOMPARE(values[0], first);
        for (int i = filled; i < SettingsFile::Count; ++i)
            QCOMPARE(values[i], QStringLiteral("keep"));
        if (filled == 23)
            QCOMPARE(values[22], QStringLiteral("22"));
    }

    void settingsHugeLineIsCut()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath("Settings.dat");
        writeAll(path, QByteArray(10 * 1024 * 1024, 'x') + "\r\n150\r\n");
        SettingsFile::Values values;
        QVERIFY(SettingsFile::Read(path, values));
        QCOMPARE(values[0].size(), SettingsFile::MaxLineLength);
        QCOMPARE(values[1], QStringLiteral("150"));
    }

    void settingsMissingFile()
    {
        SettingsFile::Values values;
        values.fill(QStringLiteral("keep"));
        QVERIFY(!SettingsFile::Read(QStringLiteral("/nonexistent/Settings.dat"), values));
        QCOMPARE(values[0], QStringLiteral("keep"));
    }

    void settingsWriteIsWholeAndCrLf()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath("Settings.dat");
        SettingsFile::Values values;
        for (int i = 0; i < SettingsFile::Count; ++i)
            values[i] = QString::number(i * 10);
        QVERIFY(SettingsFile::Write(path, values));
        const QByteArray bytes = readAll(path);
        QCOMPARE(bytes.count("\r\n"), 23);
        QVERIFY(bytes.startsWith("0\r\n10\r\n20\r\n"));
        QVERIFY(bytes.endsWith("220\r\n"));
        SettingsFile::Values back;
        QVERIFY(SettingsFile::Read(path, back));
        QCOMPARE(back, values);
    }

    void fileHeader_data()
    {
        QTest::addColumn<bool>("withParameters");
        QTest::addColumn<QByteArray>("expected");
        const QByteArray top = "\tBRANDOK ENGINEERING Infrared Thermometer Data Logging\r\n"
                               "\tDate: (mm/dd/yy) 03/14/26  Time: 9:05:07 PM\r\n";
        QTest::newRow("before the instrument spoke") << false << top;
        QByteArray full = top;
        for (int i = 0; i < 9; ++i)
            full += "\t\tP" + QByteArray::number(i) + "\r\n";
        full += "\r\n";
        QTest::newRow("with the parameter lines") << true << full;
    }
    void fileHeader()
    {
        QFETCH(bool, withParameters);
        QFETCH(QByteArray, expected);
        AppState state;
        MainWindowModel main;
        FakeClock clock;
        clock.set(QDateTime(QDate(2026, 3, 14), QTime(21, 5, 7)));
        for (int i = 0; i < 9; ++i)
            state.Instrument.SystemParameterText[i] = QStringLiteral("P%1").arg(i);
        if (withParameters)
            state.Instrument.units = QStringLiteral("DEG F");
        QCOMPARE(BuildFileHeader(state, clock).toLatin1(), expected);
    }

    void lastObtainedFileIsOnDiskAfterEachLine()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(LastObtainedFile::FileName);
        writeAll(path, "previous run\r\n");
        LastObtainedFile file;
        QVERIFY(file.open(path));
        file.writeLine(QStringLiteral("  75\tDEG F"));
        QCOMPARE(readAll(path), QByteArray("  75\tDEG F\r\n"));
        file.write(QStringLiteral("\t"));
        file.writeLine(QStringLiteral("76"));
        QCOMPARE(readAll(path), QByteArray("  75\tDEG F\r\n\t76\r\n"));
        file.close();
        file.writeLine(QStringLiteral("after close"));
        QCOMPARE(readAll(path), QByteArray("  75\tDEG F\r\n\t76\r\n"));
    }

    void storeSignals()
    {
        DataPointStore store;
        QSignalSpy appended(&store, &DataPointStore::appended);
        QSignalSpy replaced(&store, &DataPointStore::replaced);
        store.append(QStringLiteral("\r\nA\r\n"));
        store.append(QString());
        store.append(QStringLiteral("B"));
        QCOMPARE(store.text(), QStringLiteral("\r\nA\r\nB"));
        QCOMPARE(appended.count(), 2);
        store.clear();
        QCOMPARE(replaced.count(), 1);
        QVERIFY(store.isEmpty());
    }

    void storedDataPoint_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<bool>("stored");
        QTest::newRow("empty") << "" << false;
        QTest::newRow("start") << "#001 75" << true;
        QTest::newRow("middle") << "75 # 3" << true;
        QTest::newRow("end") << "75#" << true;
        QTest::newRow("real-time") << "  1234   DEG F" << false;
    }
    void storedDataPoint()
    {
        QFETCH(QString, line);
        QFETCH(bool, stored);
        QCOMPARE(IsStoredDataPoint(line), stored);
    }
};
TALAVEX_TEST(TestStoreFiles)
#include "TestStoreFiles.moc"
