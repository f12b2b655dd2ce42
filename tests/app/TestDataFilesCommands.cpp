#include "support/AppRig.h"
#include "support/TestFiles.h"
#include "support/TestRegistry.h"
#include "support/XlsxReader.h"
#include "xlsx/XlsxWorkbookWriter.h"
#include <QDir>
#include <QTest>

// The data files menu on the application, with an editor of its own on a PATH of its own.
class TestDataFilesCommands : public QObject {
    Q_OBJECT
    struct Rig : AppRig {
        XlsxWorkbookWriter workbook;
        Rig()
        {
            QDir().mkpath(dir.filePath("bin"));
            testfiles::writeAll(dir.filePath("bin/gedit"), "#!/bin/sh\n");
            QFile::setPermissions(dir.filePath("bin/gedit"), QFileDevice::Permissions(0x7700));
            EditorSearch search;
            search.pathDirs = { dir.filePath("bin") };
            app().files.editors = TextEditorLocator(search);
            app().spreadsheet.setWriter(&workbook);
        }
        QString started() const // the programs started, with their arguments
        {
            QStringList all;
            for (const auto& s : launcher.starts)
                all << s.program + ' ' + s.arguments.join('|');
            return all.join(';').replace(dir.path(), "$D");
        }
    };
private slots:
    // The editor shows a file; one that cannot be found is asked for, and found once it is kept.
    void editor_data()
    {
        QTest::addColumn<QString>("row"); // commands | the chooser's answer | started | boxes
        for (const char* row :
            { "load|/my runs/\"q\" 'x'; rm y.txt|$D/bin/gedit /my runs/\"q\" 'x'; rm y.txt|",
                "load||$D/bin/gedit |", // cancelled: the editor alone
                "none new|/opt/my editor|/opt/my editor $D/LAST_OBTAINED_DATA_PTS.dat|CANNOT FIND "
                "NOTEPAD.",
                "none new|||CANNOT FIND NOTEPAD.;INVALID FILENAME RECEIVED",
                "new another points||$D/bin/gedit $D/LAST_OBTAINED_DATA_PTS.dat;$D/bin/gedit "
                "$D/DPStorage.dat|" })
            QTest::newRow(row) << QString(row);
    }
    void editor()
    {
        QFETCH(QString, row);
        Rig rig;
        rig.prompter.files.push_back(row.section('|', 1, 1));
        for (const QString& step : row.section('|', 0, 0).split(' ')) {
            if (step == "none")
                QFile::remove(rig.dir.filePath("bin/gedit"));
            else if (step == "another") // comes before gedit among the common editors
                QFile::copy(
                    rig.dir.filePath("bin/gedit"), rig.dir.filePath("bin/gnome-text-editor"));
            else if (step == "load")
                rig.app().files.mnuLoadFile_Click();
            else if (step == "new")
                rig.app().files.mnuNewAcquiredDataPoints_Click();
            else
                rig.app().files.mnuDownloadedDataPoints_Click();
        }
        QCOMPARE(rig.started(), row.section('|', 2, 2));
        QCOMPARE(rig.prompter.titles().join(';'), row.section('|', 3, 3));
    }
    // The view of the downloaded points reads the kept file back into the store, unless a
    // download is on hand; a text stamp is one line and marks the data on hand.
    void storeAndStamp()
    {
        Rig rig;
        Application& a = rig.app();
        testfiles::writeAll(rig.dir.filePath("DPStorage.dat"), "\r\n\t#001\t70\r\n\r\n");
        a.state.DownloadFromWindow = true;
        a.files.mnuDownloadedDataPoints_Click();
        QVERIFY(a.store.isEmpty());
        a.state.DownloadFromWindow = false;
        a.files.mnuDownloadedDataPoints_Click();
        QCOMPARE(a.store.text(), QStringLiteral("\t#001\t70\r\n"));
        const char* stamps[][2] = { { "A\r\nB",
                                        "\x07"
                                        "AB" },
            { "", "" }, { nullptr, "" }, { "OVEN 2", "\x07OVEN 2" } };
        for (const auto& stamp : stamps) { // the answer, the stamp
            a.state.TextStamp = QStringLiteral("\x07old");
            rig.prompter.inputs.push_back(
                stamp[0] ? std::optional<QString>(stamp[0]) : std::optional<QString>());
            a.files.mnuTextStamp_Click();
            QCOMPARE(a.state.TextStamp, QString(stamp[1]));
        }
        QCOMPARE(a.store.text(),
            QStringLiteral("\t#001\t70\r\n\r\n\x07"
                           "AB\r\n\r\n\x07OVEN 2\r\n"));
        QCOMPARE(
            rig.prompter.shown.back().prompt, QStringLiteral("PLEASE ENTER YOUR TEXT STAMP..."));
    }

    // A workbook of the last run, its readings the instrument's interval apart (else the time
    // interval's); an existing file is replaced only on Yes.
    void workbookOfARun()
    {
        Rig rig;
        Application& a = rig.app();
        const QString book = rig.dir.filePath("run.xlsx");
        testfiles::writeAll(rig.dir.filePath("LAST_OBTAINED_DATA_PTS.dat"),
            "\tT\r\n\r\n  1234   DEG F\r\n  75\r\n  --\r\n  77\r\n");
        a.state.TimeInterval = 0.5f;
        for (const QString interval : { "", "2", "NO-INT" }) {
            a.state.Instrument.interval = SamplingInterval(interval);
            rig.prompter.files.push_back(book);
            if (QFile::exists(book))
                rig.prompter.answers.push_back(
                    interval == "NO-INT" ? Prompter::Answer::No : Prompter::Answer::Yes);
            a.files.mnuCreateExcelFile_Click();
            const auto cells = XlsxReader::cells(book);
            QCOMPARE(
                QStringList({ cells["A1"], cells["A4"], cells["A5"], cells["B5"], cells["A6"] })
                    .join(' '),
                QString(interval.isEmpty() ? "T 0 0.5 75 1" : "T 0 2 75 4"));
        }
        QCOMPARE(
            rig.prompter.titles(), QStringList({ "DUPLICATE FILE FOUND", "DUPLICATE FILE FOUND" }));
    }
};
TALAVEX_TEST(TestDataFilesCommands)
#include "TestDataFilesCommands.moc"
