#include "support/AppRig.h"
#include "support/TestFiles.h"
#include "support/TestRegistry.h"
#include "support/XlsxReader.h"

#include "store/DataPointFiles.h"
#include "store/LiveLog.h"
#include "xlsx/XlsxWorkbookWriter.h"

#include <QDir>
#include <QFile>
#include <QTest>

namespace {
using testfiles::readAll;
using testfiles::writeAll;

// The cells of one column, top to bottom.
QStringList column(const QMap<QString, QString>& cells, QChar letter)
{
    QStringList values;
    for (int row = 1; row <= 1000; ++row) {
        const QString ref = letter + QString::number(row);
        if (cells.contains(ref))
            values << cells.value(ref);
    }
    return values;
}

// The rig with an editor of its own on a PATH of its own.
struct FilesRig : AppRig {
    FilesRig()
    {
        QDir().mkpath(dir.filePath("bin"));
        editor = dir.filePath("bin/gedit");
        QFile f(editor);
        if (f.open(QIODevice::WriteOnly)) {
            f.write("#!/bin/sh\n");
            f.close();
            f.setPermissions(f.permissions() | QFileDevice::ExeOwner);
        }
        EditorSearch search;
        search.pathDirs = { dir.filePath("bin") };
        app().files.editors = TextEditorLocator(search);
        app().spreadsheet.setWriter(&workbook);
    }
    void withoutEditor() { QFile::remove(editor); }
    // A real-time run: parameter block with interval 2, then the readings, then Stop.
    void run(const QByteArray& readings)
    {
        startSensing();
        feed(AppRig::parameterBlock("  DEG F", "2", "72"));
        clock.advance(2);
        feed(readings);
        app().acquisition.mnuStop_Click();
    }
    QString path(const char* name) const { return dir.filePath(QString::fromLatin1(name)); }

    QString editor;
    XlsxWorkbookWriter workbook;
};
} // namespace

class TestDataFilesCommands : public QObject {
    Q_OBJECT
private slots:
    void loadFileStartsTheEditor_data()
    {
        QTest::addColumn<QString>("chosen");
        QTest::newRow("plain name") << "/data/run.txt";
        QTest::newRow("blanks stay one argument") << "/data/my runs/run 1.txt";
        QTest::newRow("quotes and a semicolon") << "/data/\"q\" 'x'; rm -rf y.txt";
        QTest::newRow("dialog cancelled: no file") << "";
    }
    void loadFileStartsTheEditor()
    {
        QFETCH(QString, chosen);
        FilesRig rig;
        rig.prompter.files.push_back(chosen);
        rig.app().files.mnuLoadFile_Click();
        QCOMPARE(rig.prompter.shown.size(), size_t(1));
        const Prompter::FileChoice& choice = rig.prompter.shown.front().choice;
        QCOMPARE(rig.prompter.shown.front().kind, QStringLiteral("open"));
        QCOMPARE(choice.title, QStringLiteral("LOAD FILE"));
        QCOMPARE(choice.directory, rig.dir.path());
        QVERIFY(choice.filter.isEmpty());
        QCOMPARE(rig.launcher.starts.size(), size_t(1));
        QCOMPARE(rig.launcher.starts.front().program, rig.editor);
        QCOMPARE(rig.launcher.starts.front().arguments,
            chosen.isEmpty() ? QStringList() : QStringList { chosen });
    }

    void editorNotFound_data()
    {
        QTest::addColumn<bool>("locate"); // the operator picks a program in the dialog
        QTest::newRow("located by the operator") << true;
        QTest::newRow("locate dialog cancelled") << false;
    }
    void editorNotFound()
    {
        QFETCH(bool, locate);
        FilesRig rig;
        rig.withoutEditor();
        rig.prompter.files.push_back(locate ? QStringLiteral("/opt/tools/my editor") : QString());
        rig.app().files.mnuNewAcquiredDataPoints_Click();

        QCOMPARE(rig.prompter.shown.size(), size_t(locate ? 2 : 3));
        const Prompter::Message first = rig.prompter.shown.at(0).message;
        QCOMPARE(first.title, QStringLiteral("CANNOT FIND NOTEPAD."));
        QCOMPARE(first.text,
            QStringLiteral("NOTEPAD CANNOT BE FOUND IN STANDARD LOCATION, \r\n"
                           "PLEASE LOCATE IT WITH THE NEXT DIALOG"));
        QCOMPARE(first.buttons, Prompter::Buttons::Ok);
        QCOMPARE(rig.prompter.shown.at(1).kind, QStringLiteral("open"));
        QCOMPARE(
            rig.prompter.shown.at(1).choice.title, QStringLiteral("PLEASE LOCATE NOTEPAD.EXE"));
        if (locate) {
            QCOMPARE(rig.launcher.starts.size(), size_t(1));
            QCOMPARE(rig.launcher.starts.front().program, QStringLiteral("/opt/tools/my editor"));
            QCOMPARE(rig.launcher.starts.front().arguments,
                QStringList { rig.path("LAST_OBTAINED_DATA_PTS.dat") });
        } else {
            QVERIFY(rig.launcher.starts.empty());
            QCOMPARE(rig.prompter.shown.at(2).message.title,
                QStringLiteral("INVALID FILENAME RECEIVED"));
            QCOMPARE(rig.prompter.shown.at(2).message.text,
                QStringLiteral("INVALID FILE NAME, PLEASE TRY AGAIN"));
        }
    }

