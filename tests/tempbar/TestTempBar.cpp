#include "support/AppRig.h"
#include "support/TestRegistry.h"

#include "tempbar/TempBar.h"
#include "tempbar/TempBarWindows.h"

#include <QTest>

// The bar component's drawing in twips and its captions, and its window on the application.
class TestTempBar : public QObject {
    Q_OBJECT
private slots:
    void setTemp_data()
    {
        QTest::addColumn<QList<int>>("setup"); // min, max, alarms, auto-range, reading before
        QTest::addColumn<int>("t");
        QTest::addColumn<QList<int>>("bar"); // top, height
        QTest::addColumn<qint64>("fill");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<qint64>("captionColour");
        QTest::addColumn<bool>("blinking");
        const QString degF = TempBar::degFCaption(), saturated = TempBar::saturatedCaption();
        const qint64 red = TempBar::Red, yellow = TempBar::Yellow, green = TempBar::Green;
        auto row = [](const char* name, const QList<int>& setup, int t, const QList<int>& bar,
                       qint64 fill, const QString& caption, qint64 colour, bool blinking) {
            QTest::newRow(name) << setup << t << bar << fill << caption << colour << blinking;
        };
        const QList<int> plain { 0, 100, 1, 0, 0 };
        row("half way", plain, 50, { 2340, 1800 }, green, degF, yellow, false);
        row("at max: full, not saturated", plain, 100, { 540, 3600 }, red, degF, yellow, false);
        row("over max: saturated, blinking", plain, 101, { 540, 3600 }, red, saturated, red, true);
        row("at min: empty", plain, 0, { 4140, 0 }, yellow, degF, yellow, false);
        row("under min: blinking", plain, -1, { 4140, 0 }, yellow, "TEMP. UNDER LIMIT", yellow,
            true);
        row("under min after a reading: empty where it stood", { 0, 100, 1, 0, 50 }, -1,
            { 2340, 0 }, yellow, "TEMP. UNDER LIMIT", yellow, true);
        row("on the high limit: green", plain, 85, { 1080, 3060 }, green, degF, yellow, false);
        row("over the high limit: red", plain, 86, { 1044, 3096 }, red, degF, yellow, false);
        row("on the low limit: yellow", plain, 25, { 3240, 900 }, yellow, degF, yellow, false);
        row("over the low limit: green", plain, 26, { 3204, 936 }, green, degF, yellow, false);
        row("indicators off: cyan", { 0, 100, 0, 0, 0 }, 90, { 900, 3240 }, TempBar::Cyan, degF,
            yellow, false);
        row("4137.5 rounds to even", { 0, 1440, 1, 0, 0 }, 1, { 4138, 2 }, yellow, degF, yellow,
            false);
        row("4132.5 rounds to even", { 0, 1440, 1, 0, 0 }, 3, { 4132, 8 }, yellow, degF, yellow,
            false);
        row("negative range", { -100, 200, 1, 0, 0 }, 50, { 2340, 1800 }, green, degF, yellow,
            false);
        row("auto-range: saturated, steady", { 0, 100, 1, 1, 0 }, 101, { 540, 3600 }, red,
            saturated, yellow, false);
        row("auto-range: under min, steady", { 0, 100, 1, 1, 0 }, -5, { 4140, 0 }, yellow, degF,
            yellow, false);
        row("a reading far above the minimum overflows: the bar stays", { -20000, 20000, 1, 0, 50 },
            19000, { 2340, 1800 }, red, degF, yellow, false);
    }
    void setTemp()
    {
        QFETCH(QList<int>, setup);
        QFETCH(int, t);
        TempBar bar;
        bar.SetTemp(qint16(setup[4]));
        bar.SetMaxTemp(qint16(setup[1]));
        bar.SetMinTemp(qint16(setup[0]));
        bar.EnableAlarmLimits(setup[2]);
        bar.EnableAutoRange(setup[3]);
        bar.SetTemp(qint16(t));
        QTEST(QList<int>({ bar.indicatorTop(), bar.indicatorHeight() }), "bar");
        QTEST(bar.shpIndicator.backColor(), "fill");
        QTEST(bar.lblTempBar.caption(), "caption");
        QTEST(bar.lblTempBar.foreColor(), "captionColour");
        QTEST(bar.blinking(), "blinking");
    }

