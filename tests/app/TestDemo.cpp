#include "app/DemoWindows.h"
#include "support/AppRig.h"
#include "support/TestRegistry.h"
#include <QDir>
#include <QTest>
#include <functional>

namespace {
// The application with the demo windows; the control tester runs a script of the operator's.
struct DemoRig : DemoWindows {
    AppRig rig;
    Application& a = rig.app();
    QStringList calls;
    std::function<void()> operate;
    DemoRig()
    {
        a.demo.setWindows(this);
        a.controlTester.setWindows(this);
        a.controller.Form_Load(); // the bar's scale 0 to 100, limits 25 and 85
    }
    void showSystemStatusWindow() override
    {
        calls << QStringLiteral("status");
        a.irSystem.reset();
        a.state.SystemStatusVisible = true;
    }
    void showControlTester() override
    {
        calls << QStringLiteral("tester");
        a.controlTester.Form_Load();
        operate();
        a.controlTester.Form_Unload();
    }
    void showSplash() override { }
    // Nothing the demo controls may touch has moved.
    void verifyUntouched()
    {
        QCOMPARE(rig.port.openCount, 0);
        QVERIFY(!a.main.mnuSenseTemperature.checked() && !a.main.mnuDownloadData.checked());
        QVERIFY(!a.chart.ChartHasPoints());
        QCOMPARE(QDir(rig.dir.path()).entryList(QDir::Files), QStringList());
    }
};
} // namespace

