#include "support/EngineRig.h"
#include "support/FakePrompter.h"
#include "support/TestRegistry.h"

#include "base/Numbers.h"
#include "chart/GraphSettingsController.h"
#include "chart/GraphSettingsModel.h"

#include <QSignalSpy>
#include <QTest>

namespace {
using Axis = ChartSurface::Axis;
using Panel = GraphSettingsController;

struct Rig : EngineRig<> {
    GraphSettingsModel model;
    FakePrompter prompter;
    int clears = 0;
    Panel panel { state, engine, window, model, prompter, [this] {
                     ++clears;
                     engine.ResetChartSeries();
                     setAxis(Axis::X, 0, 60);
                 } };

    Rig()
    {
        state.SettingsValues.yAxisMax.text = QStringLiteral("old Y");
        state.SettingsValues.xAxisMax.text = QStringLiteral("old X");
        setAxes(10, 110, 0, 100);
        panel.Form_Load();
    }
    // Readings at X = 0, spacing, 2 spacing, ... (count of them).
    void plot(int count, double spacing)
    {
        QList<QPointF> points;
        for (int i = 0; i < count; ++i)
            points << QPointF(i * spacing, 20);
        EngineRig::plot(points);
    }
    void type(const QString& minX, const QString& maxX, const QString& minY, const QString& maxY)
    {
        model.txtMinX.setCaption(minX);
        model.txtMaxX.setCaption(maxX);
        model.txtMinY.setCaption(minY);
        model.txtMaxY.setCaption(maxY);
    }
    void enter(const QString& box)
    {
        const int key = Panel::KeyEnter;
        if (box == QLatin1String("txtMinX"))
            panel.txtMinX_KeyPress(key);
        else if (box == QLatin1String("txtMaxX"))
            panel.txtMaxX_KeyPress(key);
        else if (box == QLatin1String("txtMinY"))
            panel.txtMinY_KeyPress(key);
        else if (box == QLatin1String("txtMaxY"))
            panel.txtMaxY_KeyPress(key);
    }
};
} // namespace

// The graph settings panel's handlers on an in-memory chart, with every box the panel shows
// recorded by the fake prompter.
class TestGraphSettings : public QObject {
    Q_OBJECT
private slots:
    void loadShowsTheChartAndRegistersThePanel()
    {
        Rig rig;
        QVERIFY(rig.state.GraphSettingsOpen);
        QCOMPARE(rig.engine.panel(), static_cast<ChartPanel*>(&rig.panel));
        QCOMPARE(rig.model.txtMinX.caption(), QStringLiteral("10"));
        QCOMPARE(rig.model.txtMaxX.caption(), QStringLiteral("110"));
        rig.setAxes(0.125, 60.5, -3.333, 99.999);
        rig.chart.setAxisTitle(Axis::X, QStringLiteral("HOURS"));
        rig.panel.UpdatePanelWithCurrentChartSettings();
        QCOMPARE(rig.model.txtMinX.caption(), QStringLiteral("0.12"));
        QCOMPARE(rig.model.txtMaxX.caption(), QStringLiteral("60.5"));
        QCOMPARE(rig.model.txtMinY.caption(), QStringLiteral("-3.33"));
        QCOMPARE(rig.model.txtMaxY.caption(), QStringLiteral("100"));
        QCOMPARE(rig.model.timeUnitIndex(), 2);

        rig.panel.Form_Unload();
        QVERIFY(!rig.state.GraphSettingsOpen);
        QVERIFY(rig.engine.panel() == nullptr);
    }

    void engineScrollRefreshesTheBoxes()
    {
        Rig rig;
        rig.setAxes(0, 60, 0, 100);
        rig.panel.XDomainScroll_UpClick();
        QCOMPARE(rig.model.txtMinX.caption(), QStringLiteral("60"));
        QCOMPARE(rig.model.txtMaxX.caption(), QStringLiteral("120"));
        rig.panel.YDomainScroll_DownClick();
        QCOMPARE(rig.model.txtMinY.caption(), QStringLiteral("-100"));
        QCOMPARE(rig.model.txtMaxY.caption(), QStringLiteral("0"));
    }

