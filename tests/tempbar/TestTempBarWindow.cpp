#include "support/AppRig.h"
#include "support/TestRegistry.h"

#include "tempbar/TempBarWindows.h"

#include <QTest>

// The bar window's controller on the real application: the VIEW menu toggle, the settings
// entries it applies, and the readings the receive handler feeds it.
class TestTempBarWindow : public QObject {
    Q_OBJECT

    struct Windows : TempBarWindows {
        QStringList calls;
        void showTempBarWindow() override { calls << QStringLiteral("show"); }
        void unloadTempBarWindow() override { calls << QStringLiteral("unload"); }
        void showTempBarSettings() override { calls << QStringLiteral("settings"); }
    };

    struct Rig {
        AppRig rig;
        Windows windows;
        Application& app = rig.app();
        Rig()
        {
            app.tempBarWindow.setWindows(&windows);
            auto& v = app.state.SettingsValues;
            v.tempBarMax.text = QStringLiteral("300");
            v.tempBarMin.text = QStringLiteral("-20");
            v.highAlarmLimit.text = QStringLiteral("250");
            v.lowAlarmLimit.text = QStringLiteral("10");
            v.alarmLimitsOn.text = QStringLiteral("0");
        }
    };

private slots:
    void menuOpensAndClosesTheWindow()
    {
        Rig r;
        QVERIFY(!r.app.tempBarWindow.display());
        r.app.tempBarWindow.mnuViewTempBar_Click();
        QVERIFY(r.app.state.TempBarVisible);
        QVERIFY(r.app.main.mnuViewTempBar.checked());
        QCOMPARE(r.app.tempBarWindow.display(), static_cast<TempBarDisplay*>(&r.app.bar));
        r.app.tempBarWindow.mnuViewTempBar_Click();
        QVERIFY(!r.app.state.TempBarVisible);
        QVERIFY(!r.app.main.mnuViewTempBar.checked());
        QVERIFY(!r.app.tempBarWindow.display());
        QCOMPARE(r.windows.calls, QStringList({ "show", "unload" }));
    }

    void closingTheWindowItselfKeepsTheFlagTrue()
    {
        Rig r;
        r.app.tempBarWindow.mnuViewTempBar_Click();
        r.app.tempBarWindow.Form_Unload();
        QVERIFY(!r.app.state.TempBarVisible);
        QVERIFY(!r.app.main.mnuViewTempBar.checked());
        // Already closed: a second unload does not open it again.
        r.app.tempBarWindow.Form_Unload();
        QVERIFY(!r.app.state.TempBarVisible);
        QCOMPARE(r.windows.calls, QStringList({ "show", "unload" }));
    }

    void openingAppliesEntries11To15()
    {
        Rig r;
        qint16 reading = 200;
        r.app.bar.SetTemp(reading);
        r.app.tempBarWindow.mnuViewTempBar_Click();
        QCOMPARE(r.app.bar.GetMaxTemp(), qint16(300));
        QCOMPARE(r.app.bar.GetMinTemp(), qint16(-20));
        QCOMPARE(r.app.bar.GetHighLimit(), qint16(250));
        QCOMPARE(r.app.bar.GetLowLimit(), qint16(10));
        QVERIFY(!r.app.bar.IsAlarmOn());
        QVERIFY(!r.app.bar.imageHighLimit.visible());
        // The reading is cleared for the new window.
        QCOMPARE(r.app.bar.indicatorHeight(), 0);
    }

    void applySettingsSkipsEntry15WhileHidden()
    {
        Rig r;
        r.app.settings.ApplySettings();
        QCOMPARE(r.app.bar.GetMaxTemp(), qint16(300));
        QCOMPARE(r.app.bar.GetLowLimit(), qint16(10));
        QVERIFY(r.app.bar.IsAlarmOn());
        r.app.tempBarWindow.mnuViewTempBar_Click();
        r.app.state.SettingsValues.alarmLimitsOn.text = QStringLiteral("1");
        r.app.settings.ApplySettings();
        QVERIFY(r.app.bar.IsAlarmOn());
        r.app.state.SettingsValues.alarmLimitsOn.text = QStringLiteral("yes");
        r.app.settings.ApplySettings();
        QVERIFY(!r.app.bar.IsAlarmOn());
    }

