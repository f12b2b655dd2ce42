#include "base/AppState.h"
#include "support/FakePrompter.h"
#include "support/TestRegistry.h"
#include "tempbar/TempBar.h"
#include "tempbar/TempBarSettingsController.h"
#include "tempbar/TempBarSettingsModel.h"
#include <QSignalSpy>
#include <QTest>

namespace {
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
    QString barValues() const
    {
        return QStringList { QString::number(bar.GetMaxTemp()), QString::number(bar.GetMinTemp()),
            QString::number(bar.GetHighLimit()), QString::number(bar.GetLowLimit()) }
            .join('|');
    }
};
} // namespace

// The bar settings dialog's handlers, driven through the model and the fake prompter.
class TestTempBarSettings : public QObject {
    Q_OBJECT
private slots:
    // Every refusal, in the order the boxes are checked: the box shown, the focus, nothing
    // written to the bar or the chart, and the entry of a box Enter was pressed in set to the
    // bar's value.
    void refused_data()
    {
        QTest::addColumn<QString>("boxes");
        QTest::addColumn<int>("enterIn");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("focus");
        const QString orDisable = ", or\r\nDisable the Enable Alarms Check Box.";
        const QString high = "HIGH ALARM LIMIT ERROR", max = "RANGE MAX. TEMP. LIMIT ERROR";
        const QString min = "RANGE MIN. TEMP. LIMIT ERROR", value = "Please Enter Value for The ";
        const QString numeric = "Please Enter Numeric Value for The ";
        const QString bounds = "Please Enter a Value Between -32768 and 32767 for The ";
        auto row = [](const char* boxes, int enterIn, const QString& title, const QString& text,
                       const char* focus) {
            QTest::newRow(boxes) << QString(boxes) << enterIn << title << text << QString(focus);
        };
        row("100|0||25", -1, high, value + "High Alarm Limit" + orDisable, "txtHighLimit");
        row("100|0|8O|25", 0, high, numeric + "High Alarm Limit" + orDisable, "txtHighLimit");
        row("100|0| |25", 1, high, numeric + "High Alarm Limit" + orDisable, "txtHighLimit");
        row("100|0|85|", 2, "LOW ALARM LIMIT ERROR", value + "Low Alarm Limit" + orDisable,
            "txtLowLimit");
        row("100|0|85|1.2.3", 3, high, numeric + "Low Alarm Limit" + orDisable, "txtLowLimit");
        row("100|0|20|25", -1, "ALARM LIMITS ERROR",
            "Your Low Alarm Limit is Greater Than Your High Alarm Limit. Please Correct.",
            "txtHighLimit");
        row("|0|85|25", -1, max, value + "Range Max. Temp." + orDisable, "txtMaxTemp");
        row("1OO|0|85|25", -1, max, numeric + "Range Max. Temp." + orDisable, "txtMaxTemp");
        row("100||85|25", -1, min, value + "Range Min. Temp. " + orDisable, "txtMinTemp");
        row("100|-|85|25", -1, min, numeric + "Range Min. Temp. " + orDisable, "txtMinTemp");
        row("0|100|85|25", -1, "RANGE LIMITS ERROR",
            "Your Range Min. Temp. is Greater Than Your Max. Temp. Please Correct.", "txtMaxTemp");
        row("29.9|0|20|10", -1, "RANGE LIMITS ERROR - GRAPH RESOLUTION",
            "Difference Between Max. Temp. and Min. Temp. Cannot\r\n Be Less Than 30, Due To "
            "Accuracy Of The IR-System And\r\n Graphical Scaling of Temp. Bar Graph.",
            "txtMaxTemp");
        row("|||", -1, high, value + "High Alarm Limit" + orDisable, "txtHighLimit");
        row("40000|0|85|25", -1, max, bounds + "Range Max. Temp.", "txtMaxTemp");
        row("100|-40000|85|-50000", -1, min, bounds + "Range Min. Temp.", "txtMinTemp");
        row("100|0|40000|25", -1, high, bounds + "High Alarm Limit", "txtHighLimit");
        row("100|0|85|-40000", -1, "LOW ALARM LIMIT ERROR", bounds + "Low Alarm Limit",
            "txtLowLimit");
    }
    void refused()
    {
        QFETCH(QString, boxes);
        QFETCH(int, enterIn);
        Rig r;
        r.bar.SetMaxTemp(200);
        r.dialog.Form_Load();
        for (int i = 11; i <= 14; ++i)
            r.state.SettingsValues.setLine(i, QStringLiteral("old"));
        r.accept(boxes, enterIn);
        QCOMPARE(r.prompter.messages().size(), size_t(1));
        QTEST(r.prompter.messages()[0].title, "title");
        QTEST(r.prompter.messages()[0].text, "text");
        QTEST(r.model.focus(), "focus");
        QCOMPARE(r.barValues(), QStringLiteral("200|0|85|25"));
        QStringList entries { "old", "old", "old", "old", "1", "0" };
        if (enterIn >= 0)
            entries[enterIn] = r.barValues().section('|', enterIn, enterIn);
        QCOMPARE(r.entries(), entries.join('|'));
        QVERIFY(r.limitLines.isEmpty() && r.closes.isEmpty() && r.dialog.loaded());
    }
    // Accepted by OK or Enter: the bar takes whole degrees (halves to even), the limit lines are
    // redrawn with the typed limits, and the close writes the bar's values to entries 11 to 15.
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
            QCOMPARE(r.barValues(), bar);
            QCOMPARE(r.limitLines, boxes.split('|').mid(2));
            QCOMPARE(r.entries(), bar + "|1|0");
            QVERIFY(r.closes.count() == 1 && !r.dialog.loaded());
        }
    }
    // The two check boxes act at once, are read from the entries as numbers, and neither OK nor
    // Cancel undoes them; Cancel leaves the bar and the entries as they were.
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
        QCOMPARE(r.barValues(), QStringLiteral("100|0|70|30"));
        QCOMPARE(r.entries(), "100|0|70|30|" + flipped);
        QCOMPARE(r.closes.count(), 2);
    }
};
TALAVEX_TEST(TestTempBarSettings)
#include "TestTempBarSettings.moc"
