#include "support/TestRegistry.h"

#include "tempbar/TempBar.h"

#include <QTest>

// The bar component: captions, colours, blinking, the twip geometry and its arithmetic faults.
class TestTempBar : public QObject {
    Q_OBJECT

    static QStringList scale(const TempBar& bar)
    {
        QStringList texts;
        for (const Control* label : bar.scaleLabels())
            texts << label->caption();
        return texts;
    }

private slots:
    void startsEmptyYellowInFahrenheit()
    {
        TempBar bar;
        QCOMPARE(bar.indicatorHeight(), 0);
        QCOMPARE(bar.shpIndicator.backColor(), TempBar::Yellow);
        QCOMPARE(bar.lblTempBar.caption(), QStringLiteral("TEMP. BAR - DEG F"));
        QCOMPARE(bar.lblTempBar.foreColor(), TempBar::Yellow);
        QVERIFY(bar.lblTempBar.visible());
        QVERIFY(!bar.blinking());
        QCOMPARE(bar.unitsCode(), qint16(1));
        QVERIFY(bar.IsAlarmOn());
        QVERIFY(!bar.IsAutoRangeOn());
        QCOMPARE(bar.GetMaxTemp(), qint16(100));
        QCOMPARE(bar.GetMinTemp(), qint16(0));
        QCOMPARE(bar.GetHighLimit(), qint16(85));
        QCOMPARE(bar.GetLowLimit(), qint16(25));
        QCOMPARE(scale(bar), QStringList({ "100", "83.3", "66.7", "50.0", "33.3", "16.7", "0" }));
        QVERIFY(bar.imageHighLimit.visible());
        QVERIFY(bar.imageLowLimit.visible());
        QCOMPARE(bar.highMarkerTop(), 920);
        QCOMPARE(bar.lowMarkerTop(), 3119);
    }

    void setTemp_data()
    {
        QTest::addColumn<int>("minTemp");
        QTest::addColumn<int>("maxTemp");
        QTest::addColumn<bool>("alarms");
        QTest::addColumn<bool>("autoRange");
        QTest::addColumn<int>("t");
        QTest::addColumn<int>("top");
        QTest::addColumn<int>("height");
        QTest::addColumn<qint64>("fill");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<qint64>("captionColour");
        QTest::addColumn<bool>("blinking");

        const QString degF = TempBar::degFCaption();
        const qint64 red = TempBar::Red, yellow = TempBar::Yellow, green = TempBar::Green;
        const int untouched = TempBar::BarBottom; // the empty bar keeps its first top
        QTest::newRow("half way") << 0 << 100 << true << false << 50 << 2340 << 1800 << green
                                  << degF << yellow << false;
        QTest::newRow("at max: full bar, not saturated")
            << 0 << 100 << true << false << 100 << 540 << 3600 << red << degF << yellow << false;
        QTest::newRow("one over max: saturated, red, blinking")
            << 0 << 100 << true << false << 101 << 540 << 3600 << red
            << QStringLiteral("GRAPH SATURATED") << red << true;
        QTest::newRow("at min: in range but empty") << 0 << 100 << true << false << 0 << untouched
                                                    << 0 << yellow << degF << yellow << false;
        QTest::newRow("one under min: under limit, blinking")
            << 0 << 100 << true << false << -1 << untouched << 0 << yellow
            << QStringLiteral("TEMP. UNDER LIMIT") << yellow << true;
        QTest::newRow("on the high limit is still green")
            << 0 << 100 << true << false << 85 << 1080 << 3060 << green << degF << yellow << false;
        QTest::newRow("one over the high limit is red")
            << 0 << 100 << true << false << 86 << 1044 << 3096 << red << degF << yellow << false;
        QTest::newRow("on the low limit is already yellow")
            << 0 << 100 << true << false << 25 << 3240 << 900 << yellow << degF << yellow << false;
        QTest::newRow("one over the low limit is green")
            << 0 << 100 << true << false << 26 << 3204 << 936 << green << degF << yellow << false;
        QTest::newRow("indicators off: cyan") << 0 << 100 << false << false << 90 << 900 << 3240
                                              << TempBar::Cyan << degF << yellow << false;
        // 2.5 twips a degree: the tops fall on halves and round to even
        QTest::newRow("4137.5 rounds to 4138")
            << 0 << 1440 << true << false << 1 << 4138 << 2 << yellow << degF << yellow << false;
        QTest::newRow("4132.5 rounds to 4132")
            << 0 << 1440 << true << false << 3 << 4132 << 8 << yellow << degF << yellow << false;
        QTest::newRow("negative range") << -100 << 200 << true << false << 50 << 2340 << 1800
                                        << green << degF << yellow << false;
        QTest::newRow("auto-range: saturated keeps the caption colour, no blinking")
            << 0 << 100 << true << true << 101 << 540 << 3600 << red
            << QStringLiteral("GRAPH SATURATED") << yellow << false;
        QTest::newRow("auto-range: under min leaves the caption")
            << 0 << 100 << true << true << -5 << untouched << 0 << yellow << degF << yellow
            << false;
    }