    // The caption blinks while out of range and comes back steady, in the units last set.
    void blinking()
    {
        TempBar bar;
        bar.SetUnitsDegC();
        bar.SetTemp(150);
        bar.tmrBlinker_Timer();
        QVERIFY(!bar.lblTempBar.visible());
        bar.tmrBlinker_Timer();
        QVERIFY(bar.lblTempBar.visible());
        bar.tmrBlinker_Timer();
        bar.SetTemp(40);
        QVERIFY(!bar.blinking() && bar.lblTempBar.visible());
        QCOMPARE(bar.lblTempBar.caption(), TempBar::degCCaption());
        bar.SetTemp(150);
        bar.EnableAutoRange(true);
        bar.SetTemp(40); // auto-range freezes the blinking
        QVERIFY(bar.blinking());
        bar.EnableAutoRange(false);
        bar.tmrBlinker_Timer();
        bar.SetUnitsDegF();
        QVERIFY(bar.lblTempBar.visible());
        QCOMPARE(bar.lblTempBar.foreColor(), TempBar::Yellow);
        bar.ClearTemp();
        QVERIFY(!bar.blinking());
        QCOMPARE(QList<int>({ bar.indicatorHeight(), int(bar.shpIndicator.backColor()) }),
            QList<int>({ 0, int(TempBar::Yellow) }));
    }

    // The scale's labels and the limit markers for a range; a limit outside the range hides its
    // marker, and arithmetic that does not fit 16 bits leaves labels and markers as they were.
    void range_data()
    {
        QTest::addColumn<int>("minTemp");
        QTest::addColumn<int>("maxTemp");
        QTest::addColumn<int>("limit");
        QTest::addColumn<QStringList>("labels");
        QTest::addColumn<QList<int>>("markers"); // high and low tops; none: hidden
        const QStringList hundred { "100", "83.3", "66.7", "50.0", "33.3", "16.7", "0" };
        const QStringList wide { "1440", "1200.0", "960.0", "720.0", "480.0", "240.0", "0" };
        auto row = [](const char* name, int min, int max, int limit, const QStringList& labels,
                       const QList<int>& markers) {
            QTest::newRow(name) << min << max << limit << labels << markers;
        };
        row("high default", 0, 100, 85, hundred, { 920, 959 });
        row("low default", 0, 100, 25, hundred, { 3080, 3119 });
        row("at the bottom", 0, 100, 0, hundred, { 3980, 4019 });
        row("at the top", 0, 100, 100, hundred, { 380, 419 });
        row("above the range", 0, 100, 101, hundred, {});
        row("below the range", 0, 100, -1, hundred, {});
        row("3977.5 and 4016.4", 0, 1440, 1, wide, { 3978, 4016 });
        row("3972.5", 0, 1440, 3, wide, { 3972, 4011 });
        row("-40..260", -40, 260, 10, { "260", "210.0", "160.0", "110.0", "60.0", "10.0", "-40" },
            { 3380, 3419 });
        row("reversed: upwards from the minimum", 100, 0, 50,
            { "0", "183.3", "166.7", "150.0", "133.3", "116.7", "100" }, {});
        row("largest span that fits", -16384, 16383, 0,
            { "16383", "10921.8", "5460.7", "-0.5", "-5461.7", "-10922.8", "-16384" },
            { 2180, 2219 });
        row("span overflows", -30000, 30000, 0,
            { "30000", "25000.0", "20000.0", "15000.0", "10000.0", "5000.0", "-30000" },
            { 920, 3119 });
        row("empty range", 50, 50, 50, { "50", "50.0", "50.0", "50.0", "50.0", "50.0", "50" },
            { 920, 3119 });
    }
    void range()
    {
        QFETCH(int, minTemp);
        QFETCH(int, maxTemp);
        QFETCH(int, limit);
        QFETCH(QList<int>, markers);
        TempBar bar;
        bar.SetMaxTemp(qint16(maxTemp));
        bar.SetMinTemp(qint16(minTemp));
        bar.SetHighLimit(qint16(limit));
        bar.SetLowLimit(qint16(limit));
        QStringList labels;
        for (const Control* label : bar.scaleLabels())
            labels << label->caption();
        QTEST(labels, "labels");
        QCOMPARE(
            QList<int>({ bar.GetHighLimit(), bar.GetLowLimit() }), QList<int>({ limit, limit }));
        QCOMPARE(bar.imageHighLimit.visible(), !markers.isEmpty());
        QCOMPARE(bar.imageLowLimit.visible(), !markers.isEmpty());
        if (!markers.isEmpty())
            QCOMPARE(QList<int>({ bar.highMarkerTop(), bar.lowMarkerTop() }), markers);
    }