    void enterRefuses_data()
    {
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("message");
        auto row = [](const char* name, const char* box, const char* text, const char* message) {
            QTest::newRow(name) << QString(box) << QString(text) << QString(message);
        };
        // Chart at X 10..110, Y 0..100.
        const char* maxXOrder = "Please Enter An X Max Value That is Greater Than X Min.";
        row("X max not numeric", "txtMaxX", "12a", "Please Enter A Numeric Value For X Max.");
        row("X max empty", "txtMaxX", "", "Please Enter A Numeric Value For X Max.");
        row("X max equal to min", "txtMaxX", "10", maxXOrder);
        row("X max below min", "txtMaxX", "5", maxXOrder);
        row("X min not numeric", "txtMinX", "x", "Please Enter A Numeric Value For X Min.");
        row("X min negative", "txtMinX", "-1", "Please Enter A Non-Negative Value for  X Min.");
        row("X min equal to max", "txtMinX", "110",
            "Please Enter An X Min. Value That is Less Than X Max.");
        row("Y max not numeric", "txtMaxY", "1..2", "Please Enter A Numeric Value for Y Max.");
        row("Y max below min", "txtMaxY", "-1",
            "Please Enter A Y Max. Value That Is Greater Than Y Min.");
        row("Y min not numeric", "txtMinY", "--3", "Please Enter A Numeric Value for Y Min.");
        row("Y min equal to max", "txtMinY", "100",
            " Please Enter A Y Min. Value That Less Than Y Max.");
    }
    void enterRefuses()
    {
        QFETCH(QString, box);
        QFETCH(QString, text);
        QFETCH(QString, message);
        Rig rig;
        const QList<double> before = rig.axes();
        rig.model.control(box)->setCaption(text);
        const int focusBefore = rig.model.focusRequests();
        rig.enter(box);
        QCOMPARE(rig.prompter.messages().size(), size_t(1));
        QCOMPARE(rig.prompter.messages()[0].text, message);
        QCOMPARE(rig.model.focus(), box);
        QCOMPARE(rig.model.focusRequests(), focusBefore + 1);
        QCOMPARE(rig.axes(), before);
    }

    void enterApplies_data()
    {
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QList<double>>("axes");
        QTest::newRow("X max") << "txtMaxX"
                               << " 200 " << QList<double> { 10, 200, 0, 100 };
        QTest::newRow("X min zero") << "txtMinX"
                                    << "0" << QList<double> { 0, 110, 0, 100 };
        QTest::newRow("Y max") << "txtMaxY"
                               << "0.5" << QList<double> { 10, 110, 0, 0.5 };
        QTest::newRow("Y min negative") << "txtMinY"
                                        << "-40" << QList<double> { 10, 110, -40, 100 };
    }
    void enterApplies()
    {
        QFETCH(QString, box);
        QFETCH(QString, text);
        QFETCH(QList<double>, axes);
        Rig rig;
        rig.model.control(box)->setCaption(text);
        rig.enter(box);
        QVERIFY(rig.prompter.messages().empty());
        QCOMPARE(rig.axes(), axes);
        // The limit lines follow the X range.
        if (box.endsWith(QLatin1Char('X'))) {
            QCOMPARE(rig.chart.x(2, 1), axes[0] - axes[0] * 0.2);
            QCOMPARE(rig.chart.x(2, 2), axes[1] + axes[1] * 0.2);
        }
    }

    void enterOnAnotherKeyDoesNothing()
    {
        Rig rig;
        rig.model.txtMaxX.setCaption(QStringLiteral("junk"));
        rig.panel.txtMaxX_KeyPress('a');
        QVERIFY(rig.prompter.messages().empty());
        QCOMPARE(rig.chart.axisMax(Axis::X), 110.0);
    }

    void enterOnMaxXKeepsTheWindow()
    {
        Rig rig;
        rig.plot(500, 1);
        rig.setAxes(0, 100, 0, 100);
        rig.model.txtMaxX.setCaption(QStringLiteral("450"));
        rig.panel.txtMaxX_KeyPress(Panel::KeyEnter);
        QCOMPARE(rig.chart.axisMin(Axis::X), 150.0);
        QCOMPARE(rig.chart.axisMax(Axis::X), 450.0);
        QCOMPARE(rig.model.txtMinX.caption(), QStringLiteral("150"));
    }