    void setTemp()
    {
        QFETCH(int, minTemp);
        QFETCH(int, maxTemp);
        QFETCH(bool, alarms);
        QFETCH(bool, autoRange);
        QFETCH(int, t);
        TempBar bar;
        bar.SetMaxTemp(qint16(maxTemp));
        bar.SetMinTemp(qint16(minTemp));
        bar.EnableAlarmLimits(alarms);
        bar.EnableAutoRange(autoRange);
        qint16 reading = qint16(t);
        bar.SetTemp(reading);
        QTEST(bar.indicatorTop(), "top");
        QTEST(bar.indicatorHeight(), "height");
        QTEST(bar.shpIndicator.backColor(), "fill");
        QTEST(bar.lblTempBar.caption(), "caption");
        QTEST(bar.lblTempBar.foreColor(), "captionColour");
        QTEST(bar.blinking(), "blinking");
        QCOMPARE(reading, qint16(t));
    }

    void blinkingStartsAndEndsWithTheCaptionShown()
    {
        TempBar bar;
        qint16 over = 150, inRange = 40;
        bar.SetTemp(over);
        QVERIFY(bar.blinking());
        QCOMPARE(bar.tmrBlinker().interval(), 200);
        bar.tmrBlinker_Timer();
        QVERIFY(!bar.lblTempBar.visible());
        bar.tmrBlinker_Timer();
        QVERIFY(bar.lblTempBar.visible());
        bar.tmrBlinker_Timer();
        QVERIFY(!bar.lblTempBar.visible());
        bar.SetTemp(inRange);
        QVERIFY(!bar.blinking());
        QVERIFY(bar.lblTempBar.visible());
        QCOMPARE(bar.lblTempBar.caption(), TempBar::degFCaption());
    }

    void autoRangeFreezesTheBlinking()
    {
        TempBar bar;
        qint16 over = 150, inRange = 40, under = -10;
        bar.SetTemp(over);
        bar.EnableAutoRange(true);
        bar.SetTemp(inRange);
        QVERIFY(bar.blinking());
        bar.EnableAutoRange(false);
        bar.SetTemp(inRange);
        QVERIFY(!bar.blinking());
        bar.EnableAutoRange(true);
        bar.SetTemp(under);
        QVERIFY(!bar.blinking());
        QCOMPARE(bar.lblTempBar.caption(), TempBar::degFCaption());
    }

    void unitsFollowTheLastOperation()
    {
        TempBar bar;
        qint16 over = 150, inRange = 40;
        bar.SetUnitsDegC();
        QCOMPARE(bar.unitsCode(), qint16(2));
        QCOMPARE(bar.lblTempBar.caption(), QStringLiteral("TEMP. BAR - DEG C"));
        bar.SetTemp(over);
        bar.tmrBlinker_Timer();
        bar.SetTemp(inRange);
        QCOMPARE(bar.lblTempBar.caption(), QStringLiteral("TEMP. BAR - DEG C"));
        QVERIFY(bar.lblTempBar.visible());
        bar.SetTemp(over);
        bar.tmrBlinker_Timer();
        bar.SetUnitsDegF();
        QVERIFY(bar.lblTempBar.visible());
        QCOMPARE(bar.lblTempBar.foreColor(), TempBar::Yellow);
        QCOMPARE(bar.unitsCode(), qint16(1));
    }

