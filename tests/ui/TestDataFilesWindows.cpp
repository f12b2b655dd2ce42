#include "support/TestRegistry.h"
#include "support/WindowRig.h"
#include "support/XlsxReader.h"

#include "ui/StoredPointsWindow.h"
#include "xlsx/XlsxWorkbookWriter.h"

#include <QAction>
#include <QFile>
#include <QPushButton>
#include <QTest>

// The data file commands reached through the real windows.
class TestDataFilesWindows : public QObject {
    Q_OBJECT

    struct Fixture : WindowRig {
        XlsxWorkbookWriter workbook;
        Fixture() { app().spreadsheet.setWriter(&workbook); }
    };

private slots:
    void saveButtonsOfTheStoredPointsWindow()
    {
        Fixture f;
        f.trigger("mnuDownloadData");
        StoredPointsWindow* window = f.window.storedPointsWindow();
        auto* start = window->findChild<QPushButton*>("cmdStartDownload");
        start->click();
        f.rig.feed("#001   75   DEG F\x07#002   76   DEG F\x07");
        QCoreApplication::processEvents();
        start->click();
        QCoreApplication::processEvents();

        const QString text = f.rig.dir.filePath("points.txt");
        f.rig.prompter.files.push_back(text);
        auto* saveText = window->findChild<QPushButton*>("cmdSaveToTxtFile");
        QVERIFY(saveText->isEnabled());
        saveText->click();
        QCOMPARE(f.rig.prompter.shown.size(), size_t(1));
        QCOMPARE(f.rig.prompter.shown.back().choice.title, QStringLiteral("SAVE FILE"));
        QFile file(text);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().startsWith("\r\n\t#001\t75\tDEG F\r\n"));

        const QString book = f.rig.dir.filePath("points.xlsx");
        f.rig.prompter.files.push_back(book);
        window->findChild<QPushButton*>("cmdSaveToExcel")->click();
        QCOMPARE(f.rig.prompter.shown.size(), size_t(2));
        QCOMPARE(f.rig.prompter.shown.back().choice.title, QStringLiteral("CREATE EXCEL FILE"));
        QVERIFY(XlsxReader::cells(book).values().contains(QStringLiteral("76")));
    }

    void menuCommands_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("title");
        auto row = [](const char* name, const char* action, const char* kind, const char* title) {
            QTest::newRow(name) << QString(action) << QString(kind) << QString(title);
        };
        row("SAVE FILE, nothing to save", "mnuSaveFile", "message", "NO DATA TO SAVE");
        row("LOAD FILE", "mnuLoadFile", "open", "LOAD FILE");
        row("TEXT STAMP", "mnuTextStamp", "input", "TEXT STAMP ENTRY");
        row("EXCEL, nothing to save", "mnuCreateExcelFile", "message", "NO DATA TO SAVE");
    }
    void menuCommands()
    {
        QFETCH(QString, action);
        QFETCH(QString, kind);
        QFETCH(QString, title);
        Fixture f;
        f.trigger(action.toLatin1().constData());
        QVERIFY(!f.rig.prompter.shown.empty());
        const FakePrompter::Shown& first = f.rig.prompter.shown.front();
        QCOMPARE(first.kind, kind);
        QCOMPARE(kind == QLatin1String("open") ? first.choice.title : first.message.title, title);
    }

    void viewsStartTheEditor_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("file");
        QTest::newRow("last obtained") << "mnuNewAcquiredDataPoints"
                                       << "LAST_OBTAINED_DATA_PTS.dat";
        QTest::newRow("downloaded") << "mnuDownloadedDataPoints"
                                    << "DPStorage.dat";
    }
    void viewsStartTheEditor()
    {
        QFETCH(QString, action);
        QFETCH(QString, file);
        Fixture f;
        f.rig.app().files.NotepadPath = QStringLiteral("/bin/sh");
        f.trigger(action.toLatin1().constData());
        QCOMPARE(f.rig.launcher.starts.size(), size_t(1));
        QCOMPARE(f.rig.launcher.starts.front().program, QStringLiteral("/bin/sh"));
        QCOMPARE(f.rig.launcher.starts.front().arguments, QStringList { f.rig.dir.filePath(file) });
    }
};
TALAVEX_TEST(TestDataFilesWindows)
#include "TestDataFilesWindows.moc"
