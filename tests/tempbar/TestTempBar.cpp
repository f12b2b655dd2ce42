#include "base/AppState.h"
#include "support/FakePrompter.h"
#include "support/Rows.h"
#include "support/TestRegistry.h"
#include "tempbar/TempBar.h"
#include "tempbar/TempBarSettingsController.h"
#include "tempbar/TempBarSettingsModel.h"
#include <QSignalSpy>
#include <QTest>

namespace {
QString barValues(const TempBar& bar) // max|min|high|low
{
    return QStringLiteral("%1|%2|%3|%4")
        .arg(bar.GetMaxTemp())
        .arg(bar.GetMinTemp())
        .arg(bar.GetHighLimit())
        .arg(bar.GetLowLimit());
}
using Press = void (TempBarSettingsController::*)(int);
const Press EnterIn[] = { &TempBarSettingsController::txtMaxTemp_KeyPress,
    &TempBarSettingsController::txtMinTemp_KeyPress,
    &TempBarSettingsController::txtHighLimit_KeyPress,
    &TempBarSettingsController::txtLowLimit_KeyPress };

// The dialog on a bar of its own; entries 15 and 22 as given, "max|min|high|low" typed.
struct Rig {
    AppState state;
    TempBar bar;
    TempBarSettingsModel model;
    FakePrompter prompter;
    QStringList limitLines; // entries 13 and 14 each time the chart's limit lines are redrawn
    TempBarSettingsController dialog { state, bar, model, prompter,
        [this] { limitLines << state.SettingsValues.line(13) << state.SettingsValues.line(14); } };
    QSignalSpy closes { &dialog, &TempBarSettingsController::closeRequested };
    explicit Rig(const QString& switches = "1|0")
    {
        state.SettingsValues.alarmLimitsOn.text = switches.section('|', 0, 0);
        state.SettingsValues.audibleAlarms.text = switches.section('|', 1, 1);
        dialog.Form_Load();
    }
    // OK, or Enter in one of the four boxes.
    void accept(const QString& boxes, int enterIn = -1)
    {
        Control* box[]
            = { &model.txtMaxTemp, &model.txtMinTemp, &model.txtHighLimit, &model.txtLowLimit };
        for (int i = 0; i < 4; ++i)
            box[i]->setCaption(boxes.section('|', i, i));
        if (enterIn < 0)
            return dialog.cmdAccept_Click();
        (dialog.*EnterIn[enterIn])('7');
        (dialog.*EnterIn[enterIn])(TempBarSettingsController::KeyEnter);
    }
    QString entries() const // 11 to 15, and 22
    {
        QStringList e;
        for (int i : { 11, 12, 13, 14, 15, 22 })
            e << state.SettingsValues.line(i);
        return e.join('|');
    }
};
} // namespace

