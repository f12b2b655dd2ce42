#include "support/FakePrompter.h"
#include "support/TestRegistry.h"

#include "base/AppState.h"
#include "tempbar/TempBar.h"
#include "tempbar/TempBarSettingsController.h"
#include "tempbar/TempBarSettingsModel.h"

#include <QSignalSpy>
#include <QTest>

// The bar settings dialog's handlers, driven through the model and the fake prompter.
class TestTempBarSettings : public QObject {
    Q_OBJECT

    struct Rig {
        AppState state;
        TempBar bar;
        TempBarSettingsModel model;
        FakePrompter prompter;
        int limitLineUpdates = 0;
        TempBarSettingsController dialog { state, bar, model, prompter,
            [this] { ++limitLineUpdates; } };
        QSignalSpy closes { &dialog, &TempBarSettingsController::closeRequested };

        Rig()
        {
            state.SettingsValues.alarmLimitsOn.text = QStringLiteral("1");
            state.SettingsValues.audibleAlarms.text = QStringLiteral("0");
            dialog.Form_Load();
        }
        void type(const QString& max, const QString& min, const QString& high, const QString& low)
        {
            model.txtMaxTemp.setCaption(max);
            model.txtMinTemp.setCaption(min);
            model.txtHighLimit.setCaption(high);
            model.txtLowLimit.setCaption(low);
        }
        QStringList entries() const
        {
            QStringList e;
            for (int i = 11; i <= 15; ++i)
                e << state.SettingsValues.line(i);
            return e;
        }
        QList<int> barValues() const
        {
            return { bar.GetMaxTemp(), bar.GetMinTemp(), bar.GetHighLimit(), bar.GetLowLimit() };
        }
    };

private slots:
    void loadFillsFromTheBarAndTheSettings_data()
    {
        QTest::addColumn<QStringList>("entries"); // 15 and 22
        QTest::addColumn<bool>("alarms");
        QTest::addColumn<bool>("audible");
        QTest::newRow("both on") << QStringList { "1", "1" } << true << true;
        QTest::newRow("both off") << QStringList { "0", "0" } << false << false;
        QTest::newRow("read as numbers") << QStringList { "1.0", " 1" } << true << true;
        QTest::newRow("empty is off") << QStringList { "", "" } << false << false;
        QTest::newRow("2 is off") << QStringList { "2", "yes" } << false << false;
    }

    void loadFillsFromTheBarAndTheSettings()
    {
        QFETCH(QStringList, entries);
        Rig r;
        r.bar.SetMaxTemp(300);
        r.bar.SetMinTemp(-20);
        r.bar.SetHighLimit(250);
        r.bar.SetLowLimit(10);
        r.state.SettingsValues.alarmLimitsOn.text = entries[0];
        r.state.SettingsValues.audibleAlarms.text = entries[1];
        r.dialog.Form_Load();
        QCOMPARE(QStringList({ r.model.txtMaxTemp.caption(), r.model.txtMinTemp.caption(),
                     r.model.txtHighLimit.caption(), r.model.txtLowLimit.caption() }),
            QStringList({ "300", "-20", "250", "10" }));
        QTEST(r.model.chkEnableAlarms.checked(), "alarms");
        QTEST(r.bar.IsAlarmOn(), "alarms");
        QTEST(r.bar.imageHighLimit.visible(), "alarms");
        QTEST(r.model.chkAudibleAlarms.checked(), "audible");
    }

