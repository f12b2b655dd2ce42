#include "support/TestRegistry.h"
#include "tempbar/TempBar.h"
#include "tempbar/TempBarSettingsEntries.h"
#include <QTest>

// The bar component: its drawing in twips, its captions, and its settings entries.
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
    // The settings entries 11 to 15 on the bar: numbers rounded half to even, one that does not
    // fit 16 bits leaves that value, the alarm switch only while the bar is shown; and back.
    void entries_data()
    {
        QTest::addColumn<QString>("row"); // entries 11 to 15, shown = the bar = entries gathered
        for (const char* row : { "300.5|-20 DEG|250|40000|0|1=300 -20 250 25 0=300|-20|250|25|0",
                 "hot|.|1E3|-5|0|0=0 0 1000 -5 1=0|0|1000|-5|1",
                 "40000|1e9|85|25|yes|1=100 0 85 25 0=100|0|85|25|0" })
            QTest::newRow(row) << QString(row);
    }
    void entries()
    {
        QFETCH(QString, row);
        const QStringList in = row.section('=', 0, 0).split('|');
        Settings settings;
        for (int i = 0; i < 5; ++i)
            settings.setLine(11 + i, in[i]);
        TempBar bar;
        TempBarSettingsEntries::Apply(bar, settings, in[5] == "1");
        QCOMPARE(QStringLiteral("%1 %2 %3 %4 %5")
                     .arg(bar.GetMaxTemp())
                     .arg(bar.GetMinTemp())
                     .arg(bar.GetHighLimit())
                     .arg(bar.GetLowLimit())
                     .arg(bar.IsAlarmOn()),
            row.section('=', 1, 1));
        TempBarSettingsEntries::Gather(bar, settings);
        QCOMPARE(QStringList({ settings.line(11), settings.line(12), settings.line(13),
                                 settings.line(14), settings.line(15) })
                     .join('|'),
            row.section('=', 2, 2));
    }
};
TALAVEX_TEST(TestTempBar)
#include "TestTempBar.moc"