    void foundEditorIsRemembered()
    {
        FilesRig rig;
        rig.app().files.mnuNewAcquiredDataPoints_Click();
        QCOMPARE(rig.app().files.NotepadPath, rig.editor);
        // Another editor appears on the PATH: the one found first is kept.
        QFile::copy(rig.editor, rig.path("bin/gnome-text-editor"));
        rig.app().files.mnuNewAcquiredDataPoints_Click();
        QCOMPARE(rig.launcher.starts.size(), size_t(2));
        QCOMPARE(rig.launcher.starts.back().program, rig.editor);
        QVERIFY(rig.prompter.shown.empty());
    }

    void textStamp_data()
    {
        QTest::addColumn<std::optional<QString>>("answer");
        QTest::addColumn<QString>("stamp");
        QTest::newRow("a stamp") << std::optional<QString>("OVEN 2") << "\x07OVEN 2";
        QTest::newRow("cancelled clears") << std::optional<QString>() << "";
        QTest::newRow("empty clears") << std::optional<QString>("") << "";
        QTest::newRow("line ends removed") << std::optional<QString>("A\r\nB")
                                           << "\x07"
                                              "AB";
    }
    void textStamp()
    {
        QFETCH(std::optional<QString>, answer);
        QFETCH(QString, stamp);
        FilesRig rig;
        rig.app().state.TextStamp = QStringLiteral("\x07old");
        rig.prompter.inputs.push_back(answer);
        rig.app().files.mnuTextStamp_Click();
        QCOMPARE(rig.prompter.shown.size(), size_t(1));
        QCOMPARE(rig.prompter.shown.front().kind, QStringLiteral("input"));
        QCOMPARE(
            rig.prompter.shown.front().prompt, QStringLiteral("PLEASE ENTER YOUR TEXT STAMP..."));
        QCOMPARE(rig.prompter.shown.front().message.title, QStringLiteral("TEXT STAMP ENTRY"));
        QVERIFY(rig.prompter.shown.front().message.text.isEmpty());
        QCOMPARE(rig.app().state.TextStamp, stamp);
    }

    void stampMarksTheRunAndIsNoReading()
    {
        FilesRig rig;
        rig.prompter.inputs.push_back(QStringLiteral("25"));
        rig.app().files.mnuTextStamp_Click();
        QVERIFY(rig.app().store.isEmpty()); // nothing on hand to mark
        rig.run("  75\x07  76\x07");
        const QByteArray file = rig.lastObtained();
        const qsizetype headerEnd = file.indexOf("\r\n\r\n");
        QVERIFY(headerEnd > 0);
        QCOMPARE(file.mid(headerEnd + 4, 5),
            QByteArray("\x07"
                       "25\r\n"));

        rig.prompter.files.push_back(rig.path("run.xlsx"));
        rig.app().files.mnuCreateExcelFile_Click();
        const auto cells = XlsxReader::cells(rig.path("run.xlsx"));
        const QStringList readings = column(cells, QLatin1Char('B'));
        QCOMPARE(readings, QStringList({ "TEMPERATURE", "1234", "75", "76" }));
        QVERIFY(cells.values().contains(QStringLiteral("25")));
    }

    void liveLogOfARun()
    {
        FilesRig rig;
        rig.run("  75\x07");
        const QByteArray log = readAll(rig.path(LiveLog::FileName));
        QCOMPARE(log,
            QByteArray(",,BRANDOK ENGINEERING Infrared Thermometer Data Logging\r\n"
                       "2026-03-14,09:05:07,0,1234\r\n"
                       "2026-03-14,09:05:09,2,75\r\n"));
    }