    void checks_data()
    {
        QTest::addColumn<QStringList>("boxes"); // max, min, high, low
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("focus");

        const QString orDisable = ", or\r\nDisable the Enable Alarms Check Box.";
        const QString high = "HIGH ALARM LIMIT ERROR";
        const QString span = "Difference Between Max. Temp. and Min. Temp. Cannot\r\n Be Less Than "
                             "30, Due To Accuracy Of The IR-System And\r\n Graphical Scaling of "
                             "Temp. Bar Graph.";
        auto row = [](const char* name, const QStringList& boxes, const QString& title,
                       const QString& text, const char* focus) {
            QTest::newRow(name) << boxes << title << text << QString::fromLatin1(focus);
        };
        row("1 high empty", { "100", "0", "", "25" }, high,
            "Please Enter Value for The High Alarm Limit" + orDisable, "txtHighLimit");
        row("2 high not numeric", { "100", "0", "8O", "25" }, high,
            "Please Enter Numeric Value for The High Alarm Limit" + orDisable, "txtHighLimit");
        row("2 high blank", { "100", "0", " ", "25" }, high,
            "Please Enter Numeric Value for The High Alarm Limit" + orDisable, "txtHighLimit");
        row("3 low empty", { "100", "0", "85", "" }, "LOW ALARM LIMIT ERROR",
            "Please Enter Value for The Low Alarm Limit" + orDisable, "txtLowLimit");
        row("4 low not numeric, under the high title", { "100", "0", "85", "1.2.3" }, high,
            "Please Enter Numeric Value for The Low Alarm Limit" + orDisable, "txtLowLimit");
        row("5 limits crossed", { "100", "0", "20", "25" }, "ALARM LIMITS ERROR",
            "Your Low Alarm Limit is Greater Than Your High Alarm Limit. Please Correct.",
            "txtHighLimit");
        row("6 max empty", { "", "0", "85", "25" }, "RANGE MAX. TEMP. LIMIT ERROR",
            "Please Enter Value for The Range Max. Temp." + orDisable, "txtMaxTemp");
        row("7 max not numeric", { "1OO", "0", "85", "25" }, "RANGE MAX. TEMP. LIMIT ERROR",
            "Please Enter Numeric Value for The Range Max. Temp." + orDisable, "txtMaxTemp");
        row("8 min empty", { "100", "", "85", "25" }, "RANGE MIN. TEMP. LIMIT ERROR",
            "Please Enter Value for The Range Min. Temp. " + orDisable, "txtMinTemp");
        row("9 min not numeric", { "100", "-", "85", "25" }, "RANGE MIN. TEMP. LIMIT ERROR",
            "Please Enter Numeric Value for The Range Min. Temp. " + orDisable, "txtMinTemp");
        row("10 range reversed", { "0", "100", "85", "25" }, "RANGE LIMITS ERROR",
            "Your Range Min. Temp. is Greater Than Your Max. Temp. Please Correct.", "txtMaxTemp");
        row("11 span 29.9 by value", { "29.9", "0", "20", "10" },
            "RANGE LIMITS ERROR - GRAPH RESOLUTION", span, "txtMaxTemp");
        row("the first failure wins", { "", "", "", "" }, high,
            "Please Enter Value for The High Alarm Limit" + orDisable, "txtHighLimit");
        row("40000 is refused before any setter", { "40000", "0", "85", "25" },
            "RANGE MAX. TEMP. LIMIT ERROR",
            "Please Enter a Value Between -32768 and 32767 for The Range Max. Temp.", "txtMaxTemp");
        row("a low limit below 16 bits", { "100", "0", "85", "-40000" }, "LOW ALARM LIMIT ERROR",
            "Please Enter a Value Between -32768 and 32767 for The Low Alarm Limit", "txtLowLimit");
    }

    void checks()
    {
        QFETCH(QStringList, boxes);
        Rig r;
        r.bar.SetMaxTemp(200);
        r.dialog.Form_Load();
        const QStringList entriesBefore = r.entries();
        const QList<int> barBefore = r.barValues();
        r.type(boxes[0], boxes[1], boxes[2], boxes[3]);
        r.dialog.cmdAccept_Click();
        const auto shown = r.prompter.messages();
        QCOMPARE(int(shown.size()), 1);
        QTEST(shown[0].title, "title");
        QTEST(shown[0].text, "text");
        QCOMPARE(shown[0].buttons, Prompter::Buttons::Ok);
        QTEST(r.model.focus(), "focus");
        QCOMPARE(r.barValues(), barBefore);
        QCOMPARE(r.entries(), entriesBefore);
        QCOMPARE(r.limitLineUpdates, 0);
        QCOMPARE(r.closes.count(), 0);
        QVERIFY(r.dialog.loaded());
    }

