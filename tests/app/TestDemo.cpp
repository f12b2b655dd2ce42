#include "support/AppRig.h"
#include "support/TestRegistry.h"

#include "app/ControlTesterController.h"
#include "app/ControlTesterModel.h"
#include "app/DemoController.h"
#include "app/DemoWindows.h"

#include <QDir>
#include <QSet>
#include <QTest>
#include <functional>

namespace {

// Stands in for the demo windows: the status window marks itself shown as the real one does,
// and the control tester runs a script in place of the operator.
class FakeDemoWindows : public DemoWindows {
public:
    explicit FakeDemoWindows(Application& app)
        : app_(app)
    {
    }
    void showSystemStatusWindow() override
    {
        calls << QStringLiteral("status");
        app_.irSystem.reset();
        app_.state.SystemStatusVisible = true;
    }
    void showControlTester() override
    {
        calls << QStringLiteral("tester");
        app_.controlTester.Form_Load();
        if (operate)
            operate();
        app_.controlTester.Form_Unload();
    }
    void showSplash() override { calls << QStringLiteral("splash"); }

    QStringList calls;
    std::function<void()> operate;

private:
    Application& app_;
};

struct DemoRig {
    AppRig rig;
    FakeDemoWindows windows { rig.app() };
    DemoRig()
    {
        rig.app().demo.setWindows(&windows);
        rig.app().controlTester.setWindows(&windows);
        // The settings as the program starts with them: the bar's scale 0 to 100.
        rig.app().controller.Form_Load();
    }
    Application& app() { return rig.app(); }
    DemoController& demo() { return rig.app().demo; }
    ControlTesterController& tester() { return rig.app().controlTester; }
    ControlTesterModel& testerModel() { return rig.app().controlTesterModel; }
    TempBar& bar() { return rig.app().bar; }
    QStringList workFiles() const { return QDir(rig.dir.path()).entryList(QDir::Files); }
    // Nothing the demo controls may touch has moved.
    void verifyUntouched()
    {
        QCOMPARE(rig.port.openCount, 0);
        QVERIFY(!app().main.mnuSenseTemperature.checked());
        QVERIFY(!app().main.mnuDownloadData.checked());
        QVERIFY(!app().chart.ChartHasPoints());
        QCOMPARE(workFiles(), QStringList());
    }
};

} // namespace

// The demo menu's controllers, driven on the real application around fakes.
class TestDemo : public QObject {
    Q_OBJECT

private slots:
    // --- the test function ---------------------------------------------------------------

    void sweepReading_data()
    {
        QTest::addColumn<int>("step");
        QTest::addColumn<int>("steps");
        QTest::addColumn<int>("low");
        QTest::addColumn<int>("high");
        QTest::addColumn<int>("reading");
        QTest::newRow("start at the bottom") << 0 << 80 << -12 << 112 << -12;
        QTest::newRow("quarter way up") << 20 << 80 << -12 << 112 << 50;
        QTest::newRow("top at half time") << 40 << 80 << -12 << 112 << 112;
        QTest::newRow("quarter way down") << 60 << 80 << -12 << 112 << 50;
        QTest::newRow("back at the bottom") << 80 << 80 << -12 << 112 << -12;
        QTest::newRow("past the end stays low") << 95 << 80 << -12 << 112 << -12;
        QTest::newRow("odd step count: top") << 2 << 5 << 0 << 30 << 30;
        QTest::newRow("odd step count: down") << 3 << 5 << 0 << 30 << 20;
        QTest::newRow("no steps") << 3 << 0 << 7 << 30 << 7;
        QTest::newRow("full 16-bit span") << 40 << 80 << -32768 << 32767 << 32767;
    }
    void sweepReading()
    {
        QFETCH(int, step);
        QFETCH(int, steps);
        QFETCH(int, low);
        QFETCH(int, high);
        QTEST(DemoController::SweepReading(step, steps, low, high), "reading");
    }