    void clearTempEmptiesTheBar()
    {
        TempBar bar;
        qint16 over = 150;
        bar.SetTemp(over);
        bar.ClearTemp();
        QCOMPARE(bar.indicatorHeight(), 0);
        QCOMPARE(bar.lblTempBar.caption(), TempBar::degFCaption());
        QVERIFY(!bar.blinking());
        QCOMPARE(bar.shpIndicator.backColor(), TempBar::Yellow);
    }

    void rangeSettersLeaveBarAndMarkers()
    {
        TempBar bar;
        qint16 reading = 50;
        bar.SetTemp(reading);
        bar.SetMaxTemp(200);
        QCOMPARE(bar.indicatorTop(), 2340);
        QCOMPARE(bar.highMarkerTop(), 920);
        QCOMPARE(bar.lowMarkerTop(), 3119);
        QCOMPARE(bar.lblMaxTemp.caption(), QStringLiteral("200"));
        // Placing the limits again follows the new range.
        bar.SetHighLimit(bar.GetHighLimit());
        QCOMPARE(bar.highMarkerTop(), 2450);
    }

    void scaleLabels_data()
    {
        QTest::addColumn<int>("minTemp");
        QTest::addColumn<int>("maxTemp");
        QTest::addColumn<QStringList>("labels");
        QTest::newRow("0..100") << 0 << 100
                                << QStringList(
                                       { "100", "83.3", "66.7", "50.0", "33.3", "16.7", "0" });
        QTest::newRow("-40..260") << -40 << 260
                                  << QStringList({ "260", "210.0", "160.0", "110.0", "60.0", "10.0",
                                         "-40" });
        QTest::newRow("reversed labels upwards from the minimum")
            << 100 << 0 << QStringList({ "0", "183.3", "166.7", "150.0", "133.3", "116.7", "100" });
        // 0..30000 first, then the minimum makes the span overflow: the inner labels stay.
        QTest::newRow("overflow keeps the inner labels")
            << -30000 << 30000
            << QStringList(
                   { "30000", "25000.0", "20000.0", "15000.0", "10000.0", "5000.0", "-30000" });
        QTest::newRow("largest span that fits") << -16384 << 16383
                                                << QStringList({ "16383", "10921.8", "5460.7",
                                                       "-0.5", "-5461.7", "-10922.8", "-16384" });
    }

    void scaleLabels()
    {
        QFETCH(int, minTemp);
        QFETCH(int, maxTemp);
        TempBar bar;
        bar.SetMaxTemp(qint16(maxTemp));
        bar.SetMinTemp(qint16(minTemp));
        QTEST(scale(bar), "labels");
    }

    void markers_data()
    {
        QTest::addColumn<int>("minTemp");
        QTest::addColumn<int>("maxTemp");
        QTest::addColumn<int>("limit");
        QTest::addColumn<bool>("shown");
        QTest::addColumn<int>("highTop");
        QTest::addColumn<int>("lowTop");
        QTest::newRow("default high") << 0 << 100 << 85 << true << 920 << 959;
        QTest::newRow("default low") << 0 << 100 << 25 << true << 3080 << 3119;
        QTest::newRow("at the bottom") << 0 << 100 << 0 << true << 3980 << 4019;
        QTest::newRow("at the top") << 0 << 100 << 100 << true << 380 << 419;
        // 2.5 twips a degree: halves round to even
        QTest::newRow("3977.5 and 4016.4") << 0 << 1440 << 1 << true << 3978 << 4016;
        QTest::newRow("3972.5") << 0 << 1440 << 3 << true << 3972 << 4011;
        QTest::newRow("above the range hides") << 0 << 100 << 101 << false << -1 << -1;
        QTest::newRow("below the range hides") << 0 << 100 << -1 << false << -1 << -1;
    }

