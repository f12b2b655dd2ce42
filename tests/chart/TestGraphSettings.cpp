#include "support/EngineRig.h"
#include "support/FakePrompter.h"
#include "support/TestRegistry.h"

#include "Rows.h"

#include "chart/GraphSettingsController.h"
#include "chart/GraphSettingsModel.h"

#include <QSignalSpy>
#include <QTest>

namespace {
using Axis = ChartSurface::Axis;
using Panel = GraphSettingsController;
using Doubles = QList<double>;

// The panel loaded over a chart at X 10..110, Y 0..100 and readings 1 apart, every box it shows
// recorded.
struct Rig : EngineRig<> {
    GraphSettingsModel model;
    FakePrompter prompter;
    int clears = 0;
    Panel panel { state, engine, window, model, prompter, [this] {
                     ++clears;
                     engine.ResetChartSeries();
                     setAxis(Axis::X, 0, 60);
                 } };

    explicit Rig(int readings = 0)
    {
        state.SettingsValues.yAxisMax.text = QStringLiteral("old Y");
        state.SettingsValues.xAxisMax.text = QStringLiteral("old X");
        QList<QPointF> points;
        for (int i = 0; i < readings; ++i)
            points << QPointF(i, 20);
        plot(points);
        setAxes(10, 110, 0, 100);
        panel.Form_Load();
    }
    // The boxes min X, max X, min Y, max Y, and the axes as the boxes would show them.
    QStringList boxes() const
    {
        return { model.txtMinX.caption(), model.txtMaxX.caption(), model.txtMinY.caption(),
            model.txtMaxY.caption() };
    }
    QStringList shown() const
    {
        QStringList out;
        for (double v : axes())
            out << Numbers::Format(v, QStringLiteral("0.##"));
        return out;
    }
    // A handler by its control's name; "txtMinX a" is the key a in that box, "txtMinX" Enter.
    void act(const QString& what)
    {
        const QStringList w = what.split(QLatin1Char(' '));
        const int key = w.size() > 1 ? w[1][0].unicode() : Panel::KeyEnter;
        const QString& c = w[0];
        c == "txtMinX"         ? panel.txtMinX_KeyPress(key)
            : c == "txtMaxX"   ? panel.txtMaxX_KeyPress(key)
            : c == "txtMinY"   ? panel.txtMinY_KeyPress(key)
            : c == "txtMaxY"   ? panel.txtMaxY_KeyPress(key)
            : c == "XMinUp"    ? panel.XMinIncrement_UpClick()
            : c == "XMinDown"  ? panel.XMinIncrement_DownClick()
            : c == "XMaxUp"    ? panel.XMaxIncrement_UpClick()
            : c == "XMaxDown"  ? panel.XMaxIncrement_DownClick()
            : c == "YMinUp"    ? panel.YMinIncrement_UpClick()
            : c == "YMinDown"  ? panel.YMinIncrement_DownClick()
            : c == "YMaxUp"    ? panel.YMaxIncrement_UpClick()
            : c == "YMaxDown"  ? panel.YMaxIncrement_DownClick()
            : c == "XScrollUp" ? panel.XDomainScroll_UpClick()
            : c == "YScrollDn"
            ? panel.YDomainScroll_DownClick()
            : void(QTest::qVerify(false, "control", qPrintable(c), __FILE__, __LINE__));
    }
};
} // namespace