    void acceptRefuses_data()
    {
        QTest::addColumn<QStringList>("boxes"); // min X, max X, min Y, max Y
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("focus");
        auto row = [](const char* name, const QStringList& boxes, const char* message,
                       const char* focus) {
            QTest::newRow(name) << boxes << QString(message) << QString(focus);
        };
        const char* xOrder = "Please Enter An X Max. Value That is Greater Than X Min.";
        row("Y min first", { "a", "b", "c", "d" }, "Please Enter A Numeric Value for Y Min.",
            "txtMinY");
        row("Y max", { "a", "b", "0", "d" }, "Please Enter a Numeric Value for Y Max.", "txtMaxY");
        row("Y order", { "a", "b", "50", "50" },
            "Please Enter A Y Max Value That is Greater Than The Y Min.", "txtMaxY");
        row("X min", { "", "b", "0", "50" }, "Please Enter A Numeric Value for X Min.", "txtMinX");
        row("X max", { "0", "1e", "0", "50" }, "Please Enter A Numeric Value for X Max.",
            "txtMaxX");
        row("X order", { "20", "10", "0", "50" }, xOrder, "txtMaxX");
        // A negative minimum is caught only through the ordering checks.
        row("negative X min below max passes the checks", { "-5", "-10", "0", "50" }, xOrder,
            "txtMaxX");
    }
    void acceptRefuses()
    {
        QFETCH(QStringList, boxes);
        QFETCH(QString, message);
        QFETCH(QString, focus);
        Rig rig;
        const QList<double> before = rig.axes();
        rig.type(boxes[0], boxes[1], boxes[2], boxes[3]);
        rig.model.txtYTitle.setCaption(QStringLiteral("NEW TITLE"));
        rig.panel.cmdAccept_Click();
        QCOMPARE(rig.prompter.messages().size(), size_t(1));
        QCOMPARE(rig.prompter.messages()[0].text, message);
        QCOMPARE(rig.prompter.messages()[0].title, Panel::messageTitle());
        QCOMPARE(rig.model.focus(), focus);
        QCOMPARE(rig.axes(), before);
        QVERIFY(rig.chart.axisTitle(Axis::Y) != QStringLiteral("NEW TITLE"));
        QCOMPARE(rig.state.SettingsValues.yAxisMax.text, QStringLiteral("old Y"));
        QCOMPARE(rig.state.SettingsValues.xAxisMax.text, QStringLiteral("old X"));
    }

    void acceptApplies_data()
    {
        QTest::addColumn<int>("points");
        QTest::addColumn<double>("spacing");
        QTest::addColumn<QStringList>("boxes");
        QTest::addColumn<QList<double>>("axes");
        QTest::addColumn<QStringList>("entries"); // 0 and 2
        auto row = [](const char* name, int points, double spacing, const QStringList& boxes,
                       const QList<double>& axes, const QStringList& entries) {
            QTest::newRow(name) << points << spacing << boxes << axes << entries;
        };
        row("no readings", 0, 1, { "0", "400", "-5", "150.25" }, { 0, 400, -5, 150.25 },
            { "150.2", "400" });
        row("over the window: 300 intervals below max", 500, 1, { "0", "400", "0", "100" },
            { 100, 400, 0, 100 }, { "100", "400" });
        row("two-second readings: 600 units", 500, 2, { "10", "900.5", "0", "100" },
            { 300.5, 900.5, 0, 100 }, { "100", "900.5" });
        row("under the window stays", 500, 1, { "50", "200", "0", "99.96" }, { 50, 200, 0, 99.96 },
            { "100", "200" });
    }
    void acceptApplies()
    {
        QFETCH(int, points);
        QFETCH(double, spacing);
        QFETCH(QStringList, boxes);
        QFETCH(QList<double>, axes);
        QFETCH(QStringList, entries);
        Rig rig;
        rig.plot(points, spacing);
        rig.type(boxes[0], boxes[1], boxes[2], boxes[3]);
        rig.model.txtYTitle.setCaption(QStringLiteral("DEG C"));
        rig.panel.cmdAccept_Click();
        QVERIFY(rig.prompter.messages().empty());
        QCOMPARE(rig.axes(), axes);
        QCOMPARE(rig.chart.axisTitle(Axis::Y), QStringLiteral("DEG C"));
        QCOMPARE(rig.model.txtMinX.caption(), Numbers::Format(axes[0], QStringLiteral("0.##")));
        QCOMPARE(QStringList({ rig.state.SettingsValues.yAxisMax.text,
                     rig.state.SettingsValues.xAxisMax.text }),
            entries);
        QCOMPARE(rig.chart.y(2, 1), 85.0);
        const double hi = Numbers::RoundHalfEven(axes[1]);
        QCOMPARE(rig.chart.x(3, 2), hi + hi * 0.2);
    }