    void accepted_data()
    {
        QTest::addColumn<QStringList>("boxes"); // max, min, high, low
        QTest::addColumn<QList<int>>("bar"); // also what entries 11 to 14 hold
        QTest::newRow("plain") << QStringList { "300", "-20", "250", "10" }
                               << QList<int> { 300, -20, 250, 10 };
        QTest::newRow("span of exactly 30")
            << QStringList { "30", "0", "20", "10" } << QList<int> { 30, 0, 20, 10 };
        QTest::newRow("equal limits")
            << QStringList { "100", "0", "50", "50" } << QList<int> { 100, 0, 50, 50 };
        QTest::newRow("halves round to even")
            << QStringList { "130.5", "-0.5", "12.5", "11.5" } << QList<int> { 130, 0, 12, 12 };
        QTest::newRow("blanks and exponents")
            << QStringList { " 2e2 ", "1E1", "+85", "25 " } << QList<int> { 200, 10, 85, 25 };
        QTest::newRow("limits outside the range")
            << QStringList { "100", "0", "500", "-500" } << QList<int> { 100, 0, 500, -500 };
    }

    void accepted()
    {
        QFETCH(QStringList, boxes);
        QFETCH(QList<int>, bar);
        Rig r;
        r.type(boxes[0], boxes[1], boxes[2], boxes[3]);
        r.dialog.cmdAccept_Click();
        QVERIFY(r.prompter.messages().empty());
        QCOMPARE(r.barValues(), bar);
        QStringList entries;
        for (int value : bar)
            entries << QString::number(value);
        QCOMPARE(r.entries(), entries << QStringLiteral("1"));
        QCOMPARE(r.limitLineUpdates, 1);
        QCOMPARE(r.closes.count(), 1);
        QVERIFY(!r.dialog.loaded());
    }

    void acceptPlacesTheMarkersOnTheNewRange()
    {
        Rig r;
        r.type("200", "0", "150", "50");
        r.dialog.cmdAccept_Click();
        QCOMPARE(r.bar.highMarkerTop(), 4140 - 2700 - 160);
        QCOMPARE(r.bar.lowMarkerTop(), 4140 - 900 - 121);
        QCOMPARE(r.bar.lblMaxTemp.caption(), QStringLiteral("200"));
    }

    void acceptWritesTheTypedLimitsBeforeTheLines()
    {
        // Entries 13 and 14 hold the typed text when the limit lines are redrawn; the close
        // then puts the bar's whole degrees there.
        Rig r;
        QStringList seen;
        TempBarSettingsController dialog(r.state, r.bar, r.model, r.prompter, [&] {
            seen << r.state.SettingsValues.highAlarmLimit.text
                 << r.state.SettingsValues.lowAlarmLimit.text;
        });
        dialog.Form_Load();
        r.type("100", "0", "60.5", "20.25");
        dialog.cmdAccept_Click();
        QCOMPARE(seen, QStringList({ "60.5", "20.25" }));
        QCOMPARE(r.state.SettingsValues.highAlarmLimit.text, QStringLiteral("60"));
        QCOMPARE(r.state.SettingsValues.lowAlarmLimit.text, QStringLiteral("20"));
    }

    void indicatorsOffStayHiddenAfterOk()
    {
        Rig r;
        r.model.chkEnableAlarms.setChecked(false);
        r.dialog.chkEnableAlarms_Click();
        QVERIFY(!r.bar.imageHighLimit.visible());
        QVERIFY(!r.bar.imageLowLimit.visible());
        QCOMPARE(r.state.SettingsValues.alarmLimitsOn.text, QStringLiteral("0"));
        r.type("100", "0", "70", "30");
        r.dialog.cmdAccept_Click();
        QVERIFY(!r.bar.imageHighLimit.visible());
        QVERIFY(!r.bar.imageLowLimit.visible());
        QCOMPARE(r.state.SettingsValues.alarmLimitsOn.text, QStringLiteral("0"));
        r.model.chkEnableAlarms.setChecked(true);
        r.dialog.chkEnableAlarms_Click();
        QVERIFY(r.bar.imageHighLimit.visible());
        QCOMPARE(r.state.SettingsValues.alarmLimitsOn.text, QStringLiteral("1"));
    }