// The graph settings panel's handlers on an in-memory chart.
class TestGraphSettings : public QObject {
    Q_OBJECT
private slots:
    // Box (with a key other than Enter after it) | text typed | readings | the message shown, or
    // "=" and the axes after.
    void enter_data()
    {
        rows::add({ "X max not numeric | txtMaxX | 12a | 0 | Please Enter A Numeric Value For X "
                    "Max.",
            "X max empty | txtMaxX |  | 0 | Please Enter A Numeric Value For X Max.",
            "X max = min | txtMaxX | 10 | 0 | Please Enter An X Max Value That is Greater Than X "
            "Min.",
            "X max < min | txtMaxX | 5 | 0 | Please Enter An X Max Value That is Greater Than X "
            "Min.",
            "X min not numeric | txtMinX | x | 0 | Please Enter A Numeric Value For X Min.",
            "X min negative | txtMinX | -1 | 0 | Please Enter A Non-Negative Value for  X Min.",
            "X min = max | txtMinX | 110 | 0 | Please Enter An X Min. Value That is Less Than X "
            "Max.",
            "Y max not numeric | txtMaxY | 1..2 | 0 | Please Enter A Numeric Value for Y Max.",
            "Y max < min | txtMaxY | -1 | 0 | Please Enter A Y Max. Value That Is Greater Than Y "
            "Min.",
            "Y min not numeric | txtMinY | --3 | 0 | Please Enter A Numeric Value for Y Min.",
            "Y min = max | txtMinY | 100 | 0 |  Please Enter A Y Min. Value That Less Than Y Max.",
            "X max | txtMaxX | 200 | 0 | = 10 200 0 100",
            "X max over the window: the window kept | txtMaxX | 450 | 500 | = 150 450 0 100",
            "X min zero | txtMinX | 0 | 0 | = 0 110 0 100",
            "Y max | txtMaxY | 0.5 | 0 | = 10 110 0 0.5",
            "Y min negative | txtMinY | -40 | 0 | = 10 110 -40 100",
            "another key does nothing | txtMaxX a | junk | 0 | = 10 110 0 100" });
    }
    void enter()
    {
        const QStringList f = rows::fields();
        const QString box = f[0].section(QLatin1Char(' '), 0, 0);
        Rig rig(f[2].toInt());
        const Doubles before = rig.axes();
        rig.model.control(box)->setCaption(f[1]);
        const int focusBefore = rig.model.focusRequests();
        rig.act(f[0]);
        if (!f[3].startsWith(QLatin1Char('='))) {
            QCOMPARE(rig.prompter.titles(), QStringList { Panel::messageTitle() });
            QCOMPARE(rig.prompter.messages()[0].text, f[3]);
            QCOMPARE(rig.model.focus(), box);
            QCOMPARE(rig.model.focusRequests(), focusBefore + 1);
            QCOMPARE(rig.axes(), before);
            return;
        }
        const Doubles axes = rows::numbers(f[3].mid(1));
        const bool enter = box == f[0];
        QVERIFY(rig.prompter.messages().empty());
        QCOMPARE(rig.axes(), axes);
        QCOMPARE(rig.boxes() == rig.shown(), enter);
        if (enter) {
            QCOMPARE(rig.chart.x(2, 1), axes[0] - axes[0] * 0.2);
            QCOMPARE(rig.chart.x(2, 2), axes[1] + axes[1] * 0.2);
        }
    }

