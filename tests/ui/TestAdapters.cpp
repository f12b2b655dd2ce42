#include "support/ModalDriver.h"
#include "support/TestRegistry.h"

#include "ui/QtBeeper.h"
#include "ui/QtLauncher.h"
#include "ui/QtPrompter.h"
#include "ui/SplashWindow.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

Q_DECLARE_METATYPE(Prompter::Buttons)
Q_DECLARE_METATYPE(Prompter::Icon)
Q_DECLARE_METATYPE(Prompter::Answer)

namespace {

// Types a name into a file chooser's name box, as the operator would.
void typeFileName(QFileDialog* dialog, const QString& name)
{
    if (auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")))
        edit->setText(name);
}

quint32 u32(const QByteArray& bytes, int at)
{
    return qFromLittleEndian<quint32>(bytes.constData() + at);
}

quint16 u16(const QByteArray& bytes, int at)
{
    return qFromLittleEndian<quint16>(bytes.constData() + at);
}

QImage logoImage(int phase)
{
    QImage image(260, 200, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    SplashWindow::paintLogo(painter, image.rect(), phase);
    return image;
}

} // namespace

class TestAdapters : public QObject {
    Q_OBJECT
private slots:
    // --- launcher ---------------------------------------------------------------------------

    void launcherPassesEachArgumentIntact_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("blanks") << QStringList { "MY DATA FILE.txt", "two  blanks" };
        QTest::newRow("quotes") << QStringList { "say \"hi\".txt", "it's", "\"" };
        QTest::newRow("shell characters") << QStringList { "$HOME", "a;b", "*", "`ls`", "a|b" };
        QTest::newRow("backslashes and empty") << QStringList { "C:\\DATA\\RUN 1.txt", "" };
    }
    void launcherPassesEachArgumentIntact()
    {
        QFETCH(QStringList, arguments);
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QString out = dir.filePath(QStringLiteral("args out.bin"));
        // The helper writes its arguments NUL-separated and renames the file when complete.
        const QString script = QStringLiteral(
            "out=$0; printf '%s\\0' \"$@\" > \"$out.part\" && mv \"$out.part\" \"$out\"");
        QtLauncher launcher;
        QVERIFY(launcher.startDetached(QStringLiteral("/bin/sh"),
            QStringList { QStringLiteral("-c"), script, out } + arguments));
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(out), 10000);
        QFile file(out);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QByteArray expected;
        for (const QString& argument : arguments)
            expected += argument.toUtf8() + '\0';
        QCOMPARE(file.readAll(), expected);
    }

    void launcherReportsFailure()
    {
        QtLauncher launcher;
        QVERIFY(!launcher.startDetached(QStringLiteral("/nonexistent/no-such-editor"), {}));
        QVERIFY(!launcher.startDetached(QString(), {}));
        QVERIFY(!launcher.openDocument(QString()));
    }

    // --- message boxes ----------------------------------------------------------------------

