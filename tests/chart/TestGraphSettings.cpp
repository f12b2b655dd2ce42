#include "support/EngineRig.h"
#include "support/FakePrompter.h"
#include "support/TestRegistry.h"

#include "support/Rows.h"

#include "chart/ChartPanel.h"
#include "chart/ChartSummary.h"
#include "chart/GraphSettingsController.h"
#include "chart/GraphSettingsModel.h"
#include "chart/TwoPointMeasure.h"

#include <QTest>

namespace {
using Axis = ChartSurface::Axis;
using Panel = GraphSettingsController;

// The panel loaded over a chart at X 10..110, Y 0..100, every box it shows recorded.
struct Rig : EngineRig {
    GraphSettingsModel model;
    FakePrompter prompter;
    Panel panel { state, engine, window, model, prompter, {} };

    Rig()
    {
        state.SettingsValues.yAxisMax.text = QStringLiteral("old Y");
        state.SettingsValues.xAxisMax.text = QStringLiteral("old X");
        setAxes(10, 110, 0, 100);
        panel.Form_Load();
    }
    // A refusal: the panel's one box, the focus put back, nothing changed on the chart or in the
    // settings.
    void refused(const QString& focus, const QString& message)
    {
        QCOMPARE(prompter.titles(), QStringList { Panel::messageTitle() });
        QCOMPARE(prompter.messages()[0].text, message);
        QCOMPARE(model.focus(), focus);
        QCOMPARE(model.focusRequests(), 1);
        QCOMPARE(axes(), QList<double>({ 10, 110, 0, 100 }));
        QVERIFY(chart.axisTitle(Axis::Y).isEmpty());
        QCOMPARE(state.SettingsValues.yAxisMax.text + state.SettingsValues.xAxisMax.text,
            QStringLiteral("old Yold X"));
    }
};
} // namespace

// The graph settings panel's refusals and step rule on an in-memory chart, the two-point
// measurement, the summary of the readings and when the engine refreshes the panel.
class TestGraphSettings : public QObject {
    Q_OBJECT
private slots:
    // Box | text typed before Enter | the message.
    void enterRefuses_data()
    {
        rows::add({ "X max not numeric | txtMaxX | 12a | Please Enter A Numeric Value For X Max.",
            "X max empty | txtMaxX |  | Please Enter A Numeric Value For X Max.",
            "X max = min | txtMaxX | 10 | Please Enter An X Max Value That is Greater Than X Min.",
            "X max < min | txtMaxX | 5 | Please Enter An X Max Value That is Greater Than X Min.",
            "X min not numeric | txtMinX | x | Please Enter A Numeric Value For X Min.",
            "X min negative | txtMinX | -1 | Please Enter A Non-Negative Value for  X Min.",
            "X min = max | txtMinX | 110 | Please Enter An X Min. Value That is Less Than X Max.",
            "Y max not numeric | txtMaxY | 1..2 | Please Enter A Numeric Value for Y Max.",
            "Y max < min | txtMaxY | -1 | Please Enter A Y Max. Value That Is Greater Than Y Min.",
            "Y max = min | txtMaxY | 0 | Please Enter A Y Max. Value That Is Greater Than Y Min.",
            "Y min not numeric | txtMinY | --3 | Please Enter A Numeric Value for Y Min.",
            "Y min = max | txtMinY | 100 |  Please Enter A Y Min. Value That Less Than Y Max." });
    }
    void enterRefuses()
    {
        const QStringList f = rows::fields();
        Rig rig;
        rig.model.control(f[0])->setCaption(f[1]);
        rig.model.txtYTitle.setCaption(QStringLiteral("NEW TITLE"));
        const QString& b = f[0];
        const int enter = Panel::KeyEnter;
        b == "txtMinX"       ? rig.panel.txtMinX_KeyPress(enter)
            : b == "txtMaxX" ? rig.panel.txtMaxX_KeyPress(enter)
            : b == "txtMinY" ? rig.panel.txtMinY_KeyPress(enter)
                             : rig.panel.txtMaxY_KeyPress(enter);
        rig.refused(f[0], f[2]);
    }

    // Min X, max X, min Y, max Y typed | the box given the focus | the message.
    void acceptRefuses_data()
    {
        rows::add({ "Y min first | a,b,c,d | txtMinY | Please Enter A Numeric Value for Y Min.",
            "Y max | a,b,0,d | txtMaxY | Please Enter a Numeric Value for Y Max.",
            "Y order | a,b,50,50 | txtMaxY | Please Enter A Y Max Value That is Greater Than The Y "
            "Min.",
            "X min | ,b,0,50 | txtMinX | Please Enter A Numeric Value for X Min.",
            "X max | 0,1e,0,50 | txtMaxX | Please Enter A Numeric Value for X Max.",
            "X order | 20,10,0,50 | txtMaxX | Please Enter An X Max. Value That is Greater Than X "
            "Min.",
            // A negative minimum is caught only through the ordering checks.
            "X min < 0 | -5,-10,0,50 | txtMaxX | Please Enter An X Max. Value That is Greater Than "
            "X Min." });
    }
    void acceptRefuses()
    {
        const QStringList f = rows::fields();
        const QStringList typed = f[0].split(QLatin1Char(','));
        Rig rig;
        rig.model.txtMinX.setCaption(typed[0]);
        rig.model.txtMaxX.setCaption(typed[1]);
        rig.model.txtMinY.setCaption(typed[2]);
        rig.model.txtMaxY.setCaption(typed[3]);
        rig.model.txtYTitle.setCaption(QStringLiteral("NEW TITLE"));
        rig.panel.cmdAccept_Click();
        rig.refused(f[1], f[2]);
    }