    // VIEW > TEMP BAR on the application: the window applies the settings entries 11 to 15 and
    // the units of the last parameter block, readings reach the bar only while it is shown, and
    // the entries are gathered from the bar.
    void window()
    {
        struct Windows : TempBarWindows {
            QStringList calls;
            void showTempBarWindow() override { calls << "show"; }
            void unloadTempBarWindow() override { calls << "unload"; }
            void showTempBarSettings() override { calls << "settings"; }
        } windows;
        AppRig rig;
        Application& a = rig.app();
        a.tempBarWindow.setWindows(&windows);
        Settings& v = a.state.SettingsValues;
        for (int i = 11; i <= 15; ++i) // entries 11 to 15
            v.setLine(i, QStringList { "300.5", "-20 DEG", "250", "40000", "0" }[i - 11]);
        rig.startSensing();
        rig.feed(AppRig::parameterBlock("  DEG C", "1", "72") + "  140\x07");
        QCOMPARE(a.bar.indicatorHeight(), 0); // not shown: it hears nothing
        a.tempBarWindow.mnuViewTempBar_Click();
        QVERIFY(a.state.TempBarVisible && a.main.mnuViewTempBar.checked());
        QCOMPARE(a.tempBarWindow.display(), static_cast<TempBarDisplay*>(&a.bar));
        QCOMPARE(QList<int>({ a.bar.GetMaxTemp(), a.bar.GetMinTemp(), a.bar.GetHighLimit(),
                     a.bar.GetLowLimit(), a.bar.IsAlarmOn() }),
            QList<int>({ 300, -20, 250, 25, 0 }));
        QCOMPARE(a.bar.lblTempBar.caption(), TempBar::degCCaption());
        rig.feed("  140\x07"); // 160 of 320 degrees: half way up
        QCOMPARE(QList<int>({ a.bar.indicatorTop(), int(a.bar.shpIndicator.backColor()) }),
            QList<int>({ 2340, int(TempBar::Cyan) }));
        rig.feed("  350\x07");
        QVERIFY(a.bar.blinking());
        rig.feed("  abc\x07");
        QVERIFY(!a.bar.blinking() && a.bar.indicatorHeight() == 0);
        rig.feed("  290\x07");
        a.acquisition.mnuStop_Click();
        QCOMPARE(a.bar.indicatorHeight(), 0);
        a.bar.SetLowLimit(-5);
        a.tempBarWindow.gatherSettings();
        QCOMPARE(QStringList({ v.line(11), v.line(12), v.line(13), v.line(14), v.line(15) }),
            QStringList({ "300", "-20", "250", "-5", "0" }));
        v.alarmLimitsOn.text = QStringLiteral("1");
        a.tempBarWindow.Form_Unload(); // closed by its title bar
        a.tempBarWindow.Form_Unload();
        QVERIFY(!a.state.TempBarVisible && !a.main.mnuViewTempBar.checked());
        QVERIFY(!a.tempBarWindow.display());
        a.settings.ApplySettings(); // entry 15 acts only while the bar is shown
        QVERIFY(!a.bar.IsAlarmOn());
        a.tempBarWindow.mnuConfigure_Click();
        QCOMPARE(windows.calls, QStringList({ "show", "unload", "settings" }));
    }
};
TALAVEX_TEST(TestTempBar)
#include "TestTempBar.moc"