    // A new run keeps the two files of each run before it under the time that run began, from
    // the header's time or else the file's, for the last ten runs that logged anything.
    void previousRunsAreKept_data()
    {
        QTest::addColumn<QString>("runs"); // one a hour: R logs a reading, E nothing, H no header
        QTest::addColumn<QStringList>("kept"); // oldest first
        QStringList lastTen;
        for (int hour = 11; hour <= 20; ++hour)
            lastTen << QStringLiteral("2026-03-14T%1-05-07").arg(hour);
        QTest::newRow("the run before") << "R" << QStringList { "2026-03-14T09-05-07" };
        QTest::newRow("a run without readings is not kept")
            << "RE" << QStringList { "2026-03-14T09-05-07" };
        QTest::newRow("no header: the file's time") << "H" << QStringList { "2026-03-14T09-35-07" };
        QTest::newRow("the last ten") << "RRRRRRRRRRRR" << lastTen;
    }
    void previousRunsAreKept()
    {
        QFETCH(QString, runs);
        QFETCH(QStringList, kept);
        FilesRig rig;
        const QString lastObtained = rig.path("LAST_OBTAINED_DATA_PTS.dat");
        QByteArray previous; // the last run kept
        for (int i = 0; i < runs.size(); ++i) {
            const QDateTime start(QDate(2026, 3, 14), QTime(9 + i, 5, 7));
            rig.clock.set(start);
            if (runs[i] == QLatin1Char('E')) {
                rig.startSensing();
                rig.app().acquisition.mnuStop_Click();
                continue;
            }
            rig.run("  75\x07");
            if (runs[i] == QLatin1Char('H')) {
                QFile file(lastObtained);
                QVERIFY(file.open(QIODevice::WriteOnly) && file.write("75\r\n") && file.flush());
                file.setFileTime(start.addSecs(1800), QFileDevice::FileModificationTime);
            }
            previous = rig.lastObtained();
        }
        rig.startSensing();
        QStringList expected;
        for (const QString& start : kept)
            expected << "LAST_OBTAINED_DATA_PTS." + start + ".dat"
                     << "datatemp." + start + ".dat";
        expected.sort(Qt::CaseInsensitive);
        QCOMPARE(QDir(rig.dir.path()).entryList({ "*.2026-*" }, QDir::Files), expected);
        QCOMPARE(
            readAll(rig.dir.filePath("LAST_OBTAINED_DATA_PTS." + kept.last() + ".dat")), previous);
    }

    void excelOfARun()
    {
        FilesRig rig;
        rig.run("  75\x07  76\x07  ----\x07  77\x07");
        rig.prompter.files.push_back(rig.path("run.xlsx"));
        rig.app().files.mnuCreateExcelFile_Click();
        const Prompter::FileChoice& choice = rig.prompter.shown.back().choice;
        QCOMPARE(choice.title, QStringLiteral("CREATE EXCEL FILE"));
        QCOMPARE(choice.filter, QStringLiteral("*.xlsx"));
        QCOMPARE(choice.defaultExtension, QStringLiteral("xlsx"));
        const auto cells = XlsxReader::cells(rig.path("run.xlsx"));
        QCOMPARE(cells.value("A1"),
            QStringLiteral("BRANDOK ENGINEERING Infrared Thermometer Data Logging"));
        // The first reading of the block, then the readings, two seconds apart.
        QStringList table;
        for (int row = 1; row <= 40; ++row) {
            const QString a = cells.value(QStringLiteral("A%1").arg(row));
            if (a == QLatin1String("ELAPSED TIME (SECONDS)"))
                table.clear();
            table << a + QLatin1Char('=') + cells.value(QStringLiteral("B%1").arg(row));
        }
        QCOMPARE(table.mid(0, 6),
            QStringList(
                { "ELAPSED TIME (SECONDS)=TEMPERATURE", "0=1234", "2=75", "4=76", "6=77", "=" }));
    }