// The demo menu on the real application around fakes of the windows and the line.
class TestDemo : public QObject {
    Q_OBJECT
private slots:
    // The control tester: what a script shows, and all put back when it closes.
    void controlTester_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<QString>("shown"); // "what=value|..."
        auto row = [](const char* name, const char* script, const char* shown) {
            QTest::newRow(name) << QString(script) << QString(shown);
        };
        row("opened", "", "reading=READING: 0|range=SCALE 0 TO 100   LIMITS 25 / 85|alarms=1");
        row("a reading", "slide:50", "reading=READING: 50|top=2340|fill=green");
        row("indicators off", "alarms slide:50", "alarms=0|fill=cyan");
        row("held at the slider's end", "slide:500", "reading=READING: 112|blinking=1");
        row("auto-range", "auto slide:-12", "auto=1|height=0|blinking=0");
        row("degrees C", "degC", "units=2|degC=1|caption=TEMP. BAR - DEG C");
        row("and back to F", "degC slide:500 degC", "units=1|degC=0|caption=GRAPH SATURATED");
        row("clear", "slide:50 clear", "height=0|reading=READING: 0");
        row("clear opens a closed bar", "hidebar clear", "barShown=1");
        row("scan from idle", "scan", "current=STATE: 2 - SCANNING|old=OLD STATE: 0 - IDLE");
        row("scan then sense", "scan sense", "old=OLD STATE: 2 - SCANNING  (CHANGED)");
        row("sense, receive, back", "sense download reset",
            "current=STATE: 1 - SENSING|old=OLD STATE: 1 - SENSING");
        row("idle", "scan idle", "current=STATE: 0 - IDLE");
        row("idle keeps the old state", "download scan idle reset",
            "current=STATE: 3 - RECEIVING|old=OLD STATE: 3 - RECEIVING");
        row("a closed status window opens again", "hidestatus sense",
            "current=STATE: 1 - SENSING|calls=status,tester,status");
    }
    void controlTester()
    {
        QFETCH(QString, script);
        QFETCH(QString, shown);
        DemoRig d;
        Application& a = d.a;
        const auto settings = a.state.SettingsValues.lines();
        bool ran = false;
        d.operate = [&] {
            ControlTesterController& t = a.controlTester;
            ControlTesterModel& m = a.controlTesterModel;
            auto toggle = [](Control& box, auto click) {
                return [&box, click] { box.setChecked(!box.checked()), click(); };
            };
            const QMap<QString, std::function<void()>> ops { { "clear",
                                                                 [&] { t.cmdClearTemp_Click(); } },
                { "alarms", toggle(m.chkAlarmLimits, [&] { t.chkAlarmLimits_Click(); }) },
                { "auto", toggle(m.chkAutoRange, [&] { t.chkAutoRange_Click(); }) },
                { "degC", toggle(m.chkDegC, [&] { t.chkDegC_Click(); }) },
                { "hidebar", [&] { a.tempBarWindow.mnuViewTempBar_Click(); } },
                { "hidestatus", [&] { a.state.SystemStatusVisible = false; } },
                { "scan", [&] { t.cmdScanForIrSystem_Click(); } },
                { "sense", [&] { t.cmdSenseTemperature_Click(); } },
                { "download", [&] { t.cmdDownloadIRData_Click(); } },
                { "idle", [&] { t.cmdSetToIdle_Click(); } },
                { "reset", [&] { t.cmdResetOldState_Click(); } } };
            for (const QString& op : script.split(' ', Qt::SkipEmptyParts))
                op.startsWith("slide:") ? t.sldReading_Change(op.mid(6).toInt()) : ops[op]();
            const auto n = [](auto value) { return QString::number(value); };
            const QMap<qint64, QString> colours { { TempBar::Green, "green" },
                { TempBar::Cyan, "cyan" } };
            const QStringList now { "reading=" + m.lblReading.caption(),
                "range=" + m.lblBarRange.caption(), "top=" + n(a.bar.indicatorTop()),
                "height=" + n(a.bar.indicatorHeight()),
                "fill=" + colours.value(a.bar.shpIndicator.backColor()),
                "alarms=" + n(a.bar.IsAlarmOn()), "auto=" + n(a.bar.IsAutoRangeOn()),
                "units=" + n(a.bar.unitsCode()), "degC=" + n(m.chkDegC.checked()),
                "caption=" + a.bar.lblTempBar.caption(), "blinking=" + n(a.bar.blinking()),
                "barShown=" + n(a.state.TempBarVisible), "current=" + m.lblCurrentState.caption(),
                "old=" + m.lblOldState.caption(), "calls=" + d.calls.join(',') };
            for (const QString& fact : shown.split('|', Qt::SkipEmptyParts))
                QVERIFY2(now.contains(fact), qPrintable(fact + " not in " + now.join('|')));
            ran = true;
        };
        a.demo.mnuControlTester_Click();
        QVERIFY(ran && !a.controlTester.loaded() && a.state.TempBarVisible);
        // Closed: switches and units as before, the reading cleared, the display idle.
        QVERIFY(a.bar.IsAlarmOn() && !a.bar.IsAutoRangeOn() && !a.bar.blinking());
        QVERIFY(a.bar.lblTempBar.caption() == TempBar::degFCaption() && a.bar.indicatorHeight() == 0
            && a.irSystem.GetCurrentState() == IRSystem::Idle);
        QVERIFY(a.state.SettingsValues.lines() == settings);
        d.verifyUntouched();
    }
    // The test function's sweep and its ends; refusals while acquiring; the chart's summary.
    void testFunction()
    {
        DemoRig d;
        Application& a = d.a;
        a.demo.mnuTestFunction_Click();
        QVERIFY(a.state.TempBarVisible && a.state.SystemStatusVisible);
        QStringList seen; // the caption and the link state at the step each changes
        int ticks = 0;
        for (; a.demo.sweeping() && ticks < 1000; ++ticks, a.demo.tmrSweep_Timer()) {
            const QString look
                = a.bar.lblTempBar.caption() + ' ' + QString::number(a.irSystem.GetCurrentState());
            if (seen.isEmpty() || !seen.last().startsWith(look + '@'))
                seen << look + '@' + QString::number(ticks);
        }
        QCOMPARE(ticks, DemoController::SweepSteps + 1);
        QCOMPARE(seen,
            QStringList({ "TEMP. UNDER LIMIT 2@0", "TEMP. BAR - DEG F 2@4",
                "TEMP. BAR - DEG F 1@20", "GRAPH SATURATED 1@37", "TEMP. BAR - DEG F 1@44",
                "TEMP. BAR - DEG F 3@60", "TEMP. UNDER LIMIT 3@77" }));
        // Over: the bar empty and steady, the display idle, the windows left open.
        QVERIFY(a.bar.indicatorHeight() == 0 && !a.bar.blinking() && a.state.TempBarVisible
            && a.irSystem.GetCurrentState() == IRSystem::Idle);
        d.verifyUntouched();
        a.demo.mnuTestFunction_Click(); // a second click stops it
        for (int i = 0; i < 30; ++i)
            a.demo.tmrSweep_Timer();
        a.demo.mnuTestFunction_Click();
        QVERIFY(!a.demo.sweeping() && a.bar.indicatorHeight() == 0
            && a.irSystem.GetCurrentState() == IRSystem::Idle);
        a.demo.mnuTestFunction_Click(); // closing the bar stops it
        a.tempBarWindow.mnuViewTempBar_Click();
        a.demo.tmrSweep_Timer();
        QVERIFY(!a.demo.sweeping() && !a.state.TempBarVisible);
        a.demo.mnuTestFunction_Click(); // acquisition takes the bar over, and the menus are shut
        d.rig.startSensing();
        QCoreApplication::processEvents();
        QVERIFY(!a.demo.sweeping());
        d.rig.feed(AppRig::parameterBlock("  DEG F", "1", "72") + "  50\x07");
        a.demo.tmrSweep_Timer();
        QCOMPARE(a.bar.indicatorTop(), 2340);
        QVERIFY(!a.main.mnuTestFunction.enabled() && !a.main.mnuControlTester.enabled());
        d.rig.prompter.clear();
        a.demo.mnuTestFunction_Click();
        a.demo.mnuControlTester_Click();
        QCOMPARE(d.rig.prompter.titles(), QStringList({ "DEMO CONTROLS", "DEMO CONTROLS" }));
        QVERIFY(!a.demo.sweeping() && d.calls == QStringList { "status" });
        a.acquisition.mnuStop_Click();
        QCoreApplication::processEvents();
        QVERIFY(a.main.mnuTestFunction.enabled() && a.main.mnuControlTester.enabled());
        d.rig.prompter.clear();
        a.demo.mnuSearchForIR_Click(); // the chart's readings summed up, and the mark toggled
        QVERIFY(a.main.mnuSearchForIR.checked());
        a.demo.mnuSearchForIR_Click();
        QVERIFY(!a.main.mnuSearchForIR.checked());
        QCOMPARE(d.rig.prompter.titles(), QStringList { DemoController::summaryTitle() });
    }
};
TALAVEX_TEST(TestDemo)
#include "TestDemo.moc"
