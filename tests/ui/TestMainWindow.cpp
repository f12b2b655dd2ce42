#include "support/BarPaint.h"
#include "support/ModalDriver.h"
#include "support/ParametersRig.h"
#include "support/TestRegistry.h"
#include "support/WindowRig.h"

#include "app/SettingsFileIO.h"
#include "base/ViewModel.h"
#include "ui/ControlTesterDialog.h"
#include "ui/DemoWindowHost.h"
#include "ui/IRSystemWidget.h"
#include "ui/ModelBinder.h"
#include "ui/ProgramParametersDialog.h"
#include "ui/QtSerialPort.h"
#include "ui/SplashWindow.h"
#include "ui/StoredPointsWindow.h"
#include "ui/SystemStatusWindow.h"
#include "ui/TempBarSettingsDialog.h"
#include "ui/TempBarWindow.h"
#include "ui/TempBarWindowHost.h"

#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QSlider>

// The main window and the windows it opens, and the binding of models to windows.
class TestMainWindow : public QObject {
    Q_OBJECT
private slots:
    void checkableCommandsByKeyboard_data()
    {
        QTest::addColumn<QString>("name");
        WindowRig f;
        for (QAction* a : f.window.findChildren<QAction*>())
            if (a->isCheckable())
                QTest::newRow(qPrintable(a->objectName())) << a->objectName();
    }
    // A command chosen by keyboard leaves the check mark a click leaves, and the model's.
    void checkableCommandsByKeyboard()
    {
        QFETCH(QString, name);
        const QByteArray command = name.toLatin1();
        WindowRig byClick;
        WindowRig byKey; // the active window
        byKey.chooseByKeyboard(byKey.find(command));
        byClick.trigger(command);
        QCOMPARE(byKey.find(command)->isChecked(), byClick.find(command)->isChecked());
        QCOMPARE(byKey.find(command)->isChecked(), byKey.app.main.control(name)->checked());
    }
    // Sensing from the menu; the status window goes at the first character; closing saves settings.
    void sensingFromTheMenu()
    {
        WindowRig f;
        f.trigger("mnuViewSystemStatus");
        QVERIFY(f.window.systemStatusWindow()->isVisible() && f.app.state.SystemStatusVisible);
        f.trigger("mnuSenseTemperature");
        QVERIFY(f.find("mnuSenseTemperature")->isChecked() && f.port.isOpen());
        QVERIFY(!f.find<QMenu>("mnuFile")->menuAction()->isEnabled());
        f.feed(WindowRig::parameters() + "  90\x07");
        QVERIFY(!f.window.systemStatusWindow()->isVisible() && !f.app.state.SystemStatusVisible);
        QVERIFY(!f.find("mnuViewSystemStatus")->isChecked());
        auto* reading = f.find<QLabel>("lblCurrentTemp");
        QTRY_COMPARE(reading->text(), QStringLiteral("90"));
        QCOMPARE(reading->palette().color(QPalette::WindowText), QColor(Qt::red));
        f.trigger("mnuSenseTemperature");
        QVERIFY(!f.find("mnuSenseTemperature")->isChecked() && !f.port.isOpen());
        QVERIFY(f.find<QMenu>("mnuFile")->menuAction()->isEnabled() && reading->text().isEmpty());
        const QString settings = f.dir.filePath(QString::fromLatin1(SettingsFileIO::FileName));
        QVERIFY(!QFile::exists(settings));
        f.window.close();
        QVERIFY(QFile::exists(settings));
    }
    // The download window collects the readings; closing it ends the download mode.
    void downloadWindow()
    {
        WindowRig f;
        f.trigger("mnuDownloadData");
        StoredPointsWindow* window = f.window.storedPointsWindow();
        auto* start = f.find<QPushButton>("cmdStartDownload", window);
        start->click();
        QCOMPARE(start->text(), QStringLiteral("STOP RECEIVING"));
        f.feed("#001   75   DEG F\x07\x07");
        QCOMPARE(f.find<QPlainTextEdit>("txtDataPointsDisplay", window)->toPlainText(),
            QStringLiteral("\n\t#001\t75\tDEG F\n\nEMPTY LOCATION - NO DATA.\n"));
        start->click(); // stopped, its readings can be saved: each button asks where
        for (const char* save : { "cmdSaveToTxtFile", "cmdSaveToExcel" })
            f.find<QPushButton>(save, window)->click();
        QStringList asked;
        for (const auto& shown : f.prompter.shown)
            asked << shown.kind + ' ' + shown.choice.filter;
        QCOMPARE(asked, QStringList({ "save *.txt", "save *.xlsx" }));
        window->close();
        QCoreApplication::processEvents();
        QVERIFY(!f.find("mnuDownloadData")->isChecked() && !f.port.isOpen());
        QVERIFY(f.find("mnuSenseTemperature")->isEnabled());
    }
    // Readings fill the bar's column and bulb, or leave the bulb an empty outline; a refusal in
    // its settings puts the focus back at once; Enter accepts; closing the window stops its feed.
    void barWindow()
    {
        WindowRig f;
        f.trigger("mnuViewTempBar");
        TempBarWindow* bar = f.window.tempBarWindows()->window();
        QVERIFY(bar->isVisible() && f.find("mnuViewTempBar")->isChecked());
        bar->resize(400, 900);
        TempBarWidget& widget = *bar->barWidget();
        using barpaint::shows;
        // Low in the bulb, below the column's foot; the bulb's left edge.
        const double inBulb = TempBar::BarBottom + 240, edge = barpaint::Column - 205;
        const QColor outline = barpaint::paintedAt(widget, edge, TempBar::BarBottom + 80);
        QVERIFY(shows(widget, inBulb, Qt::black) && !barpaint::near(outline, QColor(Qt::black)));
        f.trigger("mnuSenseTemperature");
        f.feed(WindowRig::parameters() + "  50\x07");
        // 50 of 0..100: green up to the middle and in the bulb, the dark tube above.
        QVERIFY(shows(widget, inBulb, Qt::green) && shows(widget, 3000, Qt::green));
        QVERIFY(shows(widget, 1500, Qt::black));
        f.feed("  95\x07");
        QVERIFY(shows(widget, 1500, Qt::red));
        f.feed("  -5\x07");
        QVERIFY(shows(widget, inBulb, Qt::black));
        QCOMPARE(barpaint::paintedAt(widget, edge, TempBar::BarBottom + 80), outline);
        QString focused;
        ModalDriver<TempBarSettingsDialog> driver([&](TempBarSettingsDialog* dialog) {
            auto edit = [&](const char* name, const char* text) {
                auto* box = f.find<QLineEdit>(name, dialog);
                box->setText(QString::fromLatin1(text));
                emit box->textEdited(box->text());
                return box;
            };
            edit("txtLowLimit", "cold");
            f.find<QPushButton>("cmdAccept", dialog)->click();
            if (dialog->isVisible() && dialog->focusWidget())
                focused = dialog->focusWidget()->objectName();
            edit("txtLowLimit", "25");
            QTest::keyClick(edit("txtMaxTemp", "250"), Qt::Key_Return);
        });
        f.trigger("mnuConfigure", bar);
        QCOMPARE(f.prompter.titles(), QStringList({ "HIGH ALARM LIMIT ERROR" }));
        QCOMPARE(focused, QStringLiteral("txtLowLimit"));
        QCOMPARE(f.app.state.SettingsValues.tempBarMax.text, QStringLiteral("250"));
        bar->close();
        QCoreApplication::processEvents();
        QVERIFY(!f.app.state.TempBarVisible && !f.find("mnuViewTempBar")->isChecked());
        const int top = f.app.bar.indicatorTop();
        f.feed("  20\x07");
        QCOMPARE(f.app.bar.indicatorTop(), top);
    }
    // DEMO CONTROLS: the control tester, beside the bar, moves it; closed, it leaves the bar empty
    // with its alarm colours and the line unopened. The splash stays until clicked, then goes.
    void demoControls()
    {
        WindowRig f;
        QList<bool> seen;
        ModalDriver<ControlTesterDialog> driver([&](ControlTesterDialog* tester) {
            TempBarWindow* bar = f.window.tempBarWindows()->window();
            auto paints
                = [&](Qt::GlobalColor c) { return barpaint::shows(*bar->barWidget(), 2000, c); };
            seen << f.window.systemStatusWindow()->isVisible()
                 << !tester->frameGeometry().intersects(bar->frameGeometry()) << paints(Qt::black);
            f.find<QSlider>("sldReading", tester)->setValue(75);
            QCoreApplication::processEvents();
            seen << (f.app.bar.indicatorTop() == TempBar::BarBottom - TempBar::FullHeight * 3 / 4)
                 << paints(Qt::green);
            f.find<QCheckBox>("chkAlarmLimits", tester)->click();
            seen << paints(Qt::cyan);
            f.find<QPushButton>("cmdClose", tester)->click();
        });
        f.trigger("mnuControlTester");
        QCOMPARE(seen, QList<bool>(6, true));
        QVERIFY(f.find("mnuViewTempBar")->isChecked() && f.app.bar.IsAlarmOn());
        QCOMPARE(
            QList<int>({ f.app.bar.indicatorHeight(), f.port.openCount }), QList<int>({ 0, 0 }));
        f.trigger("mnuSplash");
        QPointer<SplashWindow> splash = f.window.demoWindows()->splash();
        for (int tick = 0; tick < 2 * SplashWindow::BlinkTicks; ++tick)
            splash->tmrBlink_Timer();
        QVERIFY(splash->isVisible());
        QTest::mouseClick(splash, Qt::LeftButton);
        QVERIFY(!splash->isVisible());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(splash.isNull());
    }
    // Every link state looks different; a new state repaints all, an animation step a part.
    void everyLinkStateLooksDifferent()
    {
        IRSystem system;
        IRSystemWidget widget;
        widget.setModel(&system);
        widget.resize(320, 160);
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        PaintLog log;
        widget.installEventFilter(&log);
        QList<QImage> frames { widget.grab().toImage() };
        for (auto state : { &IRSystem::SenseTemperature, &IRSystem::ScanForIrSystem,
                 &IRSystem::DownloadIRData }) {
            QCoreApplication::processEvents();
            log.areas.clear();
            (system.*state)();
            QCoreApplication::processEvents();
            QVERIFY(log.areas.contains(320 * 160));
            system.tmrCompGraphics_Timer();
            QCoreApplication::processEvents();
            log.areas.clear();
            system.tmrCompGraphics_Timer();
            QCoreApplication::processEvents();
            QVERIFY(!log.areas.isEmpty()
                && *std::max_element(log.areas.begin(), log.areas.end()) < 320 * 160 / 2);
            QVERIFY(!frames.contains(widget.grab().toImage()));
            frames << widget.grab().toImage();
        }
    }
    // Showing picks no port; the operator's pick applies, and a typed device is bound and saved.
    void parametersDialogBindsAPort()
    {
        ParametersRig rig(&QtSerialPort::forDevice);
        ProgramParametersDialog dialog(rig.model, rig.controller);
        rig.state.CommPortNumber = 5;
        rig.port.opened = true;
        dialog.show();
        QCOMPARE(QList<int>({ rig.state.CommPortNumber, rig.port.number }), QList<int>({ 5, 1 }));
        auto* ports = dialog.findChild<QComboBox*>(QStringLiteral("comCommPort"));
        ports->setFocus();
        QTest::keyClick(ports, Qt::Key_Down);
        QCOMPARE(ports->currentText(), QStringLiteral("COM 2"));
        QCOMPARE(QList<int>({ rig.state.CommPortNumber, rig.port.number, rig.port.opened }),
            QList<int>({ 2, 2, 0 }));
        QLineEdit* device = dialog.findChild<QComboBox*>(QStringLiteral("comDevice"))->lineEdit();
        QCOMPARE(device->text(), QStringLiteral("/dev/ttyS1"));
        device->selectAll();
        QTest::keyClicks(device, QStringLiteral("/dev/ttyUSB7"));
        QTest::keyClick(device, Qt::Key_Return);
        QCOMPARE(rig.ports.device(2), QStringLiteral("/dev/ttyUSB7"));
        QCOMPARE(rig.portFile(), QByteArray("/dev/ttyS0\r\n/dev/ttyUSB7\r\n"));
        QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("cmdOK")), Qt::LeftButton);
        QVERIFY(!dialog.isVisible() && dialog.result() == QDialog::Accepted);
    }
    // A change shows the controls that changed and leaves the others alone; a change of the
    // model as a whole shows everything again. A throttled read-out shows the first change at
    // once and the newest of a quick series when its time is up, holding no other control back.
    void showsWhatChanged()
    {
        ViewModel model;
        Control reading(&model, "lblReading", "0"), status(&model, "lblStatus", "IDLE");
        QWidget view;
        QLabel* shown[] = { new QLabel(&view), new QLabel(&view) };
        shown[0]->setObjectName("lblReading");
        shown[1]->setObjectName("lblStatus");
        ModelBinder binder(model, view);
        const int throttle = 1500;
        binder.throttle({ QStringLiteral("lblReading") }, throttle);
        QCOMPARE(shown[0]->text(), QStringLiteral("0"));
        shown[0]->setText(QStringLiteral("scribbled"));
        status.setCaption(QStringLiteral("SENSING"));
        status.setForeColor(0xFF0000);
        QCoreApplication::processEvents();
        QCOMPARE(shown[1]->text() + ' ' + shown[0]->text(), QStringLiteral("SENSING scribbled"));
        QCOMPARE(shown[1]->palette().color(QPalette::WindowText), QColor(Qt::red));
        QElapsedTimer clock;
        clock.start();
        reading.setCaption(QStringLiteral("71"));
        QCoreApplication::processEvents();
        QCOMPARE(shown[0]->text(), QStringLiteral("71"));
        reading.setCaption(QStringLiteral("72"));
        QCoreApplication::processEvents();
        reading.setCaption(QStringLiteral("73"));
        status.setCaption(QStringLiteral("IDLE"));
        QCoreApplication::processEvents();
        QCOMPARE(shown[1]->text(), QStringLiteral("IDLE"));
        if (clock.elapsed() < throttle) // unless this machine took all that time to get here
            QCOMPARE(shown[0]->text(), QStringLiteral("71"));
        QTRY_COMPARE_WITH_TIMEOUT(shown[0]->text(), QStringLiteral("73"), 10000);
        shown[0]->setText(QStringLiteral("scribbled"));
        model.markDirty();
        QCoreApplication::processEvents();
        QCOMPARE(shown[0]->text(), QStringLiteral("73"));
    }
};
TALAVEX_TEST(TestMainWindow)
#include "TestMainWindow.moc"
