#include "support/AppRig.h"
#include "support/TestFiles.h"
#include "support/TestRegistry.h"
#include <QDir>
#include <QTest>

// The data files menu on the application, with an editor of its own on a PATH of its own.
class TestDataFilesCommands : public QObject {
    Q_OBJECT
    struct Rig : AppRig {
        Rig()
        {
            QDir().mkpath(dir.filePath("bin"));
            testfiles::writeAll(dir.filePath("bin/gedit"), "#!/bin/sh\n");
            QFile::setPermissions(dir.filePath("bin/gedit"), QFileDevice::Permissions(0x7700));
            EditorSearch search;
            search.pathDirs = { dir.filePath("bin") };
            app().files.editors = TextEditorLocator(search);
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
    // The downloaded points' view loads the kept file; a text stamp marks the data on hand.
    void storeAndStamp()
    {
        Rig rig;
        Application& a = rig.app();
        const QString kept = rig.dir.filePath("DPStorage.dat");
        testfiles::writeAll(kept, "\r\n\t#001\t70\r\n\r\n");
        a.state.DownloadFromWindow = true;
        a.files.mnuDownloadedDataPoints_Click();
        QVERIFY(a.store.isEmpty());
        a.state.DownloadFromWindow = false;
        a.files.mnuDownloadedDataPoints_Click();
        QCOMPARE(a.store.text(), QStringLiteral("\t#001\t70\r\n"));
        QStringList stamps;
        for (const char* answer : { "A\r\nB", "", "<cancel>", "OVEN 2" }) {
            a.state.TextStamp = QStringLiteral("\x07old");
            rig.prompter.inputs.push_back(answer == QLatin1String("<cancel>")
                    ? std::nullopt
                    : std::optional<QString>(answer));
            a.files.mnuTextStamp_Click();
            stamps << a.state.TextStamp;
        }
        QCOMPARE(stamps.join('|'), QStringLiteral("\aAB|||\aOVEN 2"));
        QCOMPARE(a.store.text(), QStringLiteral("\t#001\t70\r\n\r\n\aAB\r\n\r\n\aOVEN 2\r\n"));
        QFile big(kept);
        QVERIFY(big.resize(64 * 1024 * 1024 + 1));
        a.files.mnuDownloadedDataPoints_Click();
        QVERIFY(a.store.text().endsWith(QStringLiteral("OVEN 2\r\n")));
        const QString text = rig.prompter.messages().back().text;
        QVERIFY2(rig.prompter.titles().last() == "FILE TOO LARGE" && text.contains(kept)
                && text.contains("64 MB"),
            qPrintable(text));
    }
};
TALAVEX_TEST(TestDataFilesCommands)
#include "TestDataFilesCommands.moc"