// The temperature bar: its drawing in twips, its captions and its settings dialog.
class TestTempBar : public QObject {
    Q_OBJECT
private slots:
    // min max alarms auto-range, a reading before, the reading = top, height, fill, caption (F,
    // Saturated, Under), its colour, blinking.
    void setTemp_data()
    {
        rows::add({ "0 100 1 0 0 50 = 2340 1800 G F Y 0", "0 100 1 0 0 100 = 540 3600 R F Y 0",
            "0 100 1 0 0 101 = 540 3600 R S R 1", "0 100 1 0 0 0 = 4140 0 Y F Y 0",
            "0 100 1 0 0 -1 = 4140 0 Y U Y 1", "0 100 1 0 50 -1 = 2340 0 Y U Y 1",
            "0 100 1 0 0 85 = 1080 3060 G F Y 0", "0 100 1 0 0 86 = 1044 3096 R F Y 0",
            "0 100 1 0 0 25 = 3240 900 Y F Y 0", "0 100 1 0 0 26 = 3204 936 G F Y 0",
            "0 100 0 0 0 90 = 900 3240 C F Y 0", "0 1440 1 0 0 1 = 4138 2 Y F Y 0",
            "0 1440 1 0 0 3 = 4132 8 Y F Y 0", "-100 200 1 0 0 50 = 2340 1800 G F Y 0",
            "0 100 1 1 0 101 = 540 3600 R S Y 0", "0 100 1 1 0 -5 = 4140 0 Y F Y 0",
            "-20000 20000 1 0 50 19000 = 2340 1800 R F Y 0" });
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
    // The caption blinks out of range and comes back steady in its units; auto-range leaves it.
    void blinking()
    {
        TempBar bar;
        bar.SetUnitsDegC();
        bar.SetTemp(150);
        bar.tmrBlinker_Timer();
        QVERIFY(bar.blinking() && !bar.lblTempBar.visible());
        bar.EnableAutoRange(true);
        bar.SetTemp(40);
        QVERIFY(bar.blinking() && bar.lblTempBar.caption() == TempBar::saturatedCaption());
        bar.EnableAutoRange(false);
        bar.SetTemp(40);
        QVERIFY(!bar.blinking() && bar.lblTempBar.visible());
        QCOMPARE(bar.lblTempBar.caption(), TempBar::degCCaption());
    }
    // The scale's labels and the limit markers for a range and a limit on it.
    void range_data()
    {
        // min max limit = the seven labels = marker tops or none
        rows::add({ "0 100 85=100 83.3 66.7 50.0 33.3 16.7 0=920 959",
            "0 100 25=100 83.3 66.7 50.0 33.3 16.7 0=3080 3119",
            "0 100 0=100 83.3 66.7 50.0 33.3 16.7 0=3980 4019",
            "0 100 100=100 83.3 66.7 50.0 33.3 16.7 0=380 419",
            "0 100 101=100 83.3 66.7 50.0 33.3 16.7 0=", "0 100 -1=100 83.3 66.7 50.0 33.3 16.7 0=",
            "0 1440 1=1440 1200.0 960.0 720.0 480.0 240.0 0=3978 4016",
            "0 1440 3=1440 1200.0 960.0 720.0 480.0 240.0 0=3972 4011",
            "-40 260 10=260 210.0 160.0 110.0 60.0 10.0 -40=3380 3419",
            "100 0 50=0 183.3 166.7 150.0 133.3 116.7 100=", // upwards from the minimum
            "-16384 16383 0=16383 10921.8 5460.7 -0.5 -5461.7 -10922.8 -16384=2180 2219",
            // spans that do not fit 16 bits leave labels and markers as they were
            "-30000 30000 0=30000 25000.0 20000.0 15000.0 10000.0 5000.0 -30000=920 3119",
            "50 50 50=50 50.0 50.0 50.0 50.0 50.0 50=920 3119" });
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
    // The settings dialog's every refusal: Enter in a box (0 to 3) sets that entry to the bar's.
    void refused_data()
    {
        QTest::addColumn<QString>("row"); // max|min|high|low|Enter in|title|text|the focus
        const char* rows[] = { "100|0||25|-1|HIGH|{V}High Alarm Limit{D}|txtHighLimit",
            "100|0|8O|25|0|HIGH|{N}High Alarm Limit{D}|txtHighLimit",
            "100|0| |25|1|HIGH|{N}High Alarm Limit{D}|txtHighLimit",
            "100|0|85||2|LOW|{V}Low Alarm Limit{D}|txtLowLimit",
            "100|0|85|1.2.3|3|HIGH|{N}Low Alarm Limit{D}|txtLowLimit",
            "100|0|20|25|-1|ALARM LIMITS ERROR|Your Low Alarm Limit is Greater Than Your High "
            "Alarm "
            "Limit. Please Correct.|txtHighLimit",
            "|0|85|25|-1|MAX|{V}Range Max. Temp.{D}|txtMaxTemp",
            "1OO|0|85|25|-1|MAX|{N}Range Max. Temp.{D}|txtMaxTemp",
            "100||85|25|-1|MIN|{V}Range Min. Temp. {D}|txtMinTemp",
            "100|-|85|25|-1|MIN|{N}Range Min. Temp. {D}|txtMinTemp",
            "0|100|85|25|-1|RANGE LIMITS ERROR|Your Range Min. Temp. is Greater Than Your Max. "
            "Temp. Please Correct.|txtMaxTemp",
            "29.9|0|20|10|-1|RANGE LIMITS ERROR - GRAPH RESOLUTION|Difference Between Max. Temp. "
            "and Min. Temp. Cannot\r\n Be Less Than 30, Due To Accuracy Of The IR-System And\r\n "
            "Graphical Scaling of Temp. Bar Graph.|txtMaxTemp",
            "||||-1|HIGH|{V}High Alarm Limit{D}|txtHighLimit",
            "40000|0|85|25|-1|MAX|{B}Range Max. Temp.|txtMaxTemp",
            "100|-40000|85|-50000|-1|MIN|{B}Range Min. Temp.|txtMinTemp",
            "100|0|40000|25|-1|HIGH|{B}High Alarm Limit|txtHighLimit",
            "100|0|85|-40000|-1|LOW|{B}Low Alarm Limit|txtLowLimit" };
        const QMap<QString, QString> words { { "{V}", "Please Enter Value for The " },
            { "{N}", "Please Enter Numeric Value for The " },
            { "{B}", "Please Enter a Value Between -32768 and 32767 for The " },
            { "{D}", ", or\r\nDisable the Enable Alarms Check Box." },
            { "|HIGH|", "|HIGH ALARM LIMIT ERROR|" }, { "|LOW|", "|LOW ALARM LIMIT ERROR|" },
            { "|MAX|", "|RANGE MAX. TEMP. LIMIT ERROR|" },
            { "|MIN|", "|RANGE MIN. TEMP. LIMIT ERROR|" } };
        for (const char* row : rows) {
            QString text(row);
            for (auto it = words.begin(); it != words.end(); ++it)
                text.replace(it.key(), it.value());
            QTest::newRow(row) << text;
        }
    }
    void refused()
    {
        QFETCH(QString, row);
        const QStringList f = row.split('|');
        const int enterIn = f[4].toInt();
        Rig r;
        r.bar.SetMaxTemp(200);
        r.dialog.Form_Load();
        for (int i = 11; i <= 14; ++i)
            r.state.SettingsValues.setLine(i, QStringLiteral("old"));
        r.accept(f.mid(0, 4).join('|'), enterIn);
        QCOMPARE(r.prompter.messages().size(), size_t(1));
        QCOMPARE(r.prompter.messages()[0].title + '|' + r.prompter.messages()[0].text + '|'
                + r.model.focus(),
            f.mid(5).join('|'));
        QCOMPARE(barValues(r.bar), QStringLiteral("200|0|85|25"));
        QStringList entries { "old", "old", "old", "old", "1", "0" };
        if (enterIn >= 0)
            entries[enterIn] = barValues(r.bar).section('|', enterIn, enterIn);
        QCOMPARE(r.entries(), entries.join('|'));
        QVERIFY(r.limitLines.isEmpty() && r.closes.isEmpty() && r.dialog.loaded());
    }
    // Accepted by OK or Enter: whole degrees on the bar, the typed limits for the chart's lines.
    void accepted_data()
    {
        QTest::addColumn<QString>("boxes");
        QTest::addColumn<QString>("bar");
        for (const char* row :
            { "300|-20|250|10", "30|0|20|10", "100|0|50|50", "130.5|-0.5|12.5|11.5=130|0|12|12",
                " 2e2 |1E1|+85|25 =200|10|85|25", "100|0|500|-500" })
            QTest::newRow(row) << QString(row).section('=', 0, 0) << QString(row).section('=', -1);
    }
    void accepted()
    {
        QFETCH(QString, boxes);
        QFETCH(QString, bar);
        for (const int enterIn : { -1, 0, 1, 2, 3 }) {
            Rig r;
            r.accept(boxes, enterIn);
            QVERIFY(r.prompter.messages().empty());
            QCOMPARE(barValues(r.bar), bar);
            QCOMPARE(r.limitLines, boxes.split('|').mid(2));
            QCOMPARE(r.entries(), bar + "|1|0");
            QVERIFY(r.closes.count() == 1 && !r.dialog.loaded());
        }
    }
    // The check boxes act at once and stay; Cancel leaves the bar and the entries.
    void switches_data()
    {
        QTest::addColumn<QString>("entries"); // 15 and 22, then how the boxes show them
        for (const char* row : { "1|1=1|1", "0|0=0|0", "1.0| 1=1|1", "|=0|0", "2|yes=0|0" })
            QTest::newRow(row) << QString(row);
    }
    void switches()
    {
        QFETCH(QString, entries);
        const bool alarms = entries.section('=', 1).startsWith('1');
        const bool audible = entries.endsWith('1');
        Rig r(entries.section('=', 0, 0));
        QCOMPARE(r.model.chkEnableAlarms.checked(), alarms);
        QCOMPARE(r.bar.IsAlarmOn() && r.bar.imageHighLimit.visible(), alarms);
        QCOMPARE(r.model.chkAudibleAlarms.checked(), audible);
        r.model.chkEnableAlarms.setChecked(!alarms);
        r.dialog.chkEnableAlarms_Click();
        r.model.chkAudibleAlarms.setChecked(!audible);
        r.dialog.chkAudibleAlarms_Click();
        const QString flipped = QStringLiteral("%1|%2").arg(!alarms).arg(!audible);
        QCOMPARE(r.entries().section('|', 4), flipped);
        r.accept("100|0|70|30"); // the markers stay as the switch says
        QCOMPARE(r.bar.imageHighLimit.visible() || r.bar.imageLowLimit.visible(), !alarms);
        r.dialog.Form_Load();
        r.state.SettingsValues.tempBarMax.text = QStringLiteral("stale");
        r.model.txtMaxTemp.setCaption(QStringLiteral("500"));
        r.dialog.cmdCancel_Click();
        QCOMPARE(barValues(r.bar), QStringLiteral("100|0|70|30"));
        QCOMPARE(r.entries(), "100|0|70|30|" + flipped);
        QCOMPARE(r.closes.count(), 2);
    }
};
TALAVEX_TEST(TestTempBar)
#include "TestTempBar.moc"