    // The unit of the readings still to come; the numbers on the chart stay as they are.
    void timeUnitConvertsNothingPlotted()
    {
        Rig rig;
        rig.plot(10, 1);
        const QList<double> before = rig.axes();
        rig.panel.comTimeUnits_Click(2);
        QCOMPARE(rig.chart.axisTitle(Axis::X), QStringLiteral("HOURS"));
        QCOMPARE(rig.state.SettingsValues.timeUnit.text, QStringLiteral("2"));
        QCOMPARE(rig.axes(), before);
        QCOMPARE(rig.chart.x(1, 10), 9.0);
        rig.panel.comTimeUnits_Click(7);
        QCOMPARE(rig.chart.axisTitle(Axis::X), QStringLiteral("HOURS"));
        QCOMPARE(rig.state.TimeUnitIndex, qint16(2));
    }

    void stepRule_data()
    {
        QTest::addColumn<QString>("rule");
        QTest::addColumn<float>("value");
        QTest::addColumn<float>("expected");
        QTest::newRow("X up") << "XUp" << 100.0f << 120.0f;
        QTest::newRow("X up rounds to one decimal") << "XUp" << 1.3f << 1.6f;
        QTest::newRow("X up from 0") << "XUp" << 0.0f << 0.1f;
        QTest::newRow("X down") << "XDown" << 100.0f << 80.0f;
        QTest::newRow("X down just above 0.5") << "XDown" << 0.6f << 0.5f;
        QTest::newRow("X down at 0.5 lands on 0") << "XDown" << 0.5f << 0.0f;
        QTest::newRow("X down at 0 stays") << "XDown" << 0.0f << 0.0f;
        QTest::newRow("Y up positive") << "YUp" << 50.0f << 60.0f;
        QTest::newRow("Y up negative towards 0") << "YUp" << -50.0f << -40.0f;
        QTest::newRow("Y up small negative stops at 0") << "YUp" << -0.2f << 0.0f;
        QTest::newRow("Y up from 0") << "YUp" << 0.0f << 0.2f;
        QTest::newRow("Y up at 0.2") << "YUp" << 0.2f << 0.4f;
        QTest::newRow("Y down positive") << "YDown" << 50.0f << 40.0f;
        QTest::newRow("Y down small positive stops at 0") << "YDown" << 0.2f << 0.0f;
        QTest::newRow("Y down from 0") << "YDown" << 0.0f << -0.2f;
        QTest::newRow("Y down at -0.5") << "YDown" << -0.5f << -0.7f;
        QTest::newRow("Y down negative") << "YDown" << -50.0f << -60.0f;
    }
    void stepRule()
    {
        QFETCH(QString, rule);
        QFETCH(float, value);
        QFETCH(float, expected);
        if (rule == QLatin1String("XUp"))
            Panel::IncrementValue(value);
        else if (rule == QLatin1String("XDown"))
            Panel::DecrementValue(value);
        else if (rule == QLatin1String("YUp"))
            Panel::IncrementValueYAxis(value);
        else
            Panel::DecrementValueYAxis(value);
        QCOMPARE(value, expected);
    }

    void stepControls_data()
    {
        QTest::addColumn<QString>("control");
        QTest::addColumn<QList<double>>("start");
        QTest::addColumn<QList<double>>("axes");
        const QList<double> start { 10, 110, 20, 100 };
        QTest::newRow("X min up") << "XMinUp" << start << QList<double> { 12, 110, 20, 100 };
        QTest::newRow("X max down") << "XMaxDown" << start << QList<double> { 10, 88, 20, 100 };
        QTest::newRow("Y min down") << "YMinDown" << start << QList<double> { 10, 110, 16, 100 };
        QTest::newRow("Y max up") << "YMaxUp" << start << QList<double> { 10, 110, 20, 120 };
        QTest::newRow("X min never reaches max")
            << "XMinUp" << QList<double> { 100, 110, 0, 1 } << QList<double> { 100, 110, 0, 1 };
        QTest::newRow("Y max never reaches min")
            << "YMaxDown" << QList<double> { 0, 1, 90, 100 } << QList<double> { 0, 1, 90, 100 };
        QTest::newRow("X max up keeps the window")
            << "XMaxUp" << QList<double> { 0, 300, 0, 1 } << QList<double> { 60, 360, 0, 1 };
        QTest::newRow("X min down keeps the window")
            << "XMinDown" << QList<double> { 100, 390, 0, 1 } << QList<double> { 80, 380, 0, 1 };
    }
    void stepControls()
    {
        QFETCH(QString, control);
        QFETCH(QList<double>, start);
        QFETCH(QList<double>, axes);
        Rig rig;
        rig.plot(500, 1);
        rig.setAxes(start[0], start[1], start[2], start[3]);
        if (control == QLatin1String("XMinUp"))
            rig.panel.XMinIncrement_UpClick();
        else if (control == QLatin1String("XMinDown"))
            rig.panel.XMinIncrement_DownClick();
        else if (control == QLatin1String("XMaxUp"))
            rig.panel.XMaxIncrement_UpClick();
        else if (control == QLatin1String("XMaxDown"))
            rig.panel.XMaxIncrement_DownClick();
        else if (control == QLatin1String("YMinDown"))
            rig.panel.YMinIncrement_DownClick();
        else if (control == QLatin1String("YMaxUp"))
            rig.panel.YMaxIncrement_UpClick();
        else
            rig.panel.YMaxIncrement_DownClick();
        QCOMPARE(rig.axes(), axes);
        // A step taken shows in the boxes at once.
        if (axes != start)
            QCOMPARE(rig.model.txtMaxX.caption(), Numbers::Format(axes[1], QStringLiteral("0.##")));
    }

