#include "support/BarPaint.h"
#include "support/ModalDriver.h"
#include "support/TestRegistry.h"
#include "support/WindowRig.h"

#include "ui/ControlTesterDialog.h"
#include "ui/DemoWindowHost.h"
#include "ui/SplashWindow.h"
#include "ui/SystemStatusWindow.h"
#include "ui/TempBarWidget.h"
#include "ui/TempBarWindow.h"
#include "ui/TempBarWindowHost.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QSlider>
#include <QTest>

// The demo menu on the real main window: the control tester beside the bar, and the splash.
class TestDemoGui : public QObject {
    Q_OBJECT

private slots:
    void controlTesterFromTheMenuMovesTheBar()
    {
        WindowRig f;
        Application& app = f.rig.app();
        const double column = TempBar::IndicatorLeft + TempBar::IndicatorWidth / 2.0;
        QColor before, green, cyan;
        int topAt75 = 0;
        QString reading;
        bool besideTheBar = false;
        bool statusShown = false;
        ModalDriver<ControlTesterDialog> driver([&](ControlTesterDialog* tester) {
            TempBarWindow* barWindow = f.window.tempBarWindows()->window();
            TempBarWidget* bar = barWindow->barWidget();
            statusShown
                = f.window.systemStatusWindow() && f.window.systemStatusWindow()->isVisible();
            besideTheBar = !tester->frameGeometry().intersects(barWindow->frameGeometry());
            before = barpaint::paintedAt(*bar, column, 2000);

            auto* slider = tester->findChild<QSlider*>("sldReading");
            slider->setValue(75);
            QCoreApplication::processEvents();
            topAt75 = app.bar.indicatorTop();
            reading = tester->findChild<QLabel*>("lblReading")->text();
            green = barpaint::paintedAt(*bar, column, 2000);

            tester->findChild<QCheckBox*>("chkAlarmLimits")->click();
            QCoreApplication::processEvents();
            cyan = barpaint::paintedAt(*bar, column, 2000);

            tester->findChild<QPushButton*>("cmdScanForIrSystem")->click();
            QCoreApplication::processEvents();
            tester->findChild<QPushButton*>("cmdClose")->click();
        });
        f.trigger("mnuControlTester");

        QVERIFY(driver.seen());
        QVERIFY(statusShown);
        QVERIFY(besideTheBar);
        QVERIFY(f.action("mnuViewTempBar")->isChecked());
        QVERIFY(barpaint::near(before, QColor(Qt::black)));
        QCOMPARE(topAt75, TempBar::BarBottom - TempBar::FullHeight * 3 / 4);
        QCOMPARE(reading, QStringLiteral("READING: 75"));
        QVERIFY(barpaint::near(green, QColor(Qt::green)));
        QVERIFY(barpaint::near(cyan, QColor(Qt::cyan)));
        // Closed: the bar empty with its alarm colours back, the display idle.
        QVERIFY(app.bar.IsAlarmOn());
        QCOMPARE(app.bar.indicatorHeight(), 0);
        QCOMPARE(app.irSystem.GetCurrentState(), qint16(IRSystem::Idle));
        QCOMPARE(f.rig.port.openCount, 0);
    }

    void splashFromTheMenuStaysUntilClicked()
    {
        WindowRig f;
        f.trigger("mnuSplash");
        QPointer<SplashWindow> splash = f.window.demoWindows()->splash();
        QVERIFY(splash && splash->isVisible());
        QVERIFY(splash->stayOpen());
        for (int tick = 0; tick < SplashWindow::BlinkTicks + 3; ++tick)
            splash->tmrBlink_Timer();
        QVERIFY(splash->isVisible());
        QTest::mouseClick(splash, Qt::LeftButton);
        QVERIFY(!splash->isVisible());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(splash.isNull());
        QVERIFY(f.window.isVisible());
    }
};

TALAVEX_TEST(TestDemoGui)
#include "TestDemoGui.moc"