    void messageBox_data()
    {
        QTest::addColumn<Prompter::Buttons>("buttons");
        QTest::addColumn<Prompter::Icon>("icon");
        QTest::addColumn<Prompter::Answer>("preferred");
        QTest::addColumn<int>("shownButtons");
        QTest::addColumn<QMessageBox::Icon>("shownIcon");
        QTest::addColumn<QMessageBox::StandardButton>("shownDefault");
        QTest::addColumn<QMessageBox::StandardButton>("press"); // NoButton: Escape
        QTest::addColumn<Prompter::Answer>("answer");

        using B = Prompter::Buttons;
        using I = Prompter::Icon;
        using A = Prompter::Answer;
        const int yesNo = QMessageBox::Yes | QMessageBox::No;
        const int yesNoCancel = yesNo | QMessageBox::Cancel;
        QTest::newRow("ok with exclamation")
            << B::Ok << I::Exclamation << A::Ok << int(QMessageBox::Ok) << QMessageBox::Warning
            << QMessageBox::Ok << QMessageBox::Ok << A::Ok;
        QTest::newRow("ok closed with escape")
            << B::Ok << I::None << A::Ok << int(QMessageBox::Ok) << QMessageBox::NoIcon
            << QMessageBox::Ok << QMessageBox::NoButton << A::Ok;
        QTest::newRow("yes/no answered yes")
            << B::YesNo << I::Question << A::Yes << yesNo << QMessageBox::Question
            << QMessageBox::Yes << QMessageBox::Yes << A::Yes;
        QTest::newRow("yes/no answered no, no preferred")
            << B::YesNo << I::Information << A::No << yesNo << QMessageBox::Information
            << QMessageBox::No << QMessageBox::No << A::No;
        QTest::newRow("yes/no escaped is no")
            << B::YesNo << I::Question << A::Yes << yesNo << QMessageBox::Question
            << QMessageBox::Yes << QMessageBox::NoButton << A::No;
        QTest::newRow("yes/no/cancel answered cancel")
            << B::YesNoCancel << I::Critical << A::Yes << yesNoCancel << QMessageBox::Critical
            << QMessageBox::Yes << QMessageBox::Cancel << A::Cancel;
        QTest::newRow("yes/no/cancel answered no")
            << B::YesNoCancel << I::Question << A::Cancel << yesNoCancel << QMessageBox::Question
            << QMessageBox::Cancel << QMessageBox::No << A::No;
        QTest::newRow("yes/no/cancel escaped is cancel")
            << B::YesNoCancel << I::Exclamation << A::No << yesNoCancel << QMessageBox::Warning
            << QMessageBox::No << QMessageBox::NoButton << A::Cancel;
    }
    void messageBox()
    {
        QFETCH(Prompter::Buttons, buttons);
        QFETCH(Prompter::Icon, icon);
        QFETCH(Prompter::Answer, preferred);
        QFETCH(int, shownButtons);
        QFETCH(QMessageBox::Icon, shownIcon);
        QFETCH(QMessageBox::StandardButton, shownDefault);
        QFETCH(QMessageBox::StandardButton, press);
        QFETCH(Prompter::Answer, answer);

        const QString title = QStringLiteral("WARNING - SYSTEM'S RAM BELOW REQUIREMENTS");
        QString seenTitle, seenText;
        int seenButtons = 0;
        QMessageBox::Icon seenIcon = QMessageBox::NoIcon;
        QMessageBox::StandardButton seenDefault = QMessageBox::NoButton;
        Qt::WindowModality seenModality = Qt::NonModal;
        Qt::TextFormat seenFormat = Qt::AutoText;
        ModalDriver<QMessageBox> driver([&](QMessageBox* box) {
            seenTitle = box->windowTitle();
            if (auto* label = box->findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))) {
                seenText = label->text();
                seenFormat = label->textFormat();
            }
            seenButtons = int(box->standardButtons());
            seenIcon = box->icon();
            seenDefault = box->defaultButton() ? box->standardButton(box->defaultButton())
                                               : QMessageBox::NoButton;
            seenModality = box->windowModality();
            if (press == QMessageBox::NoButton)
                QTest::keyClick(box, Qt::Key_Escape);
            else
                box->button(press)->click();
        });

        QtPrompter prompter;
        const Prompter::Answer got = prompter.message(
            title, QStringLiteral("A,\r\nB\rC  D\n<b>not bold</b>"), buttons, icon, preferred);
        QVERIFY(driver.seen());
        QCOMPARE(seenTitle, title);
        QCOMPARE(seenFormat, Qt::PlainText);
        QCOMPARE(seenText, QStringLiteral("A,\nB\nC  D\n<b>not bold</b>"));
        QCOMPARE(seenButtons, shownButtons);
        QCOMPARE(seenIcon, shownIcon);
        QCOMPARE(seenDefault, shownDefault);
        QCOMPARE(seenModality, Qt::ApplicationModal);
        QCOMPARE(got, answer);
    }

    void messageBoxIsParentedToActiveWindow()
    {
        QWidget main;
        main.setWindowTitle(QStringLiteral("owner"));
        main.show();
        QApplication::setActiveWindow(&main);
        QTRY_COMPARE(QApplication::activeWindow(), &main);
        QWidget* parent = nullptr;
        ModalDriver<QMessageBox> driver([&](QMessageBox* box) {
            parent = box->parentWidget();
            box->button(QMessageBox::Ok)->click();
        });
        QtPrompter().message(QStringLiteral("T"), QStringLiteral("X"));
        QVERIFY(driver.seen());
        QCOMPARE(parent, &main);
    }

    // --- input box --------------------------------------------------------------------------

    void inputBox_data()
    {
        QTest::addColumn<bool>("accept");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("answered");
        QTest::newRow("accepted as offered") << true << QString() << true;
        QTest::newRow("accepted after typing") << true << QStringLiteral("BATCH 12 \"A\"") << true;
        QTest::newRow("typed then cancelled") << false << QStringLiteral("IGNORED") << false;
    }
    void inputBox()
    {
        QFETCH(bool, accept);
        QFETCH(QString, typed);
        QFETCH(bool, answered);
        const QString offered = QStringLiteral("LINE 1");
        QString seenTitle, seenLabel, seenValue;
        ModalDriver<QInputDialog> driver([&](QInputDialog* dialog) {
            seenTitle = dialog->windowTitle();
            seenLabel = dialog->labelText();
            seenValue = dialog->textValue();
            if (!typed.isEmpty())
                dialog->setTextValue(typed);
            accept ? static_cast<QDialog*>(dialog)->accept() : dialog->reject();
        });
        const auto result = QtPrompter().inputBox(
            QStringLiteral("ENTER TEXT\r\nTO STAMP"), QStringLiteral("TEXT STAMP"), offered);
        QVERIFY(driver.seen());
        QCOMPARE(seenTitle, QStringLiteral("TEXT STAMP"));
        QCOMPARE(seenLabel, QStringLiteral("ENTER TEXT\nTO STAMP"));
        QCOMPARE(seenValue, offered);
        QCOMPARE(result.has_value(), answered);
        if (answered)
            QCOMPARE(*result, typed.isEmpty() ? offered : typed);
    }

    // --- file choosers ----------------------------------------------------------------------

    void nameFilters_data()
    {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QStringList>("expected");
        const QString all = QStringLiteral("All files (*)");
        QTest::newRow("text") << "*.txt" << QStringList { "Text files (*.txt)", all };
        QTest::newRow("plot") << "*.rec" << QStringList { "Plot files (*.rec)", all };
        QTest::newRow("unknown") << "*.abc" << QStringList { "ABC files (*.abc)", all };
        QTest::newRow("two patterns")
            << "*.txt;*.dat" << QStringList { "Text files (*.txt *.dat)", all };
        QTest::newRow("described") << "Logs (*.log)" << QStringList { "Logs (*.log)", all };
        QTest::newRow("a choice of formats, no catch-all")
            << "PNG image (*.png);;PDF document (*.pdf)"
            << QStringList { "PNG image (*.png)", "PDF document (*.pdf)" };
        QTest::newRow("empty") << "" << QStringList { all };
        QTest::newRow("star dot star") << "*.*" << QStringList { all };
    }
    void nameFilters()
    {
        QFETCH(QString, filter);
        QFETCH(QStringList, expected);
        QCOMPARE(QtPrompter::nameFilters(filter), expected);
    }

    void fileChooser_data()
    {
        QTest::addColumn<bool>("save");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("accept");
        QTest::addColumn<QString>("expected"); // relative to the directory; empty: nothing chosen
        QTest::newRow("save: extension added") << true << "RUN 1" << true << "RUN 1.txt";
        QTest::newRow("save: extension kept") << true << "RUN.txt" << true << "RUN.txt";
        QTest::newRow("save: other extension kept") << true << "RUN.dat" << true << "RUN.dat";
        QTest::newRow("save: cancelled") << true << "RUN" << false << "";
        QTest::newRow("open: an existing file") << false << "OLD RUN.txt" << true << "OLD RUN.txt";
    }
    void fileChooser()
    {
        QFETCH(bool, save);
        QFETCH(QString, typed);
        QFETCH(bool, accept);
        QFETCH(QString, expected);
        QTemporaryDir dir;
        QFile existing(QDir(dir.path()).filePath(QStringLiteral("OLD RUN.txt")));
        QVERIFY(existing.open(QIODevice::WriteOnly));
        existing.close();
        QString seenTitle, seenDirectory;
        QStringList seenFilters;
        bool modeRight = false;
        bool nonNative = false;
        ModalDriver<QFileDialog> driver([&](QFileDialog* dialog) {
            seenTitle = dialog->windowTitle();
            seenDirectory = dialog->directory().absolutePath();
            seenFilters = dialog->nameFilters();
            modeRight = save ? dialog->acceptMode() == QFileDialog::AcceptSave
                             : dialog->acceptMode() == QFileDialog::AcceptOpen
                    && dialog->fileMode() == QFileDialog::ExistingFile;
            nonNative = dialog->testOption(QFileDialog::DontUseNativeDialog);
            typeFileName(dialog, typed);
            accept ? static_cast<QDialog*>(dialog)->accept() : dialog->reject();
        });
        Prompter::FileChoice choice;
        choice.title = QStringLiteral("SAVE DATA POINTS");
        choice.filter = QStringLiteral("*.txt");
        choice.defaultExtension = QStringLiteral("txt");
        choice.directory = dir.path();
        const QString chosen
            = save ? QtPrompter().saveFileName(choice) : QtPrompter().openFileName(choice);
        QVERIFY(driver.seen());
        QCOMPARE(seenTitle, choice.title);
        QCOMPARE(seenDirectory, QDir(dir.path()).absolutePath());
        QCOMPARE(seenFilters, QtPrompter::nameFilters(choice.filter));
        QVERIFY(modeRight);
        QVERIFY(nonNative);
        QCOMPARE(chosen, expected.isEmpty() ? QString() : QDir(dir.path()).filePath(expected));
    }

    // The chosen format's extension goes on a name typed without one.
    void saveFileNameFollowsTheChosenFilter_data()
    {
        QTest::addColumn<int>("filter");
        QTest::addColumn<QString>("expected");
        QTest::newRow("first, the default") << 0 << "Chart.png";
        QTest::newRow("second") << 1 << "Chart.pdf";
        QTest::newRow("third") << 2 << "Chart.svg";
    }
    void saveFileNameFollowsTheChosenFilter()
    {
        QFETCH(int, filter);
        QFETCH(QString, expected);
        QTemporaryDir dir;
        ModalDriver<QFileDialog> driver([&](QFileDialog* dialog) {
            const QStringList filters = dialog->nameFilters();
            dialog->selectNameFilter(filters.value(filter));
            // The operator's choice, as the dialog's filter box reports it.
            emit dialog->filterSelected(filters.value(filter));
            typeFileName(dialog, QStringLiteral("Chart"));
            static_cast<QDialog*>(dialog)->accept();
        });
        Prompter::FileChoice choice { QStringLiteral("EXPORT CHART"),
            QStringLiteral("PNG image (*.png);;PDF document (*.pdf);;SVG drawing (*.svg)"),
            QStringLiteral("png"), dir.path(), {} };
        QCOMPARE(QtPrompter().saveFileName(choice), QDir(dir.path()).filePath(expected));
        QVERIFY(driver.seen());
    }

    // --- beeper -----------------------------------------------------------------------------

    void toneIsPcmWave()
    {
        const QByteArray wav = QtBeeper::toneWav();
        const int samples = 44100 * 120 / 1000;
        QCOMPARE(wav.size(), 44 + samples * 2);
        QCOMPARE(wav.left(4), QByteArray("RIFF"));
        QCOMPARE(u32(wav, 4), quint32(wav.size() - 8));
        QCOMPARE(wav.mid(8, 8), QByteArray("WAVEfmt "));
        QCOMPARE(u32(wav, 16), 16u);
        QCOMPARE(u16(wav, 20), quint16(1)); // PCM
        QCOMPARE(u16(wav, 22), quint16(1)); // mono
        QCOMPARE(u32(wav, 24), 44100u);
        QCOMPARE(u32(wav, 28), 88200u);
        QCOMPARE(u16(wav, 32), quint16(2));
        QCOMPARE(u16(wav, 34), quint16(16));
        QCOMPARE(wav.mid(36, 4), QByteArray("data"));
        QCOMPARE(u32(wav, 40), quint32(samples * 2));
    }

    void toneFadesInAndOut()
    {
        const QByteArray wav = QtBeeper::toneWav();
        const int samples = (wav.size() - 44) / 2;
        auto peak = [&](int from, int to) {
            int result = 0;
            for (int i = from; i < to; ++i)
                result = qMax(result, qAbs(int(qint16(u16(wav, 44 + 2 * i)))));
            return result;
        };
        const int fade = 44100 * 5 / 1000;
        QCOMPARE(peak(0, 1), 0);
        QVERIFY(peak(0, 20) < 2000);
        QVERIFY(peak(samples - 20, samples) < 2000);
        const int middle = peak(fade, samples - fade);
        QVERIFY2(middle > 15000 && middle < 32767, qPrintable(QString::number(middle)));
    }

    void beeperWritesToneAndNeverQueues()
    {
        QtBeeper beeper;
        QVERIFY(!beeper.toneFile().isEmpty());
        QFile file(beeper.toneFile());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QtBeeper::toneWav());

        QCOMPARE(beeper.lastRoute(), QtBeeper::Route::None);
        beeper.beep();
        if (!beeper.toneAvailable()) {
            QCOMPARE(beeper.lastRoute(), QtBeeper::Route::SystemBell);
            return;
        }
        QCOMPARE(beeper.lastRoute(), QtBeeper::Route::Tone);
        beeper.beep();
        QVERIFY(beeper.lastRoute() != QtBeeper::Route::SystemBell);
    }

    // --- splash -----------------------------------------------------------------------------

    void splashShowsNameAndTimers()
    {
        SplashWindow splash;
        QCOMPARE(splash.objectName(), QStringLiteral("frmSplash"));
        QVERIFY(splash.windowFlags() & Qt::FramelessWindowHint);
        auto text = [&](const char* name) {
            auto* label = splash.findChild<QLabel*>(QLatin1String(name));
            return label ? label->text() : QStringLiteral("<missing>");
        };
        QCOMPARE(text("lblTitle"), QStringLiteral("TALAVEX"));
        QCOMPARE(text("lblSubtitle"),
            QStringLiteral("INFRARED TEMPERATURE MEASUREMENT AND DATA LOGGING PROGRAM"));
        QCOMPARE(text("lblVersion"), QStringLiteral("V1.1"));
        auto* blink = splash.findChild<QTimer*>(QStringLiteral("tmrBlink"));
        auto* title = splash.findChild<QTimer*>(QStringLiteral("tmrTitle"));
        QVERIFY(blink && title);
        QCOMPARE(blink->interval(), 400);
        QCOMPARE(title->interval(), 100);

        splash.start();
        QVERIFY(blink->isActive() && title->isActive());
        const QRect screen = splash.screen()->availableGeometry();
        QVERIFY(qAbs(splash.frameGeometry().center().x() - screen.center().x()) <= 1);
        QVERIFY(qAbs(splash.frameGeometry().center().y() - screen.center().y()) <= 1);
    }

    void splashBlinks_data()
    {
        QTest::addColumn<bool>("stayOpen");
        QTest::addColumn<int>("finishedAfter14");
        QTest::newRow("start-up") << false << 1;
        QTest::newRow("opened from the menu") << true << 0;
    }
    void splashBlinks()
    {
        QFETCH(bool, stayOpen);
        QFETCH(int, finishedAfter14);
        SplashWindow splash;
        splash.setStayOpen(stayOpen);
        QSignalSpy finished(&splash, &SplashWindow::finished);
        splash.start();
        auto* title = splash.findChild<QLabel*>(QStringLiteral("lblTitle"));
        for (int tick = 1; tick < SplashWindow::BlinkTicks; ++tick) {
            splash.tmrBlink_Timer();
            QCOMPARE(title->isVisible(), tick % 2 == 0);
        }
        QCOMPARE(finished.count(), 0);
        splash.tmrBlink_Timer();
        QCOMPARE(finished.count(), finishedAfter14);
        QVERIFY(title->isVisible());
        QVERIFY(!splash.findChild<QTimer*>(QStringLiteral("tmrBlink"))->isActive());
        splash.tmrBlink_Timer();
        QCOMPARE(finished.count(), finishedAfter14);
        QCOMPARE(splash.isVisible(), true); // the owner, not the splash, hides it
    }

    void splashFinishesOnItsOwnTimer()
    {
        SplashWindow splash;
        splash.setBlinkInterval(5);
        QSignalSpy finished(&splash, &SplashWindow::finished);
        splash.start();
        QVERIFY(finished.wait(10000));
        QCOMPARE(splash.ticks(), SplashWindow::BlinkTicks);
        QCOMPARE(finished.count(), 1);
    }

    void splashEndsEarly_data()
    {
        QTest::addColumn<QString>("how");
        QTest::addColumn<bool>("stayOpen");
        QTest::newRow("click on the window") << "click" << false;
        QTest::newRow("click on the subtitle") << "label" << false;
        QTest::newRow("key press") << "key" << false;
        QTest::newRow("closed") << "close" << false;
        QTest::newRow("click when opened from the menu") << "click" << true;
        QTest::newRow("closed when opened from the menu") << "close" << true;
    }
    void splashEndsEarly()
    {
        QFETCH(QString, how);
        QFETCH(bool, stayOpen);
        SplashWindow splash;
        splash.setStayOpen(stayOpen);
        QSignalSpy finished(&splash, &SplashWindow::finished);
        splash.start();
        splash.tmrBlink_Timer();
        splash.tmrBlink_Timer();
        if (how == QLatin1String("click"))
            QTest::mouseClick(&splash, Qt::LeftButton, {}, QPoint(10, 10));
        else if (how == QLatin1String("label"))
            QTest::mouseClick(
                splash.findChild<QLabel*>(QStringLiteral("lblSubtitle")), Qt::LeftButton);
        else if (how == QLatin1String("key"))
            QTest::keyClick(&splash, Qt::Key_Space);
        else
            splash.close();
        QCOMPARE(finished.count(), 1);
        QCOMPARE(splash.ticks(), 2);
        QVERIFY(!splash.findChild<QTimer*>(QStringLiteral("tmrBlink"))->isActive());
        QVERIFY(!splash.findChild<QTimer*>(QStringLiteral("tmrTitle"))->isActive());
    }

    void splashCanRunAgain()
    {
        SplashWindow splash;
        QSignalSpy finished(&splash, &SplashWindow::finished);
        splash.start();
        splash.finish();
        splash.setStayOpen(true);
        splash.start();
        QCOMPARE(splash.ticks(), 0);
        QVERIFY(!splash.isFinished());
        QTest::mouseClick(&splash, Qt::LeftButton);
        QCOMPARE(finished.count(), 2);
    }

    void logoDrawsBeamAndMoves()
    {
        const QImage first = logoImage(0);
        int red = 0;
        for (int y = 0; y < first.height(); ++y) {
            for (int x = 0; x < first.width(); ++x) {
                const QColor c = first.pixelColor(x, y);
                if (c.alpha() > 200 && c.red() > 180 && c.green() < 110 && c.blue() < 110)
                    ++red;
            }
        }
        QVERIFY2(red > 100, qPrintable(QString::number(red)));
        QVERIFY(logoImage(3) != first);
        QCOMPARE(logoImage(0), first);
    }
};
TALAVEX_TEST(TestAdapters)
#include "TestAdapters.moc"