    void entriesAreReadAsNumbers_data()
    {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<int>("max");
        QTest::newRow("plain") << "250" << 250;
        QTest::newRow("half rounds to even") << "250.5" << 250;
        QTest::newRow("numeric prefix") << "180 DEG" << 180;
        QTest::newRow("no number is 0") << "hot" << 0;
        QTest::newRow("beyond 16 bits leaves the bar") << "40000" << 100;
    }

    void entriesAreReadAsNumbers()
    {
        QFETCH(QString, entry);
        Rig r;
        r.app.state.SettingsValues.tempBarMax.text = entry;
        r.app.tempBarWindow.applySettings();
        QTEST(int(r.app.bar.GetMaxTemp()), "max");
    }

    void gatherWritesTheBar()
    {
        Rig r;
        r.app.bar.SetMaxTemp(400);
        r.app.bar.SetLowLimit(-5);
        r.app.bar.EnableAlarmLimits(false);
        r.app.tempBarWindow.gatherSettings();
        const auto& v = r.app.state.SettingsValues;
        QCOMPARE(QStringList({ v.line(11), v.line(12), v.line(13), v.line(14), v.line(15) }),
            QStringList({ "400", "0", "85", "-5", "0" }));
    }

    void receiveHandlerFeedsTheOpenBar()
    {
        Rig r;
        r.app.tempBarWindow.mnuViewTempBar_Click();
        r.rig.startSensing();
        r.rig.feed(AppRig::parameterBlock("  DEG C", "1", "72") + "  140\x07");
        QCOMPARE(r.app.bar.lblTempBar.caption(), QStringLiteral("TEMP. BAR - DEG C"));
        // 160 of 320 degrees: half way up
        QCOMPARE(r.app.bar.indicatorTop(), 2340);
        QCOMPARE(r.app.bar.shpIndicator.backColor(), TempBar::Cyan);
        r.rig.feed("  350\x07");
        QCOMPARE(r.app.bar.lblTempBar.caption(), QStringLiteral("GRAPH SATURATED"));
        QVERIFY(r.app.bar.blinking());
        r.rig.feed("  abc\x07");
        QCOMPARE(r.app.bar.indicatorHeight(), 0);
        QVERIFY(!r.app.bar.blinking());
    }

    void stopClearsTheOpenBar()
    {
        Rig r;
        r.app.tempBarWindow.mnuViewTempBar_Click();
        r.rig.startSensing();
        r.rig.feed(AppRig::parameterBlock("  DEG F", "1", "72") + "  -30\x07");
        QVERIFY(r.app.bar.blinking());
        QCOMPARE(r.app.bar.lblTempBar.caption(), QStringLiteral("TEMP. UNDER LIMIT"));
        r.rig.feed("  290\x07");
        QVERIFY(r.app.bar.indicatorHeight() > 0);
        r.app.acquisition.mnuStop_Click();
        QCOMPARE(r.app.bar.indicatorHeight(), 0);
        QCOMPARE(r.app.bar.lblTempBar.caption(), QStringLiteral("TEMP. BAR - DEG F"));
    }

    void closedBarHearsNothing()
    {
        Rig r;
        r.rig.startSensing();
        r.rig.feed(AppRig::parameterBlock("  DEG C", "1", "72") + "  140\x07");
        QCOMPARE(r.app.bar.lblTempBar.caption(), QStringLiteral("TEMP. BAR - DEG F"));
        QCOMPARE(r.app.bar.indicatorHeight(), 0);
        // Opening takes the units of the last parameter block.
        r.app.tempBarWindow.mnuViewTempBar_Click();
        QCOMPARE(r.app.bar.lblTempBar.caption(), QStringLiteral("TEMP. BAR - DEG C"));
    }
};

TALAVEX_TEST(TestTempBarWindow)
#include "TestTempBarWindow.moc"