    // Readings | min X, max X, min Y, max Y typed | the box given the focus and the message, or
    // "=" with the axes and settings entries 0 and 2.
    void accept_data()
    {
        rows::add({ "Y min first | 0 | a,b,c,d | txtMinY Please Enter A Numeric Value for Y Min.",
            "Y max | 0 | a,b,0,d | txtMaxY Please Enter a Numeric Value for Y Max.",
            "Y order | 0 | a,b,50,50 | txtMaxY Please Enter A Y Max Value That is Greater Than The "
            "Y Min.",
            "X min | 0 | ,b,0,50 | txtMinX Please Enter A Numeric Value for X Min.",
            "X max | 0 | 0,1e,0,50 | txtMaxX Please Enter A Numeric Value for X Max.",
            "X order | 0 | 20,10,0,50 | txtMaxX Please Enter An X Max. Value That is Greater Than "
            "X Min.",
            // A negative minimum is caught only through the ordering checks.
            "X min < 0 | 0 | -5,-10,0,50 | txtMaxX Please Enter An X Max. Value That is Greater "
            "Than X Min.",
            "no readings | 0 | 0,400,-5,150.25 | = 0 400 -5 150.25 150.2 400",
            "over the window: 300 below max | 500 | 0,400,0,100 | = 100 400 0 100 100 400",
            "under the window stays | 500 | 50,200,0,99.96 | = 50 200 0 99.96 100 200",
            "fractions kept | 500 | 10,300.55,0,100 | = 10 300.55 0 100 100 300.6" });
    }
    void accept()
    {
        const QStringList f = rows::fields();
        const QStringList typed = f[1].split(QLatin1Char(','));
        Rig rig(f[0].toInt());
        const Doubles before = rig.axes();
        rig.model.txtMinX.setCaption(typed[0]);
        rig.model.txtMaxX.setCaption(typed[1]);
        rig.model.txtMinY.setCaption(typed[2]);
        rig.model.txtMaxY.setCaption(typed[3]);
        rig.model.txtYTitle.setCaption(QStringLiteral("DEG C"));
        rig.panel.cmdAccept_Click();
        const Settings& s = rig.state.SettingsValues;
        const QString entries = s.yAxisMax.text + ' ' + s.xAxisMax.text;
        if (!f[2].startsWith(QLatin1Char('='))) {
            QCOMPARE(rig.prompter.titles(), QStringList { Panel::messageTitle() });
            QCOMPARE(rig.model.focus() + ' ' + rig.prompter.messages()[0].text, f[2]);
            QCOMPARE(rig.axes(), before);
            QVERIFY(rig.chart.axisTitle(Axis::Y).isEmpty());
            QCOMPARE(entries, QStringLiteral("old Y old X"));
            return;
        }
        const Doubles v = rows::numbers(f[2].mid(1));
        QVERIFY(rig.prompter.messages().empty());
        QCOMPARE(rig.axes(), v.mid(0, 4));
        QCOMPARE(rig.chart.axisTitle(Axis::Y), QStringLiteral("DEG C"));
        QCOMPARE(rig.boxes().mid(0, 2), rig.shown().mid(0, 2));
        QCOMPARE(entries, f[2].section(QLatin1Char(' '), 5));
        QCOMPARE(rig.chart.y(2, 1), 85.0);
        const double hi = Numbers::RoundHalfEven(v[1]);
        QCOMPARE(rig.chart.x(3, 2), hi + hi * 0.2);
    }