    void sweepState_data()
    {
        QTest::addColumn<int>("step");
        QTest::addColumn<int>("state");
        QTest::newRow("first step") << 0 << int(IRSystem::Scanning);
        QTest::newRow("last scanning step") << 19 << int(IRSystem::Scanning);
        QTest::newRow("first sensing step") << 20 << int(IRSystem::Sensing);
        QTest::newRow("last sensing step") << 59 << int(IRSystem::Sensing);
        QTest::newRow("first receiving step") << 60 << int(IRSystem::Receiving);
        QTest::newRow("last step") << 80 << int(IRSystem::Receiving);
    }
    void sweepState()
    {
        QFETCH(int, step);
        QTEST(int(DemoController::SweepState(step, 80)), "state");
    }

    void testFunctionShowsEveryCaptionColourAndState()
    {
        DemoRig d;
        d.demo().mnuTestFunction_Click();
        QVERIFY(d.app().state.TempBarVisible);
        QVERIFY(d.app().main.mnuViewTempBar.checked());
        QVERIFY(d.app().state.SystemStatusVisible);
        QVERIFY(d.demo().sweeping());
        QCOMPARE(d.demo().tmrSweep().interval(), DemoController::SweepIntervalMs);

        QSet<QString> captions;
        QSet<qint64> colours;
        QList<int> states;
        bool blinked = false;
        int ticks = 0;
        auto look = [&] {
            captions << d.bar().lblTempBar.caption();
            colours << d.bar().shpIndicator.backColor();
            blinked = blinked || d.bar().blinking();
            const int s = d.app().irSystem.GetCurrentState();
            if (states.isEmpty() || states.last() != s)
                states << s;
        };
        look();
        while (d.demo().sweeping() && ticks < 1000) {
            d.demo().tmrSweep_Timer();
            ++ticks;
            if (d.demo().sweeping())
                look();
        }
        QCOMPARE(ticks, DemoController::SweepSteps + 1);
        QVERIFY(captions.contains(TempBar::degFCaption()));
        QVERIFY(captions.contains(TempBar::underLimitCaption()));
        QVERIFY(captions.contains(TempBar::saturatedCaption()));
        QVERIFY(colours.contains(TempBar::Red));
        QVERIFY(colours.contains(TempBar::Yellow));
        QVERIFY(colours.contains(TempBar::Green));
        QVERIFY(blinked);
        QCOMPARE(
            states, (QList<int> { IRSystem::Scanning, IRSystem::Sensing, IRSystem::Receiving }));

        // Over: the bar empty, the caption steady, the display idle, the windows still open.
        QCOMPARE(d.bar().indicatorHeight(), 0);
        QCOMPARE(d.bar().lblTempBar.caption(), TempBar::degFCaption());
        QVERIFY(!d.bar().blinking());
        QCOMPARE(d.app().irSystem.GetCurrentState(), qint16(IRSystem::Idle));
        QVERIFY(d.app().state.TempBarVisible);
        QVERIFY(d.rig.prompter.shown.empty());
        d.verifyUntouched();
    }

    void testFunctionAgainStopsTheSweep()
    {
        DemoRig d;
        d.demo().mnuTestFunction_Click();
        for (int i = 0; i < 30; ++i)
            d.demo().tmrSweep_Timer();
        QVERIFY(d.bar().indicatorHeight() > 0);
        d.demo().mnuTestFunction_Click();
        QVERIFY(!d.demo().sweeping());
        QCOMPARE(d.bar().indicatorHeight(), 0);
        QCOMPARE(d.app().irSystem.GetCurrentState(), qint16(IRSystem::Idle));
    }

    void sweepGivesWayToAcquisition()
    {
        DemoRig d;
        d.demo().mnuTestFunction_Click();
        for (int i = 0; i < 10; ++i)
            d.demo().tmrSweep_Timer();
        d.rig.startSensing();
        d.rig.feed(AppRig::parameterBlock("  DEG F", "1", "72") + "  50\x07");
        const int top = d.bar().indicatorTop();
        QCOMPARE(top, TempBar::BarBottom - TempBar::FullHeight / 2);
        d.demo().tmrSweep_Timer();
        QVERIFY(!d.demo().sweeping());
        // The reading from the instrument stays: the sweep neither moved nor cleared it.
        QCOMPARE(d.bar().indicatorTop(), top);
        QVERIFY(d.bar().indicatorHeight() > 0);
    }