    void audibleBoxWritesEntry22AtOnce()
    {
        Rig r;
        r.model.chkAudibleAlarms.setChecked(true);
        r.dialog.chkAudibleAlarms_Click();
        QCOMPARE(r.state.SettingsValues.audibleAlarms.text, QStringLiteral("1"));
        r.dialog.cmdCancel_Click();
        QCOMPARE(r.state.SettingsValues.audibleAlarms.text, QStringLiteral("1"));
        r.dialog.Form_Load();
        QVERIFY(r.model.chkAudibleAlarms.checked());
        r.model.chkAudibleAlarms.setChecked(false);
        r.dialog.chkAudibleAlarms_Click();
        QCOMPARE(r.state.SettingsValues.audibleAlarms.text, QStringLiteral("0"));
    }

    void cancelLeavesBarAndTable()
    {
        Rig r;
        r.state.SettingsValues.tempBarMax.text = QStringLiteral("stale");
        r.type("500", "100", "400", "200");
        r.dialog.cmdCancel_Click();
        QCOMPARE(r.barValues(), QList<int>({ 100, 0, 85, 25 }));
        QCOMPARE(r.entries(), QStringList({ "100", "0", "85", "25", "1" }));
        QCOMPARE(r.closes.count(), 1);
        QCOMPARE(r.limitLineUpdates, 0);
        QVERIFY(r.prompter.messages().empty());
    }

    void enterKey_data()
    {
        QTest::addColumn<QString>("box");
        QTest::addColumn<int>("entry");
        QTest::newRow("maximum") << "txtMaxTemp" << 11;
        QTest::newRow("minimum") << "txtMinTemp" << 12;
        QTest::newRow("high limit") << "txtHighLimit" << 13;
        QTest::newRow("low limit") << "txtLowLimit" << 14;
    }

    void enterKey()
    {
        QFETCH(QString, box);
        QFETCH(int, entry);
        using Handler = void (TempBarSettingsController::*)(int);
        const QHash<QString, Handler> handlers {
            { "txtMaxTemp", &TempBarSettingsController::txtMaxTemp_KeyPress },
            { "txtMinTemp", &TempBarSettingsController::txtMinTemp_KeyPress },
            { "txtHighLimit", &TempBarSettingsController::txtHighLimit_KeyPress },
            { "txtLowLimit", &TempBarSettingsController::txtLowLimit_KeyPress },
        };
        const Handler press = handlers.value(box);
        const QStringList barText { "100", "0", "85", "25" };

        // A failing accept: the entry holds the bar's value, not the typed one, and the box
        // stays open.
        Rig r;
        r.type("100", "0", "85", "x");
        for (int i = 11; i <= 14; ++i)
            r.state.SettingsValues.setLine(i, QStringLiteral("old"));
        (r.dialog.*press)('7');
        QVERIFY(r.prompter.messages().empty());
        QCOMPARE(r.state.SettingsValues.line(entry), QStringLiteral("old"));
        (r.dialog.*press)(TempBarSettingsController::KeyEnter);
        QCOMPARE(r.prompter.titles(), QStringList({ "HIGH ALARM LIMIT ERROR" }));
        QCOMPARE(r.state.SettingsValues.line(entry), barText[entry - 11]);
        for (int i = 11; i <= 14; ++i) {
            if (i != entry)
                QCOMPARE(r.state.SettingsValues.line(i), QStringLiteral("old"));
        }
        QCOMPARE(r.closes.count(), 0);

        // A passing accept: as OK does.
        r.type("90", "10", "80", "20");
        (r.dialog.*press)(TempBarSettingsController::KeyEnter);
        QCOMPARE(r.closes.count(), 1);
        QCOMPARE(r.barValues(), QList<int>({ 90, 10, 80, 20 }));
        QCOMPARE(r.limitLineUpdates, 1);
        QCOMPARE(r.entries(), QStringList({ "90", "10", "80", "20", "1" }));
    }
};

TALAVEX_TEST(TestTempBarSettings)
#include "TestTempBarSettings.moc"