    // The unit of the readings still to come: the numbers on the chart stay as they are.
    void timeUnitConvertsNothingPlotted()
    {
        Rig rig(10);
        const Doubles before = rig.axes();
        rig.panel.comTimeUnits_Click(2);
        rig.panel.comTimeUnits_Click(4);
        rig.panel.comTimeUnits_Click(-1);
        QCOMPARE(rig.chart.axisTitle(Axis::X), QStringLiteral("HOURS"));
        QCOMPARE(rig.state.SettingsValues.timeUnit.text, QStringLiteral("2"));
        QCOMPARE(rig.state.TimeUnitIndex, qint16(2));
        QCOMPARE(rig.axes(), before);
        QCOMPARE(rig.chart.x(1, 10), 9.0);
        // The list follows a title the chart was given.
        rig.chart.setAxisTitle(Axis::X, QStringLiteral("DAYS"));
        rig.panel.UpdatePanelWithCurrentChartSettings();
        QCOMPARE(rig.model.timeUnitIndex(), 3);
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

    // Over 500 readings: control | axes | axes after; a step taken shows in the boxes at once.
    void stepControls_data()
    {
        rows::add({ "X min up | XMinUp | 10 110 20 100 | 12 110 20 100",
            "X max down | XMaxDown | 10 110 20 100 | 10 88 20 100",
            "Y min up | YMinUp | 10 110 20 100 | 10 110 24 100",
            "Y min down | YMinDown | 10 110 20 100 | 10 110 16 100",
            "Y max up | YMaxUp | 10 110 20 100 | 10 110 20 120",
            "X scroll up | XScrollUp | 10 110 20 100 | 110 210 20 100",
            "Y scroll down | YScrollDn | 10 110 20 100 | 10 110 -60 20",
            "X min never reaches max | XMinUp | 100 110 0 1 | 100 110 0 1",
            "Y min never reaches max | YMinUp | 0 1 90 100 | 0 1 90 100",
            "Y max never reaches min | YMaxDown | 0 1 90 100 | 0 1 90 100",
            "X max up keeps the window | XMaxUp | 0 300 0 1 | 60 360 0 1",
            "X min down keeps the window | XMinDown | 100 390 0 1 | 80 380 0 1" });
    }
    void stepControls()
    {
        const QStringList f = rows::fields();
        const Doubles start = rows::numbers(f[1]);
        Rig rig(500);
        rig.setAxes(start[0], start[1], start[2], start[3]);
        rig.act(f[0]);
        QCOMPARE(rig.axes(), rows::numbers(f[2]));
        QCOMPARE(rig.boxes() == rig.shown(), rig.axes() != start);
    }

    // Acquiring | readings | inputs enabled | CLEAR CHART enabled.
    void activation_data()
    {
        rows::add(
            { "idle, empty chart | 0 0 1 0", "idle, readings | 0 5 1 1", "acquiring | 1 5 0 0" });
    }
    void activation()
    {
        const Doubles v = rows::numbers(rows::fields()[0]);
        Rig rig { int(v[1]) };
        rig.window.mnuClearChart.setEnabled(v[0] == 0);
        rig.panel.Form_Activate();
        for (const Control* c :
            { &rig.model.txtMinX, &rig.model.txtMaxX, &rig.model.txtMinY, &rig.model.txtMaxY,
                &rig.model.cmdAccept, &rig.model.comTimeUnits, &rig.model.XMinIncrement,
                &rig.model.XMaxIncrement, &rig.model.YMinIncrement, &rig.model.YMaxIncrement })
            QCOMPARE(c->enabled(), v[2] == 1);
        QCOMPARE(rig.model.cmdResetChartParameters.enabled(), v[3] == 1);
        rig.panel.SetInputsEnabled(true);
        QVERIFY(rig.model.txtMinY.enabled() && rig.model.cmdAccept.enabled());
    }

    void checkBoxesClearAndClose()
    {
        Rig rig(5);
        for (bool on : { true, false }) {
            rig.model.chkAutoRange.setChecked(on);
            rig.panel.chkAutoRange_Click();
            rig.model.chkDispLimits.setChecked(on);
            rig.panel.chkDispLimits_Click();
            const Settings& s = rig.state.SettingsValues;
            QCOMPARE(rig.window.mnuAutoScaleYAxis.checked(), on);
            QCOMPARE(s.yAutoRange.valueIsOne() && s.autoScaleY.valueIsOne(), on);
            QCOMPARE(rig.window.mnuDispLimits.checked(), on);
            QCOMPARE(s.limitLinesShown.valueIsOne(), on);
            QCOMPARE(rig.chart.seriesVisible(2), on);
            QCOMPARE(rig.chart.seriesVisible(3), on);
        }
        QSignalSpy closes(&rig.panel, &Panel::closeRequested);
        rig.panel.cmdResetChartParameters_Click();
        QCOMPARE(rig.clears, 1);
        QCOMPARE(rig.boxes().mid(0, 2), QStringList({ "0", "60" }));
        rig.panel.cmdClose_Click();
        QCOMPARE(closes.count(), 1);
        QVERIFY(!rig.state.GraphSettingsOpen);
        QVERIFY(rig.engine.panel() == nullptr);
    }
};
TALAVEX_TEST(TestGraphSettings)
#include "TestGraphSettings.moc"