    void sweepEndsWithTheBarWindow()
    {
        DemoRig d;
        d.demo().mnuTestFunction_Click();
        d.demo().tmrSweep_Timer();
        d.app().tempBarWindow.mnuViewTempBar_Click();
        QVERIFY(!d.app().state.TempBarVisible);
        d.demo().tmrSweep_Timer();
        QVERIFY(!d.demo().sweeping());
        QVERIFY(!d.app().state.TempBarVisible);
    }

    // --- refused while acquisition runs -------------------------------------------------

    void refusedWhileAcquiring_data()
    {
        QTest::addColumn<bool>("download");
        QTest::addColumn<bool>("tester");
        QTest::newRow("test function while sensing") << false << false;
        QTest::newRow("test function while downloading") << true << false;
        QTest::newRow("control tester while sensing") << false << true;
        QTest::newRow("control tester while downloading") << true << true;
    }
    void refusedWhileAcquiring()
    {
        QFETCH(bool, download);
        QFETCH(bool, tester);
        DemoRig d;
        if (download)
            d.rig.startDownload();
        else
            d.rig.startSensing();
        d.rig.prompter.clear();
        if (tester)
            d.demo().mnuControlTester_Click();
        else
            d.demo().mnuTestFunction_Click();
        QCOMPARE(d.rig.prompter.titles(), QStringList { DemoController::refusedTitle() });
        QVERIFY(d.rig.prompter.messages().front().text.startsWith(tester
                ? QStringLiteral("THE CONTROL TESTER IS NOT AVAILABLE")
                : QStringLiteral("THE TEST FUNCTION IS NOT AVAILABLE")));
        QVERIFY(!d.demo().sweeping());
        QCOMPARE(d.windows.calls, QStringList());
        QVERIFY(!d.app().state.TempBarVisible);
        QCOMPARE(d.app().main.mnuDownloadData.checked(), download);
        QCOMPARE(d.app().main.mnuSenseTemperature.checked(), !download);
    }

    void menusFollowAcquisition()
    {
        DemoRig d;
        d.rig.startSensing();
        QCoreApplication::processEvents();
        QVERIFY(!d.app().main.mnuTestFunction.enabled());
        QVERIFY(!d.app().main.mnuControlTester.enabled());
        QVERIFY(d.app().main.mnuSplash.enabled());
        d.app().acquisition.mnuStop_Click();
        QCoreApplication::processEvents();
        QVERIFY(d.app().main.mnuTestFunction.enabled());
        QVERIFY(d.app().main.mnuControlTester.enabled());
    }

    // --- SEARCH FOR IR ------------------------------------------------------------------

    void searchForIrSummarisesTheChart()
    {
        DemoRig d;
        d.rig.chart.setAxisTitle(ChartSurface::Axis::X, QStringLiteral("SECONDS"));
        d.rig.startSensing();
        d.rig.feed(AppRig::parameterBlock("  DEG F", "1", "72") + "  70\x07  95\x07  61\x07");
        d.app().acquisition.mnuStop_Click();
        const int points = d.rig.chart.pointCount(1);
        const int opened = d.rig.port.openCount;
        d.rig.prompter.clear();

        d.demo().mnuSearchForIR_Click();
        QVERIFY(d.app().main.mnuSearchForIR.checked());
        QCOMPARE(d.rig.prompter.titles(), QStringList { DemoController::summaryTitle() });
        const QString text = d.rig.prompter.messages().front().text;
        // The parameter block's own reading (1234) is plotted first, at 0.
        QCOMPARE(text,
            QStringLiteral("READINGS ON THE CHART: 4\r\n"
                           "FIRST READING AT: 0 SECONDS\r\n"
                           "LAST READING AT: 3 SECONDS\r\n"
                           "LOWEST: 61 AT 3 SECONDS\r\n"
                           "HIGHEST: 1234 AT 0 SECONDS\r\n"
                           "AVERAGE: 365.0"));
        QCOMPARE(d.rig.port.openCount, opened);
        QVERIFY(!d.rig.port.isOpen());
        QVERIFY(!d.app().main.mnuSenseTemperature.checked());
        QVERIFY(!d.app().main.mnuDownloadData.checked());
        QCOMPARE(d.rig.chart.pointCount(1), points);

        // Again: the check mark goes, and nothing is shown.
        d.demo().mnuSearchForIR_Click();
        QVERIFY(!d.app().main.mnuSearchForIR.checked());
        QCOMPARE(d.rig.prompter.messages().size(), size_t(1));
    }