    void activationFollowsAcquisitionAndReadings_data()
    {
        QTest::addColumn<bool>("acquiring");
        QTest::addColumn<bool>("readings");
        QTest::addColumn<bool>("inputs");
        QTest::addColumn<bool>("clear");
        QTest::newRow("idle, empty chart") << false << false << true << false;
        QTest::newRow("idle, readings") << false << true << true << true;
        QTest::newRow("acquiring") << true << true << false << false;
    }
    void activationFollowsAcquisitionAndReadings()
    {
        QFETCH(bool, acquiring);
        QFETCH(bool, readings);
        QFETCH(bool, inputs);
        QFETCH(bool, clear);
        Rig rig;
        if (readings)
            rig.plot(5, 1);
        rig.window.mnuClearChart.setEnabled(!acquiring);
        rig.panel.Form_Activate();
        for (const Control* c : { &rig.model.txtMinX, &rig.model.txtMaxY, &rig.model.cmdAccept,
                 &rig.model.comTimeUnits, &rig.model.XMinIncrement })
            QCOMPARE(c->enabled(), inputs);
        QCOMPARE(rig.model.cmdResetChartParameters.enabled(), clear);
        rig.panel.SetInputsEnabled(true);
        QVERIFY(rig.model.txtMinY.enabled() && rig.model.cmdAccept.enabled());
    }

    void checkBoxesDriveTheMenuAndSettings()
    {
        Rig rig;
        rig.model.chkAutoRange.setChecked(true);
        rig.panel.chkAutoRange_Click();
        QVERIFY(rig.window.mnuAutoScaleYAxis.checked());
        QCOMPARE(rig.state.SettingsValues.yAutoRange.text, QStringLiteral("1"));
        rig.model.chkDispLimits.setChecked(true);
        rig.panel.chkDispLimits_Click();
        QVERIFY(rig.window.mnuDispLimits.checked());
        QCOMPARE(rig.state.SettingsValues.limitLinesShown.text, QStringLiteral("1"));
        QVERIFY(rig.chart.seriesVisible(GraphingFunctions::HighLimitSeries));
        rig.model.chkDispLimits.setChecked(false);
        rig.panel.chkDispLimits_Click();
        QVERIFY(!rig.window.mnuDispLimits.checked());
        QCOMPARE(rig.state.SettingsValues.limitLinesShown.text, QStringLiteral("0"));
        QVERIFY(!rig.chart.seriesVisible(GraphingFunctions::HighLimitSeries));
    }

    void clearChartRunsTheCommandAndRefreshes()
    {
        Rig rig;
        rig.plot(5, 1);
        QSignalSpy closes(&rig.panel, &Panel::closeRequested);
        rig.panel.cmdResetChartParameters_Click();
        QCOMPARE(rig.clears, 1);
        QCOMPARE(rig.model.txtMaxX.caption(), QStringLiteral("60"));
        QCOMPARE(rig.model.txtMinX.caption(), QStringLiteral("0"));
        rig.panel.cmdClose_Click();
        QCOMPARE(closes.count(), 1);
        QVERIFY(!rig.state.GraphSettingsOpen);
    }
};

TALAVEX_TEST(TestGraphSettings)
#include "TestGraphSettings.moc"