    // Rule, value, the value stepped.
    void stepRule_data()
    {
        rows::add({ "X up | XUp 100 120", "X up to one decimal | XUp 1.3 1.6",
            "X up from 0 | XUp 0 0.1", "X down | XDown 100 80", "X down above 0.5 | XDown 0.6 0.5",
            "X down at 0.5 lands on 0 | XDown 0.5 0", "X down at 0 stays | XDown 0 0",
            "Y up positive | YUp 50 60", "Y up negative towards 0 | YUp -50 -40",
            "Y up small negative stops at 0 | YUp -0.2 0", "Y up from 0 | YUp 0 0.2",
            "Y up at 0.2 | YUp 0.2 0.4", "Y down positive | YDown 50 40",
            "Y down small positive stops at 0 | YDown 0.2 0", "Y down from 0 | YDown 0 -0.2",
            "Y down at -0.5 | YDown -0.5 -0.7", "Y down negative | YDown -50 -60" });
    }
    void stepRule()
    {
        const QStringList f = rows::fields()[0].split(QLatin1Char(' '));
        float value = f[1].toFloat();
        f[0] == "XUp"         ? Panel::IncrementValue(value)
            : f[0] == "XDown" ? Panel::DecrementValue(value)
            : f[0] == "YUp"   ? Panel::IncrementValueYAxis(value)
                              : Panel::DecrementValueYAxis(value);
        QCOMPARE(value, f[2].toFloat());
    }

    // Pinned X, Y | cursor X | what is under it (0 a reading, 1 off the chart, 2 no data) and its
    // value | X axis title | time, temperature and rate.
    void measure_data()
    {
        rows::add({ "heating, seconds | 10 30 | 130 | 0 90 | SECONDS | 120.00;60.00;30.00",
            "heating, minutes | 1 30 | 3 | 0 90 | MINUTES | 2.00;60.00;30.00",
            "heating, hours | 0 30 | 0.5 | 0 90 | HOURS | 0.50;60.00;2.00",
            "heating, days | 0 0 | 1 | 0 1440 | DAYS | 1.00;1440.00;1.00",
            "another title: seconds | 0 0 | 60 | 0 5 | hours | 60.00;5.00;5.00",
            "cooling | 0 200 | 30 | 0 150 | SECONDS | 30.00;-50.00;-100.00",
            "cursor left of the pin | 60 100 | 0 | 0 40 | SECONDS | -60.00;-60.00;60.00",
            "below zero | 0 -20 | 60 | 0 -35.5 | SECONDS | 60.00;-15.50;-15.50",
            "same time: no division | 5 100 | 5 | 0 100 | SECONDS | 0.00;0.00;SAME TIME",
            "too close to divide | 0 0 | 1e-320 | 0 1e10 | SECONDS | 0.00;10000000000.00;SAME TIME",
            "cursor off the chart | 5 100 | 99 | 1 0 | SECONDS | NO DATA;OFF CHART;NO DATA",
            "no data under it | 5 100 | 20 | 2 0 | SECONDS | NO DATA;NO DATA;NO DATA" });
    }
    void measure()
    {
        const QStringList f = rows::fields();
        const QList<double> v = rows::numbers(f.mid(0, 3).join(QLatin1Char(' ')));
        const TwoPointTexts t = TwoPointMeasure(QPointF(v[0], v[1]), v[2],
            CursorPoint { CursorPoint::Kind(int(v[3])), v[4] }, MinutesPerTimeUnit(f[3]));
        QCOMPARE(QStringList({ t.deltaTime, t.deltaTemp, t.rate }).join(QLatin1Char(';')), f[4]);
    }

    // The summary shown by SEARCH FOR IR: empty points skipped, the first of equal extremes told.
    void summary()
    {
        EngineRig rig;
        QCOMPARE(ChartSummary::of(rig.chart, 1).meanY, 0.0); // none: no division
        rig.plot({ { 1, 5 }, { 2, 9 }, { 3, GraphingFunctions::EmptyPoint }, { 4, 5 }, { 5, 9 } });
        const ChartSummary s = ChartSummary::of(rig.chart, 1);
        QCOMPARE(QList<double>({ double(s.count), s.firstX, s.lastX, s.minY, s.minX, s.maxY, s.maxX,
                     s.meanY }),
            QList<double>({ 4, 1, 5, 5, 1, 9, 2, 7 }));
    }

    // Panel open | Y scaling | readings | refreshes of a panel registered with the engine.
    void panelRefresh_data()
    {
        rows::add({ "closed | 0 1 3 0", "first reading, scaling | 1 1 1 1",
            "window step and scaling | 1 1 3 5", "window step only | 1 0 3 2" });
    }
    void panelRefresh()
    {
        struct Counting : ChartPanel {
            void UpdatePanelWithCurrentChartSettings() override { ++updates; }
            int updates = 0;
        } panel;
        const QList<double> v = rows::numbers(rows::fields()[0]);
        EngineRig rig;
        rig.engine.setPanel(&panel);
        rig.state.GraphSettingsOpen = v[0] == 1;
        rig.window.mnuAutoScaleYAxis.setChecked(v[1] == 1);
        for (int i = 0; i < v[2]; ++i)
            rig.feed(50);
        QCOMPARE(panel.updates, int(v[3]));
    }
};
TALAVEX_TEST(TestGraphSettings)
#include "TestGraphSettings.moc"
