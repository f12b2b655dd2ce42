#include "base/AppState.h"
#include "base/ViewModel.h"
#include "store/DataPointStore.h"
#include "store/FileHeader.h"
#include "store/LastObtainedFile.h"
#include "store/LiveLog.h"
#include "store/PreviousRuns.h"
#include "store/SpreadsheetExport.h"
#include "store/TextEditorLocator.h"
#include "store/TextExport.h"
#include "support/FakeClock.h"
#include "support/FakePrompter.h"
#include "support/Rows.h"
#include "support/TestFiles.h"
#include "support/TestRegistry.h"
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <ctime>

namespace {
using testfiles::readAll;
using testfiles::writeAll;
const QByteArray Title = "BRANDOK ENGINEERING Infrared Thermometer Data Logging";
} // namespace

// The work files the program keeps, read back byte for byte, and the text editor search.
class TestStore : public QObject {
    Q_OBJECT
private slots:
    // A run's files reach the disk line by line, local time from UTC; a full disk ends them.
    void liveFiles()
    {
        const QByteArray oldTz = qgetenv("TZ");
        qputenv("TZ", "EST5");
        tzset();
        QTemporaryDir dir;
        const QString path = dir.filePath("run.dat");
        LastObtainedFile file;
        QVERIFY(file.open(path));
        file.writeLine(QStringLiteral("  75\tDEG F"));
        QCOMPARE(readAll(path), QByteArray("  75\tDEG F\r\n"));
        file.write(QStringLiteral("\t"));
        file.writeLine(QStringLiteral("76"));
        file.close();
        file.writeLine(QStringLiteral("after close"));
        QCOMPARE(readAll(path), QByteArray("  75\tDEG F\r\n\t76\r\n"));
        const QDateTime start(QDate(2026, 3, 14), QTime(9, 5, 7, 900));
        LiveLog log;
        QVERIFY(log.open(path, start));
        QCOMPARE(readAll(path), ",," + Title + "\r\n");
        int reading = 0;
        for (int ms : { 0, 50, 100, 149, 1150, 12340 + 15 * 3600000 })
            log.writeReading(start.toUTC().addMSecs(ms), reading++);
        log.close();
        log.writeReading(start.addSecs(20), 76);
        oldTz.isNull() ? qunsetenv("TZ") : qputenv("TZ", oldTz);
        tzset();
        QCOMPARE(readAll(path),
            ",," + Title
                + "\r\n2026-03-14,09:05:07,0,0\r\n2026-03-14,09:05:07,0,1\r\n"
                  "2026-03-14,09:05:08,0.1,2\r\n2026-03-14,09:05:08,0.1,3\r\n"
                  "2026-03-14,09:05:09,1.2,4\r\n2026-03-15,00:05:20,54012.3,5\r\n");
        QVERIFY(!log.open(QStringLiteral("/dev/full"), start));
        QVERIFY(!log.isOpen() && log.failure() == QLatin1String("No space left on device"));
        QVERIFY(file.open(QStringLiteral("/dev/full")));
        file.writeLine(QStringLiteral("75"));
        QVERIFY(!file.isOpen() && file.failure() == QLatin1String("No space left on device"));
    }
    // SAVE FILE: a header ($H, parameters $P) unless a download is on hand; Yes appends.
    void saveFile_data()
    {
        // window caption | store | file before | answer | box | file
        rows::add({ "ACQUIRED ...|75\r\n76|-|||$H\r\n75\r\n76\r\n",
            "ACQUIRED ...|75|-|||$H$P\r\n\r\n75\r\n",
            "STORED DATA POINTS...|75\r\n76|-|||75\r\n76\r\n",
            "RECEIVING...|75|old\r\n|Y|DUPLICATE FILE FOUND|old\r\n$H\r\n75\r\n",
            "STORED DATA POINTS...|75|old\r\n|Y|DUPLICATE FILE FOUND|old\r\n75\r\n",
            "STORED DATA POINTS...|75|old\r\n|N|DUPLICATE FILE FOUND|75\r\n",
            "STORED DATA POINTS...|75|old\r\n|C|DUPLICATE FILE FOUND|old\r\n",
            "STORED DATA POINTS...||old\r\n||NO DATA TO SAVE|old\r\n" });
    }
    void saveFile()
    {
        QFETCH(QString, row);
        const QStringList f = row.split('|');
        QTemporaryDir dir;
        AppState state;
        state.ProgramDirectory = dir.path();
        QByteArray parameters;
        for (int i = 0; f[5].contains("$P") && i < 9; ++i) {
            state.Instrument.units = QStringLiteral("DEG F");
            state.Instrument.SystemParameterText[i] = QStringLiteral("P%1").arg(i);
            parameters += "\t\tP" + QByteArray::number(i) + "\r\n";
        }
        ViewModel window;
        Control caption { &window, "lblAcquiredPoints", f[0] };
        DataPointStore points;
        points.setText(f[1]);
        FakeClock clock;
        clock.set(QDateTime(QDate(2026, 3, 14), QTime(21, 5, 7)));
        FakePrompter prompter;
        const QString path = dir.filePath("chosen name.txt");
        if (f[2] != "-")
            writeAll(path, f[2].toLatin1());
        prompter.files.push_back(path);
        const QMap<QString, Prompter::Answer> answers { { "Y", Prompter::Answer::Yes },
            { "N", Prompter::Answer::No }, { "C", Prompter::Answer::Cancel } };
        if (answers.contains(f[3]))
            prompter.answers.push_back(answers[f[3]]);
        TextExport(state, points, clock, prompter, caption).SaveFile();
        QCOMPARE(prompter.titles().join(""), f[4]);
        const QByteArray header
            = "\t" + Title + "\r\n\tDate: (mm/dd/yy) 03/14/26  Time: 9:05:07 PM\r\n";
        QCOMPARE(readAll(path), f[5].toLatin1().replace("$H", header).replace("$P", parameters));
        const auto& choice = prompter.shown.front().choice;
        QVERIFY(f[1].isEmpty() || choice.directory + choice.filter == dir.path() + "*.txt");
    }
    // The workbook's table of a run ("R", 2 s apart) or of a download (locations).
    void sheets_data()
    {
        // source | text | rows ("x:y") | headings
        rows::add({ "R|\tTITLE\r\n\tDate\r\n\r\n\x07"
                    "BATCH 7\r\n\t  DEG F\r\r\n\t\r\n  1234   DEG F\r\n  1235\t  DEG "
                    "F\r\n  12\r\n|0:1234 2:1235 4:12|TITLE;Date;BATCH 7;DEG F",
            "R|  ----\t  DEG F\r\n  70\r\nabc\r\n  71\r\n|0:70 2:71|",
            "R|\t\tINT      2\r\n\tINT      2\r\n||INT      2",
            "D|\r\n\t#007\t75\tDEG F\r\n\r\nEMPTY LOCATION - NO "
            "DATA.\r\n\r\n\t#009\t80\r\n|7:75 8: "
            "9:80|TITLE",
            "D|EMPTY LOCATION - NO DATA.\r\n\t#2\t5\r\n|1: 2:5|TITLE",
            "D|\t#001\t1\r\n\t#\t2\r\n\t#003\t----\tDEG F\r\n|1:1 2:2 3:|TITLE",
            "D|\x07#BATCH\r\n\t\r\n75\r\n\x07LINE 2\r\n\t#010\t60\r\n|10:60|TITLE;#BATCH;LINE "
            "2" });
    }
    void sheets()
    {
        QFETCH(QString, row);
        const QStringList f = row.split('|');
        const WorkbookSheet sheet = f[0] == "R"
            ? SheetFromLastObtained(f[1].toLatin1(), 2.0)
            : SheetFromStore(f[1], { QStringLiteral("\tTITLE") });
        QStringList rows;
        for (const WorkbookRow& r : sheet.rows)
            rows << QString::number(r.x) + ':' + (r.y ? QString::number(*r.y) : "");
        QCOMPARE(rows.join(' '), f[2]);
        QCOMPARE(sheet.headings.join(';'), f[3]);
    }
    // The files of the last ten runs that logged a reading, kept under the time each began.
    void previousRuns_data()
    {
        // Runs, one an hour: R logged a reading, E none, H without a header, L only a live log, S
        // at the same time as the one before; then the times kept.
        rows::add({ "R=T09-05-07", "RE=T09-05-07", "H=T09-35-07", "L=T09-35-07",
            "RS=T09-05-07 T09-05-07-2",
            "RRRRRRRRRRRR=T11-05-07 T12-05-07 T13-05-07 T14-05-07 T15-05-07 T16-05-07 "
            "T17-05-07 T18-05-07 T19-05-07 T20-05-07" });
    }
    void previousRuns()
    {
        QFETCH(QString, row);
        const QString runs = row.section('=', 0, 0), kept = row.section('=', 1);
        QTemporaryDir dir;
        const QString lastObtained = dir.filePath(LastObtainedFile::FileName);
        const QString liveLog = dir.filePath(LiveLog::FileName);
        QByteArray last;
        for (int i = 0; i < runs.size(); ++i) {
            FakeClock clock;
            clock.advance(3600.0 * (runs[i] == 'S' ? i - 1 : i));
            const QByteArray reading = runs[i] == 'E' ? "" : "  75\r\n";
            const QString path = runs[i] == 'L' ? liveLog : lastObtained;
            const QByteArray bytes
                = (QString("HL").contains(runs[i]) ? ""
                                                   : BuildFileHeader(AppState(), clock).toLatin1())
                + reading;
            last = reading.isEmpty() ? last : bytes;
            writeAll(path, bytes);
            if (runs[i] != 'L')
                writeAll(liveLog, ",," + Title + "\r\n" + reading);
            QFile file(path);
            QVERIFY(file.open(QIODevice::Append));
            QVERIFY(file.setFileTime(clock.now().addSecs(1800), QFileDevice::FileModificationTime));
            file.close();
            QVERIFY(PreviousRuns::Keep(dir.path()));
        }
        QStringList expected;
        for (const QString& time : kept.split(' ')) {
            expected << "datatemp.2026-03-14" + time + ".dat";
            if (runs != "L")
                expected << "LAST_OBTAINED_DATA_PTS.2026-03-14" + time + ".dat";
        }
        expected.sort(Qt::CaseInsensitive);
        QCOMPARE(QDir(dir.path()).entryList({ "*.2026-*" }, QDir::Files), expected);
        QCOMPARE(readAll(dir.filePath(expected.last())), last);
    }
    // The editor search on a desktop of its own: configuration folder "config", data folders
    // "local" then "share", PATH "bin", desktop "xfce". Files: "bin/name" a program, "path=text"
    // a plain file, "E id>text" (or "L" in "local") a desktop entry, "M path>ids" a list.
    void findEditor_data()
    {
        QTest::addColumn<QString>("row"); // files | the remembered path | found | its arguments
        QStringList rows { "bin/myedit~bin/gedit~bin/other~E other.desktop>Exec=other~E "
                           "my.desktop>Exec=myedit --tab %F~config/mimeapps.list=text/plain=other."
                           "desktop\n[Added Associations]\ntext/plain=other.desktop\n[Default "
                           "Applications]\ntext/plain=my.desktop||bin/myedit|--tab",
            "bin/myedit~E my.desktop>Exec=myedit %f~M "
            "config/xfce-mimeapps.list>my.desktop||bin/myedit|",
            "bin/myedit~E my.desktop>Exec=myedit~M "
            "local/applications/mimeapps.list>my.desktop||bin/myedit|",
            "bin/myedit~E my.desktop>Exec=myedit~config/mimeapps.list=[Added "
            "Associations]\ntext/plain=my.desktop||bin/myedit|",
            "bin/second~E vim.desktop>Exec=vim %F\nTerminal=true~E second.desktop>Exec=second "
            "%F~share/applications/mimeinfo.cache=[MIME "
            "Cache]\ntext/plain=vim.desktop;second.desktop;||bin/second|",
            "bin/myedit~E my.desktop>Exec=env A=1 B=x myedit -n @@u %U @@~$M||bin/myedit|-n",
            "bin/my \"ed\"~E my.desktop>Exec=\"$D/bin/my \\\"ed\\\"\" --new %f~$M||bin/my "
            "\"ed\"|--new",
            "bin/myedit~bin/mousepad~L my.desktop>Exec=myedit\nHidden=true~E "
            "my.desktop>Exec=myedit~$M||bin/mousepad|",
            "bin/chosen~bin/gedit|bin/chosen|bin/chosen|",
            "bin/gedit~notes.txt=text|notes.txt|bin/gedit|", "bin/geany~bin/kate||bin/kate|",
            "bin/a~bin/kate~local/a.desktop=[Desktop Entry]\nExec=a~M "
            "local/applications/mimeapps.list>../a.desktop||bin/kate|",
            "bin/gedit=not executable|/nonexistent/NOTEPAD.EXE||" };
        for (const char* unusable : { "Exec=myedit %f\nTerminal=true", "Exec=myedit\nHidden=true",
                 "Exec=nothere %f", "Name=Editor", "Exec=", "Exec=env A=1" })
            rows << QStringLiteral("bin/myedit~bin/mousepad~E my.desktop>%1~$M||bin/mousepad|")
                        .arg(unusable);
        for (const QString& row : rows)
            QTest::newRow(qPrintable(row)) << row;
    }
    void findEditor()
    {
        QFETCH(QString, row);
        const QStringList f = row.split('|');
        QTemporaryDir dir;
        for (QString file :
            QString(f[0]).replace("$M", "M config/mimeapps.list>my.desktop;").split('~')) {
            file.replace("$D", dir.path());
            if (file.startsWith("E ") || file.startsWith("L "))
                file = (file[0] == 'E' ? "share" : "local") + QStringLiteral("/applications/")
                    + file.mid(2).replace('>', "=[Desktop Entry]\nType=Application\n");
            else if (file.startsWith("M "))
                file = file.mid(2).replace('>',
                    "=[Added Associations]\nimage/png=viewer.desktop\n"
                    "[Default Applications]\ntext/html=web.desktop\ntext/plain=");
            const QString path = dir.filePath(file.section('=', 0, 0));
            QDir().mkpath(QFileInfo(path).path());
            writeAll(path, file.section('=', 1).toUtf8() + "\n");
            if (!file.contains('='))
                QFile::setPermissions(path, QFileDevice::Permissions(0x7700));
        }
        TextEditorLocator locator(
            { { dir.filePath("config") }, { dir.filePath("local"), dir.filePath("share") },
                { dir.filePath("bin") }, { "xfce" } });
        QString path = f[1].isEmpty() || f[1].startsWith('/') ? f[1] : dir.filePath(f[1]);
        QCOMPARE(locator.FindNotepad(path), !f[2].isEmpty());
        QCOMPARE(path, f[2].isEmpty() ? QString() : dir.filePath(f[2]));
        QCOMPARE(locator.argumentsFor(path).join(' '), f[3]);
        QVERIFY(locator.argumentsFor(QStringLiteral("/usr/bin/other")).isEmpty());
    }
};
TALAVEX_TEST(TestStore)
#include "TestStore.moc"