    void searchForIrOnAnEmptyChart()
    {
        DemoRig d;
        d.demo().mnuSearchForIR_Click();
        QCOMPARE(d.rig.prompter.messages().size(), size_t(1));
        QCOMPARE(
            d.rig.prompter.messages().front().text, QStringLiteral("NO READINGS ON THE CHART."));
        d.verifyUntouched();
    }

    void searchForIrClearedByDownloadAndStop_data()
    {
        QTest::addColumn<QString>("command");
        QTest::newRow("download") << "download";
        QTest::newRow("stop") << "stop";
    }
    void searchForIrClearedByDownloadAndStop()
    {
        QFETCH(QString, command);
        DemoRig d;
        d.demo().mnuSearchForIR_Click();
        QVERIFY(d.app().main.mnuSearchForIR.checked());
        if (command == QLatin1String("download"))
            d.app().acquisition.mnuDownloadData_Click();
        else
            d.app().acquisition.mnuStop_Click();
        QVERIFY(!d.app().main.mnuSearchForIR.checked());
    }

    // --- the control tester -------------------------------------------------------------

    void sliderRange_data()
    {
        QTest::addColumn<int>("minTemp");
        QTest::addColumn<int>("maxTemp");
        QTest::addColumn<int>("low");
        QTest::addColumn<int>("high");
        QTest::newRow("default scale") << 0 << 100 << -12 << 112;
        QTest::newRow("reversed scale") << 100 << 0 << -12 << 112;
        QTest::newRow("empty scale") << 50 << 50 << 49 << 51;
        QTest::newRow("narrow scale") << 0 << 7 << -1 << 8;
        QTest::newRow("16-bit ends") << -32768 << 32767 << -32768 << 32767;
        QTest::newRow("near the top") << 32000 << 32767 << 31905 << 32767;
    }
    void sliderRange()
    {
        QFETCH(int, minTemp);
        QFETCH(int, maxTemp);
        const auto [low, high] = ControlTesterController::SliderRange(minTemp, maxTemp);
        QTEST(low, "low");
        QTEST(high, "high");
    }

    void testerDrivesTheBarAndPutsItBack()
    {
        DemoRig d;
        const auto settings = d.app().state.SettingsValues;
        bool ran = false;
        d.windows.operate = [&] {
            ran = true;
            ControlTesterModel& m = d.testerModel();
            ControlTesterController& t = d.tester();
            QVERIFY(d.app().state.TempBarVisible);
            QVERIFY(d.app().state.SystemStatusVisible);
            QCOMPARE(m.readingMin(), -12);
            QCOMPARE(m.readingMax(), 112);
            QVERIFY(m.chkAlarmLimits.checked());
            QCOMPARE(m.lblBarRange.caption(), QStringLiteral("SCALE 0 TO 100   LIMITS 25 / 85"));

            t.sldReading_Change(50);
            QCOMPARE(m.lblReading.caption(), QStringLiteral("READING: 50"));
            QCOMPARE(d.bar().indicatorTop(), TempBar::BarBottom - TempBar::FullHeight / 2);
            QCOMPARE(d.bar().shpIndicator.backColor(), TempBar::Green);

            m.chkAlarmLimits.setChecked(false);
            t.chkAlarmLimits_Click();
            QVERIFY(!d.bar().IsAlarmOn());
            QCOMPARE(d.bar().shpIndicator.backColor(), TempBar::Cyan);

            // Beyond the slider's end: held at its end, which is over the scale.
            t.sldReading_Change(500);
            QCOMPARE(m.reading(), 112);
            QCOMPARE(d.bar().lblTempBar.caption(), TempBar::saturatedCaption());
            QVERIFY(d.bar().blinking());

            m.chkAutoRange.setChecked(true);
            t.chkAutoRange_Click();
            QVERIFY(d.bar().IsAutoRangeOn());
            t.sldReading_Change(-12);
            QCOMPARE(d.bar().indicatorHeight(), 0);

            m.chkDegC.setChecked(true);
            t.chkDegC_Click();
            QCOMPARE(d.bar().unitsCode(), qint16(2));
            QVERIFY(m.chkDegC.checked());

            t.cmdScanForIrSystem_Click();
            QCOMPARE(m.lblCurrentState.caption(), QStringLiteral("STATE: 2 - SCANNING"));
        };
        d.demo().mnuControlTester_Click();
        QVERIFY(ran);
        QCOMPARE(d.windows.calls, (QStringList { "status", "tester" }));
        QVERIFY(!d.tester().loaded());

        // Closed: the switches and units as before, the reading cleared, the display idle.
        QVERIFY(d.bar().IsAlarmOn());
        QVERIFY(!d.bar().IsAutoRangeOn());
        QCOMPARE(d.bar().unitsCode(), qint16(1));
        QCOMPARE(d.bar().lblTempBar.caption(), TempBar::degFCaption());
        QVERIFY(!d.bar().blinking());
        QCOMPARE(d.bar().indicatorHeight(), 0);
        QCOMPARE(d.app().irSystem.GetCurrentState(), qint16(IRSystem::Idle));
        QVERIFY(d.app().state.SettingsValues.lines() == settings.lines());
        d.verifyUntouched();
    }