    void markers()
    {
        QFETCH(int, minTemp);
        QFETCH(int, maxTemp);
        QFETCH(int, limit);
        QFETCH(bool, shown);
        TempBar bar;
        bar.SetMaxTemp(qint16(maxTemp));
        bar.SetMinTemp(qint16(minTemp));
        bar.SetHighLimit(qint16(limit));
        bar.SetLowLimit(qint16(limit));
        QCOMPARE(bar.GetHighLimit(), qint16(limit));
        QCOMPARE(bar.GetLowLimit(), qint16(limit));
        QCOMPARE(bar.imageHighLimit.visible(), shown);
        QCOMPARE(bar.imageLowLimit.visible(), shown);
        if (shown) {
            QTEST(bar.highMarkerTop(), "highTop");
            QTEST(bar.lowMarkerTop(), "lowTop");
        }
    }

    void markersFollowTheSwitchNotTheRange()
    {
        TempBar bar;
        bar.EnableAlarmLimits(false);
        QVERIFY(!bar.imageHighLimit.visible());
        QVERIFY(!bar.imageLowLimit.visible());
        // Placing a limit shows its marker even while the indicators are off.
        bar.SetHighLimit(90);
        QVERIFY(bar.imageHighLimit.visible());
        QVERIFY(!bar.IsAlarmOn());
        bar.SetLowLimit(500);
        bar.EnableAlarmLimits(true);
        QVERIFY(bar.imageLowLimit.visible());
    }

    void arithmeticFaultsLeaveTheBar_data()
    {
        QTest::addColumn<int>("minTemp");
        QTest::addColumn<int>("maxTemp");
        QTest::addColumn<int>("value");
        QTest::newRow("span overflows") << -30000 << 30000 << 0;
        QTest::newRow("reading far above min") << -20000 << 20000 << 19000;
        QTest::newRow("0 / 0 on an empty range") << 50 << 50 << 50;
    }

    void arithmeticFaultsLeaveTheBar()
    {
        QFETCH(int, minTemp);
        QFETCH(int, maxTemp);
        QFETCH(int, value);
        TempBar bar;
        qint16 start = 50;
        bar.SetTemp(start);
        bar.SetMaxTemp(qint16(maxTemp));
        bar.SetMinTemp(qint16(minTemp));
        qint16 reading = qint16(value);
        bar.SetTemp(reading);
        bar.SetHighLimit(qint16(value));
        bar.SetLowLimit(qint16(value));
        if (minTemp != maxTemp) {
            QCOMPARE(bar.indicatorTop(), 2340);
            QCOMPARE(bar.indicatorHeight(), 1800);
        }
        QCOMPARE(bar.highMarkerTop(), 920);
        QCOMPARE(bar.lowMarkerTop(), 3119);
        QCOMPARE(bar.GetHighLimit(), qint16(value));
        QCOMPARE(bar.GetLowLimit(), qint16(value));
        QVERIFY(bar.imageHighLimit.visible());
    }

    void geometryHelpers_data()
    {
        QTest::addColumn<int>("t");
        QTest::addColumn<int>("minTemp");
        QTest::addColumn<int>("maxTemp");
        QTest::addColumn<int>("top"); // -1: no result
        QTest::newRow("quarter") << 25 << 0 << 100 << 3240;
        QTest::newRow("top") << 100 << 0 << 100 << 540;
        QTest::newRow("below the scale is still computed") << -50 << 0 << 100 << 5940;
        QTest::newRow("0 / 0") << 7 << 7 << 7 << -1;
        QTest::newRow("x / 0 is no result either") << 8 << 7 << 7 << -1;
        QTest::newRow("overflow") << 32767 << -32768 << 0 << -1;
        QTest::newRow("top beyond 16 bits") << 32000 << 0 << 1 << -1;
    }

    void geometryHelpers()
    {
        QFETCH(int, t);
        QFETCH(int, minTemp);
        QFETCH(int, maxTemp);
        QFETCH(int, top);
        const auto result = TempBar::BarTop(qint16(t), qint16(minTemp), qint16(maxTemp));
        QCOMPARE(result.has_value(), top != -1);
        if (result)
            QCOMPARE(int(*result), top);
    }
};

TALAVEX_TEST(TestTempBar)
#include "TestTempBar.moc"