    void excelQuestions_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<bool>("replaced");
        QTest::newRow("Yes overwrites") << int(Prompter::Answer::Yes) << true;
        QTest::newRow("No keeps the file") << int(Prompter::Answer::No) << false;
    }
    void excelQuestions()
    {
        QFETCH(int, answer);
        QFETCH(bool, replaced);
        FilesRig rig;
        rig.run("  75\x07");
        const QString path = rig.path("old.xlsx");
        writeAll(path, "old");
        rig.prompter.clear();
        rig.prompter.files.push_back(path);
        rig.prompter.answers.push_back(Prompter::Answer(answer));
        rig.app().files.mnuCreateExcelFile_Click();
        const Prompter::Message box = rig.prompter.messages().front();
        QCOMPARE(box.title, QStringLiteral("DUPLICATE FILE FOUND"));
        QCOMPARE(
            box.text, QStringLiteral("THIS ALREADY EXISTS, DO YOU WISH TO OVERWRITE THE DATA?"));
        QCOMPARE(box.buttons, Prompter::Buttons::YesNo);
        QCOMPARE(readAll(path) == "old", !replaced);
    }

    void downloadKeptAndViewed()
    {
        FilesRig rig;
        rig.prompter.inputs.push_back(QStringLiteral("BATCH 9"));
        rig.app().files.mnuTextStamp_Click();
        rig.startDownload();
        QCOMPARE(rig.app().store.text(),
            QStringLiteral("\x07"
                           "BATCH 9\r\n"));
        rig.feed("#001   75   DEG F\x07\x07#003   77   DEG F\x07");
        rig.app().storedPoints.cmdStartDownload_Click();
        const QString downloaded = rig.app().store.text();
        QVERIFY(downloaded.contains(QStringLiteral("EMPTY LOCATION - NO DATA.")));

        // Both save buttons: the text file without header, the workbook with locations.
        rig.prompter.files.push_back(rig.path("points.txt"));
        rig.app().storedPoints.cmdSaveToTxtFile_Click();
        QCOMPARE(readAll(rig.path("points.txt")), (downloaded + "\r\n").toLatin1());
        rig.prompter.files.push_back(rig.path("points.xlsx"));
        rig.app().storedPoints.cmdSaveToExcel_Click();
        const auto cells = XlsxReader::cells(rig.path("points.xlsx"));
        QStringList rows;
        for (auto it = cells.begin(); it != cells.end(); ++it) {
            if (it.value() == QLatin1String("LOCATION")) {
                const int row = it.key().mid(1).toInt();
                for (int r = row + 1; r <= row + 3; ++r)
                    rows << cells.value(QStringLiteral("A%1").arg(r)) + QLatin1Char('=')
                            + cells.value(QStringLiteral("B%1").arg(r));
            }
        }
        QCOMPARE(rows, QStringList({ "1=75", "2=", "3=77" }));
        QVERIFY(cells.values().contains(QStringLiteral("BATCH 9")));

        // Closing the window keeps the points; the view reads them back into the store.
        rig.app().acquisition.mnuDownloadData_Click();
        QVERIFY(!rig.app().state.DownloadFromWindow);
        const QByteArray kept = readAll(rig.path(DataPointFiles::StorageFileName));
        QCOMPARE(kept, (downloaded + "\r\n").toLatin1());
        rig.app().store.clear();
        rig.app().files.mnuDownloadedDataPoints_Click();
        QVERIFY(rig.app().store.text().contains(QStringLiteral("\t#003\t77\tDEG F\r\n")));
        QVERIFY(!rig.app().store.text().contains(QStringLiteral("\r\n\r\n")));
        QCOMPARE(rig.launcher.starts.back().arguments,
            QStringList { rig.path(DataPointFiles::StorageFileName) });
    }

    void emptyDownloadKeepsTheEarlierOne()
    {
        FilesRig rig;
        writeAll(rig.path(DataPointFiles::StorageFileName), "\t#001\t70\r\n");
        rig.app().state.TextStamp = QStringLiteral("\x07stamp only");
        rig.startDownload();
        rig.app().storedPoints.cmdStartDownload_Click();
        rig.app().acquisition.mnuDownloadData_Click();
        QCOMPARE(readAll(rig.path(DataPointFiles::StorageFileName)), QByteArray("\t#001\t70\r\n"));
    }

    void stampAddedToDataOnHand()
    {
        FilesRig rig;
        rig.app().store.setText(QStringLiteral("\r\n\t#001\t70\r\n"));
        rig.prompter.inputs.push_back(QStringLiteral("CHECKED"));
        rig.app().files.mnuTextStamp_Click();
        QCOMPARE(rig.app().store.text(),
            QStringLiteral("\r\n\t#001\t70\r\n\r\n\x07"
                           "CHECKED\r\n"));
    }
};
TALAVEX_TEST(TestDataFilesCommands)
#include "TestDataFilesCommands.moc"
