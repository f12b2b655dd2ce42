#include "support/ModalDriver.h"
#include "support/TestFiles.h"
#include "support/TestRegistry.h"

#include "ui/LinuxSystemInfo.h"
#include "ui/QtLauncher.h"
#include "ui/QtPrompter.h"
#include "ui/SplashWindow.h"

#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <tuple>

// The adapters that talk to the desktop: programs, boxes, choosers, the beeper, the splash.
class TestAdapters : public QObject {
    Q_OBJECT
private slots:
    void launcherPassesArgumentsIntactAndReportsFailure()
    {
        QTemporaryDir dir;
        const QString out = dir.filePath(QStringLiteral("args out.bin"));
        const QStringList arguments { "MY DATA.txt", "say \"hi\"", "it's", "$HOME", "a;b", "*",
            "`ls`", "C:\\RUN 1.txt", "" };
        // The helper writes its arguments NUL-separated and renames the file when complete.
        const QString script = QStringLiteral(
            "out=$0; printf '%s\\0' \"$@\" > \"$out.part\" && mv \"$out.part\" \"$out\"");
        QVERIFY(
            QtLauncher().startDetached("/bin/sh", QStringList { "-c", script, out } + arguments));
        QVERIFY(!QtLauncher().startDetached("/nonexistent/editor", {}));
        QVERIFY(!QtLauncher().startDetached(QString(), {}) && !QtLauncher().openDocument({}));
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(out), 10000);
        QCOMPARE(testfiles::readAll(out), arguments.join(QChar(0)).toUtf8() + '\0');
    }
    // Modal over the active window, in plain lines; Enter: the preferred answer, Escape: no harm.
    void messageBox()
    {
        QWidget owner;
        owner.show();
        using P = Prompter;
        const std::tuple<P::Buttons, Qt::Key, P::Answer> cases[]
            = { { P::Buttons::YesNo, Qt::Key_Return, P::Answer::No },
                  { P::Buttons::YesNoCancel, Qt::Key_Escape, P::Answer::Cancel } };
        for (const auto& c : cases) {
            owner.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&owner));
            QString seen;
            ModalDriver<QMessageBox> driver([&](QMessageBox* box) {
                seen = box->findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))->text()
                    + (box->parentWidget() == &owner ? "|owned" : "|alone");
                QTest::keyClick(box, std::get<1>(c));
            });
            const P::Message message { "T", "A,\r\nB\rC <b>x</b>", std::get<0>(c), {},
                P::Answer::No };
            QCOMPARE(QtPrompter().message(message), std::get<2>(c));
            QCOMPARE(seen, QStringLiteral("A,\nB\nC <b>x</b>|owned"));
        }
    }
    void fileChooser_data()
    {
        QTest::addColumn<bool>("save");
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QString>("filters"); // as the chooser offers them, apart by "|"
        QTest::addColumn<QString>("typed"); // with the last filter picked
        QTest::addColumn<QString>("chosen"); // empty: cancelled
        auto row = [](const char* name, bool save, const char* filter, const char* filters,
                       const char* typed, const char* chosen) {
            QTest::newRow(name) << save << QString(filter) << QString(filters) << QString(typed)
                                << QString(chosen);
        };
        row("save: added", true, "*.txt", "Text files (*.txt)|All files (*)", "RUN 1", "RUN 1.txt");
        row("save: kept", true, "*.rec", "Plot files (*.rec)|All files (*)", "RUN.dat", "RUN.dat");
        row("save: the picked format's", true, "PNG (*.png);;PDF (*.pdf)",
            "PNG (*.png)|PDF (*.pdf)", "Chart", "Chart.pdf");
        row("save: cancelled", true, "*.xlsx;*.xls",
            "Spreadsheet files (*.xlsx *.xls)|All files (*)", "RUN", "");
        row("open", false, "", "All files (*)", "OLD RUN.txt", "OLD RUN.txt");
        row("open: unknown", false, "*.abc", "ABC files (*.abc)|All files (*)", "OLD RUN.txt",
            "OLD RUN.txt");
    }
    void fileChooser()
    {
        QFETCH(bool, save);
        QFETCH(QString, filter);
        QFETCH(QString, filters);
        QFETCH(QString, typed);
        QFETCH(QString, chosen);
        QTemporaryDir dir;
        testfiles::writeAll(dir.filePath(QStringLiteral("OLD RUN.txt")), "x");
        QStringList seen;
        ModalDriver<QFileDialog> driver([&](QFileDialog* dialog) {
            seen << dialog->windowTitle() << dialog->directory().absolutePath()
                 << dialog->nameFilters().join('|')
                 << QString::number(dialog->acceptMode() == QFileDialog::AcceptSave)
                 << QString::number(dialog->testOption(QFileDialog::DontUseNativeDialog));
            dialog->selectNameFilter(dialog->nameFilters().last());
            emit dialog->filterSelected(dialog->nameFilters().last());
            dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(typed);
            chosen.isEmpty() ? dialog->reject() : static_cast<QDialog*>(dialog)->accept();
        });
        const Prompter::FileChoice choice { "SAVE DATA", filter, "txt", dir.path(), {} };
        const QString got
            = save ? QtPrompter().saveFileName(choice) : QtPrompter().openFileName(choice);
        const QString path = QDir(dir.path()).absolutePath(), mode = QString::number(save);
        QCOMPARE(seen, QStringList({ "SAVE DATA", path, filters, mode, "1" }));
        QCOMPARE(got, chosen.isEmpty() ? QString() : dir.filePath(chosen));
    }
    // The machine's memory as the kernel lists it; free memory where available memory is not told.
    void memoryFromTheKernelList()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("meminfo"));
        testfiles::writeAll(path, "MemTotal:  2048 kB\nMemFree:\t3 MB\nMemAvailableSoon: 9 kB\n");
        LinuxSystemInfo info(path);
        QCOMPARE(info.totalPhysicalMemory(), 2048ull * 1024);
        QCOMPARE(info.availablePhysicalMemory(), 3ull * 1024 * 1024);
        testfiles::writeAll(path, "MemTotal: x kB\nMemAvailable: 7\n");
        QCOMPARE(info.totalPhysicalMemory() + info.availablePhysicalMemory(), 7ull);
        QCOMPARE(LinuxSystemInfo(dir.filePath(QStringLiteral("none"))).totalPhysicalMemory(), 0ull);
    }
    void splash_data()
    {
        QTest::addColumn<QString>("how");
        for (const char* how :
            { "its own timer", "from the menu", "subtitle clicked", "key", "closed" })
            QTest::newRow(how) << QString::fromLatin1(how);
    }
    // The splash, centred, draws its moving logo and blinks until done, or waits if opened from
    // the menu; a click, a key or closing ends it at once.
    void splash()
    {
        QFETCH(QString, how);
        SplashWindow splash;
        splash.setStayOpen(how == "from the menu");
        splash.setBlinkInterval(how == "its own timer" ? 5 : 600000);
        QSignalSpy finished(&splash, &SplashWindow::finished);
        splash.start();
        const QRect screen = splash.screen()->availableGeometry();
        QVERIFY((splash.frameGeometry().center() - screen.center()).manhattanLength() <= 2);
        auto* logo = splash.findChild<QWidget*>(QStringLiteral("imgLogo"));
        const QImage before = logo->grab().toImage();
        splash.tmrTitle_Timer();
        QVERIFY(logo->grab().toImage() != before);
        const int ticks = how == "its own timer" ? 0 : how == "from the menu" ? 16 : 2;
        for (int tick = 1; tick <= ticks; ++tick)
            splash.tmrBlink_Timer();
        if (how == "its own timer")
            QVERIFY(finished.wait(10000));
        if (how == "subtitle clicked")
            QTest::mouseClick(splash.findChild<QLabel*>("lblSubtitle"), Qt::LeftButton);
        if (how == "key")
            QTest::keyClick(&splash, Qt::Key_Space);
        if (how == "closed")
            splash.close();
        QCOMPARE(finished.count(), how == "from the menu" ? 0 : 1);
        QCOMPARE(splash.ticks(), ticks ? ticks : int(SplashWindow::BlinkTicks));
        QVERIFY(!splash.findChild<QLabel*>(QStringLiteral("lblTitle"))->isHidden());
        QVERIFY(!splash.findChild<QTimer*>(QStringLiteral("tmrBlink"))->isActive());
        QCOMPARE(splash.findChild<QTimer*>("tmrTitle")->isActive(), how == "from the menu");
    }
};
TALAVEX_TEST(TestAdapters)
#include "TestAdapters.moc"
