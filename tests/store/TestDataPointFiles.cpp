#include "support/FakeClock.h"
#include "support/FakePrompter.h"
#include "support/TestFiles.h"
#include "support/TestRegistry.h"

#include "base/AppState.h"
#include "base/MainWindowModel.h"
#include "base/ViewModel.h"
#include "store/DataPointFiles.h"
#include "store/DataPointStore.h"
#include "store/LiveLog.h"
#include "store/TextExport.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <ctime>

namespace {
using testfiles::readAll;
using testfiles::writeAll;
const QByteArray Header = "\tBRANDOK ENGINEERING Infrared Thermometer Data Logging\r\n"
                          "\tDate: (mm/dd/yy) 03/14/26  Time: 9:05:07 AM\r\n";

// The store and its files in a temporary program directory.
struct StoreRig {
    StoreRig() { state.ProgramDirectory = dir.path(); }
    QString path(const char* name) const { return dir.filePath(QString::fromLatin1(name)); }

    QTemporaryDir dir;
    AppState state;
    MainWindowModel main;
    ViewModel storedPoints;
    Control label { &storedPoints, "lblAcquiredPoints", "ACQUIRED DATA POINTS..." };
    DataPointStore store;
    FakeClock clock;
    FakePrompter prompter;
    TextExport text { state, store, clock, prompter, label };
};
} // namespace

class TestDataPointFiles : public QObject {
    Q_OBJECT
private slots:
    void storageRoundTrip_data()
    {
        QTest::addColumn<QStringList>("saves"); // store texts, saved in turn
        QTest::addColumn<QString>("appends"); // one letter per save: A append, N anew
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("loaded");
        QTest::newRow("anew, blank line dropped on load")
            << QStringList { "a\r\n\r\nb" } << "N" << QByteArray("a\r\n\r\nb\r\n") << "a\r\nb\r\n";
        QTest::newRow("append twice doubles")
            << QStringList { "x", "x" } << "AA" << QByteArray("x\r\nx\r\n") << "x\r\nx\r\n";
        QTest::newRow("anew replaces an appended file")
            << QStringList { "x", "y", "z" } << "AAN" << QByteArray("z\r\n") << "z\r\n";
        QTest::newRow("stored points keep their tabs")
            << QStringList { "\r\n\t#001\t75\tDEG F\r\n" } << "N"
            << QByteArray("\r\n\t#001\t75\tDEG F\r\n\r\n") << "\t#001\t75\tDEG F\r\n";
    }
    void storageRoundTrip()
    {
        QFETCH(QStringList, saves);
        QFETCH(QString, appends);
        QFETCH(QByteArray, file);
        QFETCH(QString, loaded);
        StoreRig rig;
        for (int i = 0; i < saves.size(); ++i) {
            rig.store.setText(saves.at(i));
            QVERIFY(SaveDataPointStorage(rig.state, rig.store, appends.at(i) == QLatin1Char('A')));
        }
        QCOMPARE(readAll(rig.path(DataPointFiles::StorageFileName)), file);
        rig.store.setText(QStringLiteral("replaced"));
        QCOMPARE(LoadDataPointStorage(rig.state, rig.store), DataPointFiles::Loaded::Yes);
        QCOMPARE(rig.store.text(), loaded);
    }

    void missingStorageLeavesTheStore()
    {
        StoreRig rig;
        rig.store.setText(QStringLiteral("kept"));
        QCOMPARE(LoadDataPointStorage(rig.state, rig.store), DataPointFiles::Loaded::Unreadable);
        QCOMPARE(rig.store.text(), QStringLiteral("kept"));
    }

    void fortyThousandLines()
    {
        StoreRig rig;
        QByteArray big;
        for (int i = 0; i < 40000; ++i)
            big += QByteArray::number(i % 200) + "\r\n";
        writeAll(rig.path(DataPointFiles::StorageFileName), big);
        QCOMPARE(LoadDataPointStorage(rig.state, rig.store), DataPointFiles::Loaded::Yes);
        QCOMPARE(rig.store.text().count(QStringLiteral("\r\n")), 40000);
        QVERIFY(rig.store.text().endsWith(QStringLiteral("199\r\n")));
    }

    void textFile_data()
    {
        QTest::addColumn<QString>("label");
        QTest::addColumn<bool>("append");
        QTest::addColumn<QByteArray>("expected");
        QTest::newRow("after real-time sensing: header first")
            << "ACQUIRED DATA POINTS..." << false << Header + "\r\n75\r\n76\r\n";
        QTest::newRow("a download on hand: first data line first")
            << "STORED DATA POINTS..." << false << QByteArray("75\r\n76\r\n");
        QTest::newRow("append adds a second header")
            << "RECEIVING..." << true << "old\r\n" + Header + "\r\n75\r\n76\r\n";
        QTest::newRow("append without header")
            << "STORED DATA POINTS..." << true << QByteArray("old\r\n75\r\n76\r\n");
    }
    void textFile()
    {
        QFETCH(QString, label);
        QFETCH(bool, append);
        QFETCH(QByteArray, expected);
        StoreRig rig;
        rig.label.setCaption(label);
        rig.store.setText(QStringLiteral("75\r\n76"));
        const QString path = rig.path("out.txt");
        writeAll(path, "old\r\n");
        QVERIFY(rig.text.CreateTextFile2(path, append));
        QCOMPARE(readAll(path), expected);
    }

