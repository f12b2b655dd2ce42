#include "support/AppRig.h"
#include "support/TestRegistry.h"

#include "tempbar/TempBar.h"
#include "tempbar/TempBarWindows.h"

#include <QTest>

// The bar component's drawing in twips and its captions, and its window on the application.
class TestTempBar : public QObject {
    Q_OBJECT
private slots:
    // min max alarms auto-range, a reading before, the reading; then the bar's top and height in
    // twips, its fill (Green Red Yellow Cyan), the caption (F, Saturated, Under), its colour and
    // whether it blinks.
    void setTemp_data()
    {
        QTest::addColumn<QString>("row");
        for (const char* row :
            { "0 100 1 0 0 50 = 2340 1800 G F Y 0", "0 100 1 0 0 100 = 540 3600 R F Y 0",
                "0 100 1 0 0 101 = 540 3600 R S R 1", "0 100 1 0 0 0 = 4140 0 Y F Y 0",
                "0 100 1 0 0 -1 = 4140 0 Y U Y 1", "0 100 1 0 50 -1 = 2340 0 Y U Y 1",
                "0 100 1 0 0 85 = 1080 3060 G F Y 0", "0 100 1 0 0 86 = 1044 3096 R F Y 0",
                "0 100 1 0 0 25 = 3240 900 Y F Y 0", "0 100 1 0 0 26 = 3204 936 G F Y 0",
                "0 100 0 0 0 90 = 900 3240 C F Y 0", "0 1440 1 0 0 1 = 4138 2 Y F Y 0",
                "0 1440 1 0 0 3 = 4132 8 Y F Y 0", "-100 200 1 0 0 50 = 2340 1800 G F Y 0",
                "0 100 1 1 0 101 = 540 3600 R S Y 0", "0 100 1 1 0 -5 = 4140 0 Y F Y 0",
                "-20000 20000 1 0 50 19000 = 2340 1800 R F Y 0" })
            QTest::newRow(row) << QString(row);
    }
    void setTemp()
    {
        QFETCH(QString, row);
        const QStringList f = row.split(' ');
        TempBar bar;
        bar.SetTemp(qint16(f[4].toInt()));
        bar.SetMaxTemp(qint16(f[1].toInt()));
        bar.SetMinTemp(qint16(f[0].toInt()));
        bar.EnableAlarmLimits(f[2] == "1");
        bar.EnableAutoRange(f[3] == "1");
        bar.SetTemp(qint16(f[5].toInt()));
        const QMap<qint64, QString> colours { { TempBar::Green, "G" }, { TempBar::Red, "R" },
            { TempBar::Yellow, "Y" }, { TempBar::Cyan, "C" } };
        const QMap<QString, QString> captions { { TempBar::degFCaption(), "F" },
            { TempBar::saturatedCaption(), "S" }, { TempBar::underLimitCaption(), "U" } };
        QCOMPARE(QStringList(
                     { QString::number(bar.indicatorTop()), QString::number(bar.indicatorHeight()),
                         colours[bar.shpIndicator.backColor()], captions[bar.lblTempBar.caption()],
                         colours[bar.lblTempBar.foreColor()], QString::number(bar.blinking()) }),
            f.mid(7));
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
        QTest::addColumn<QString>("row"); // min max limit = the seven labels = marker tops or none
        for (const char* row : { "0 100 85=100 83.3 66.7 50.0 33.3 16.7 0=920 959",
                 "0 100 25=100 83.3 66.7 50.0 33.3 16.7 0=3080 3119",
                 "0 100 0=100 83.3 66.7 50.0 33.3 16.7 0=3980 4019",
                 "0 100 100=100 83.3 66.7 50.0 33.3 16.7 0=380 419",
                 "0 100 101=100 83.3 66.7 50.0 33.3 16.7 0=",
                 "0 100 -1=100 83.3 66.7 50.0 33.3 16.7 0=",
                 "0 1440 1=1440 1200.0 960.0 720.0 480.0 240.0 0=3978 4016",
                 "0 1440 3=1440 1200.0 960.0 720.0 480.0 240.0 0=3972 4011",
                 "-40 260 10=260 210.0 160.0 110.0 60.0 10.0 -40=3380 3419",
                 "100 0 50=0 183.3 166.7 150.0 133.3 116.7 100=", // upwards from the minimum
                 "-16384 16383 0=16383 10921.8 5460.7 -0.5 -5461.7 -10922.8 -16384=2180 2219",
                 // spans that do not fit 16 bits leave labels and markers as they were
                 "-30000 30000 0=30000 25000.0 20000.0 15000.0 10000.0 5000.0 -30000=920 3119",
                 "50 50 50=50 50.0 50.0 50.0 50.0 50.0 50=920 3119" })
            QTest::newRow(row) << QString(row);
    }
    void range()
    {
        QFETCH(QString, row);
        const QStringList f = row.section('=', 0, 0).split(' ');
        TempBar bar;
        bar.SetMaxTemp(qint16(f[1].toInt()));
        bar.SetMinTemp(qint16(f[0].toInt()));
        bar.SetHighLimit(qint16(f[2].toInt()));
        bar.SetLowLimit(qint16(f[2].toInt()));
        QStringList labels;
        for (const Control* label : bar.scaleLabels())
            labels << label->caption();
        QCOMPARE(labels.join(' '), row.section('=', 1, 1));
        QCOMPARE(QStringList(
                     { QString::number(bar.GetHighLimit()), QString::number(bar.GetLowLimit()) }),
            QStringList({ f[2], f[2] }));
        const bool shown = bar.imageHighLimit.visible();
        QCOMPARE(bar.imageLowLimit.visible(), shown);
        QCOMPARE(shown ? QStringLiteral("%1 %2").arg(bar.highMarkerTop()).arg(bar.lowMarkerTop())
                       : QString(),
            row.section('=', 2));
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