    void testerStopsARunningSweep()
    {
        DemoRig d;
        d.demo().mnuTestFunction_Click();
        bool sweepingInside = true;
        d.windows.operate = [&] { sweepingInside = d.demo().sweeping(); };
        d.demo().mnuControlTester_Click();
        QVERIFY(!sweepingInside);
    }

    void testerStepsTheLinkStatus_data()
    {
        QTest::addColumn<QStringList>("buttons");
        QTest::addColumn<QString>("current");
        QTest::addColumn<QString>("old");
        auto row = [](const char* name, const QStringList& buttons, const char* current,
                       const char* old) {
            QTest::newRow(name) << buttons << QString(current) << QString(old);
        };
        row("scan from idle", { "scan" }, "STATE: 2 - SCANNING", "OLD STATE: 0 - IDLE");
        row("scan then sense", { "scan", "sense" }, "STATE: 1 - SENSING",
            "OLD STATE: 2 - SCANNING  (CHANGED)");
        row("sense, receive, back", { "sense", "download", "reset" }, "STATE: 1 - SENSING",
            "OLD STATE: 1 - SENSING");
        row("idle keeps the old state for a reset", { "download", "scan", "idle", "reset" },
            "STATE: 3 - RECEIVING", "OLD STATE: 3 - RECEIVING");
        row("reset right after leaving idle", { "sense", "reset" }, "STATE: 0 - IDLE",
            "OLD STATE: 0 - IDLE");
    }
    void testerStepsTheLinkStatus()
    {
        QFETCH(QStringList, buttons);
        DemoRig d;
        d.windows.operate = [&] {
            ControlTesterController& t = d.tester();
            for (const QString& b : buttons) {
                if (b == QLatin1String("scan"))
                    t.cmdScanForIrSystem_Click();
                else if (b == QLatin1String("sense"))
                    t.cmdSenseTemperature_Click();
                else if (b == QLatin1String("download"))
                    t.cmdDownloadIRData_Click();
                else if (b == QLatin1String("idle"))
                    t.cmdSetToIdle_Click();
                else
                    t.cmdResetOldState_Click();
            }
            QTEST(d.testerModel().lblCurrentState.caption(), "current");
            QTEST(d.testerModel().lblOldState.caption(), "old");
        };
        d.demo().mnuControlTester_Click();
        QCOMPARE(d.app().irSystem.GetCurrentState(), qint16(IRSystem::Idle));
    }

    void testerReopensAClosedStatusWindow()
    {
        DemoRig d;
        d.windows.operate = [&] {
            d.app().state.SystemStatusVisible = false;
            d.app().irSystem.reset();
            d.tester().cmdSenseTemperature_Click();
            QVERIFY(d.app().state.SystemStatusVisible);
            QCOMPARE(d.app().irSystem.GetCurrentState(), qint16(IRSystem::Sensing));
        };
        d.demo().mnuControlTester_Click();
        QCOMPARE(d.windows.calls, (QStringList { "status", "tester", "status" }));
    }
};

TALAVEX_TEST(TestDemo)
#include "TestDemo.moc"