    void saveFileDialogs_data()
    {
        QTest::addColumn<bool>("exists");
        QTest::addColumn<int>("answer");
        QTest::addColumn<QByteArray>("expected");
        const QByteArray data = Header + "\r\nNEW\r\n";
        QTest::newRow("new file") << false << -1 << data;
        QTest::newRow("Yes appends") << true << int(Prompter::Answer::Yes) << "OLD\r\n" + data;
        QTest::newRow("No overwrites") << true << int(Prompter::Answer::No) << data;
        QTest::newRow("Cancel writes nothing")
            << true << int(Prompter::Answer::Cancel) << QByteArray("OLD\r\n");
    }
    void saveFileDialogs()
    {
        QFETCH(bool, exists);
        QFETCH(int, answer);
        QFETCH(QByteArray, expected);
        StoreRig rig;
        rig.store.setText(QStringLiteral("NEW"));
        const QString path = rig.path("chosen name.txt");
        if (exists)
            writeAll(path, "OLD\r\n");
        rig.prompter.files.push_back(path);
        if (answer >= 0)
            rig.prompter.answers.push_back(Prompter::Answer(answer));
        rig.text.SaveFile();

        QCOMPARE(rig.prompter.shown.front().kind, QStringLiteral("save"));
        const Prompter::FileChoice& choice = rig.prompter.shown.front().choice;
        QCOMPARE(choice.title, QStringLiteral("SAVE FILE"));
        QCOMPARE(choice.filter, QStringLiteral("*.txt"));
        QCOMPARE(choice.defaultExtension, QStringLiteral("txt"));
        QCOMPARE(choice.directory, rig.dir.path());
        QVERIFY(choice.fileName.isEmpty());
        QCOMPARE(rig.prompter.messages().size(), exists ? 1u : 0u);
        if (exists) {
            const Prompter::Message box = rig.prompter.messages().front();
            QCOMPARE(box.title, QStringLiteral("DUPLICATE FILE FOUND"));
            QCOMPARE(
                box.text, QStringLiteral("THIS ALREADY EXISTS, DO YOU WISH TO APPEND THE DATA?"));
            QCOMPARE(box.buttons, Prompter::Buttons::YesNoCancel);
            QCOMPARE(box.icon, Prompter::Icon::Question);
            QCOMPARE(box.defaultButton, Prompter::Answer::Cancel);
        }
        QCOMPARE(readAll(path), expected);
    }

    void saveFileWithoutData()
    {
        StoreRig rig;
        rig.text.SaveFile();
        QCOMPARE(rig.prompter.shown.size(), size_t(1));
        QCOMPARE(rig.prompter.titles(), QStringList { "NO DATA TO SAVE" });
        QCOMPARE(rig.prompter.messages().front().text, QStringLiteral("YOU HAVE NO DATA TO SAVE"));
    }

    void liveLogLines_data()
    {
        QTest::addColumn<int>("afterMs");
        QTest::addColumn<double>("reading");
        QTest::addColumn<QString>("line");
        QTest::newRow("at the start") << 0 << 75.0 << "2026-03-14,09:05:07,0,75";
        QTest::newRow("tenths of a second") << 12340 << -3.0 << "2026-03-14,09:05:19,12.3,-3";
        QTest::newRow("past midnight")
            << 15 * 3600 * 1000 << 101.0 << "2026-03-15,00:05:07,54000,101";
    }
    void liveLogLines()
    {
        QFETCH(int, afterMs);
        QFETCH(double, reading);
        QFETCH(QString, line);
        const QDateTime start(QDate(2026, 3, 14), QTime(9, 5, 7));
        QCOMPARE(LiveLog::Line(start, start.addMSecs(afterMs), reading), line);
    }

    void liveLogIsOnDiskAfterEachLine()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(LiveLog::FileName);
        writeAll(path, "an older run\r\n");
        const QDateTime start(QDate(2026, 3, 14), QTime(9, 5, 7));
        LiveLog log;
        QVERIFY(log.open(path, start));
        const QByteArray title = ",,BRANDOK ENGINEERING Infrared Thermometer Data Logging\r\n";
        QCOMPARE(readAll(path), title);
        log.writeReading(start.addSecs(2), 75);
        QCOMPARE(readAll(path), title + "2026-03-14,09:05:09,2,75\r\n");
        log.close();
        log.writeReading(start.addSecs(4), 76);
        QCOMPARE(readAll(path), title + "2026-03-14,09:05:09,2,75\r\n");
    }

    // Readings are stamped from UTC instants, many a second; the lines still show local time,
    // and a new second gets a new stamp.
    void liveLogStampsLocalTimeFromUtc()
    {
        const QByteArray oldTz = qgetenv("TZ");
        qputenv("TZ", "EST5");
        tzset();
        QTemporaryDir dir;
        const QString path = dir.filePath(LiveLog::FileName);
        const QDateTime start(QDate(2026, 3, 14), QTime(9, 5, 7, 900));
        LiveLog log;
        QVERIFY(log.open(path, start));
        const QDateTime utc = start.toUTC();
        for (int ms : { 0, 50, 100, 149, 1150 })
            log.writeReading(utc.addMSecs(ms), 70);
        log.close();
        oldTz.isNull() ? qunsetenv("TZ") : qputenv("TZ", oldTz);
        tzset();
        const QList<QByteArray> lines = readAll(path).split('\n');
        QCOMPARE(lines.mid(1, 5),
            QList<QByteArray>({ "2026-03-14,09:05:07,0,70\r", "2026-03-14,09:05:07,0,70\r",
                "2026-03-14,09:05:08,0.1,70\r", "2026-03-14,09:05:08,0.1,70\r",
                "2026-03-14,09:05:09,1.2,70\r" }));
    }
};
TALAVEX_TEST(TestDataPointFiles)
#include "TestDataPointFiles.moc"
