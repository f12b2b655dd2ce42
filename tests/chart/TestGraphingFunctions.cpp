#include "support/EngineRig.h"
#include "support/TestRegistry.h"

#include "Rows.h"
#include "chart/ChartPanel.h"

#include <QTest>

namespace {
using Axis = ChartSurface::Axis;
using Doubles = QList<double>;
constexpr double Empty = GraphingFunctions::EmptyPoint;

// The engine with a panel that counts its refreshes.
struct Rig : EngineRig<>, ChartPanel {
    explicit Rig(const QString& interval = QStringLiteral("1"))
        : EngineRig<>(interval)
    {
        engine.setPanel(this);
    }
    void UpdatePanelWithCurrentChartSettings() override { ++updates; }
    int updates = 0;
};
} // namespace

// The chart engine: readings plotted, the axes moved with them, scrolled and shown whole, and the
// limit lines.
class TestGraphingFunctions : public QObject {
    Q_OBJECT
private slots:
    // Interval | time unit | X step between readings ("-": nothing plotted).
    void spacing_data()
    {
        rows::add({ "2 s in seconds | 2 | 0 | 2", "half seconds | 0.5 | 0 | 0.5",
            "2 s in minutes | 2 | 1 | 0.0333333", "90 s in minutes | 90 | 1 | 1.5",
            "1800 s in hours | 1800 | 2 | 0.5", "43200 s in days | 43200 | 3 | 0.5",
            "unknown unit keeps seconds | 2 | 4 | 2", "unknown interval | NO-INT | 0 | -",
            "empty interval |  | 0 | -" });
    }
    void spacing()
    {
        const QStringList f = rows::fields();
        const Doubles v = rows::numbers(f[1] + ' ' + f[2]);
        Rig rig(f[0]);
        rig.state.TimeUnitIndex = qint16(v[0]);
        rig.feed({ 7, 8, 9, 10 });
        QCOMPARE(rig.chart.pointCount(1), qIsNaN(v[1]) ? 1 : 5);
        for (int i = 1; i < rig.chart.pointCount(1); ++i) {
            QVERIFY(qAbs(rig.chart.x(1, i) - (i - 1) * v[1]) < 1e-5);
            QCOMPARE(rig.chart.y(1, i), 6.0 + i);
        }
        QCOMPARE(rig.chart.x(1, rig.chart.pointCount(1)), Empty);
    }

    void resetChartSeries()
    {
        Rig rig;
        rig.window.mnuAutoScaleYAxis.setChecked(true);
        rig.feed({ -5, 50, 70 });
        rig.chart.setEmptyPointValue(-1);
        rig.window.cmdResetChart.setVisible(true);
        QVERIFY(rig.engine.ChartHasPoints());
        rig.engine.ResetChartSeries();
        QCOMPARE(rig.chart.emptyPointValue(), Empty);
        QCOMPARE(rig.chart.pointCount(1), 1);
        QCOMPARE(rig.chart.x(1, 1), Empty);
        QVERIFY(!rig.window.cmdResetChart.visible());
        QCOMPARE(rig.state.RunningYMax, 0.0);
        QCOMPARE(rig.state.RunningYMin, 0.0);
        QVERIFY(!rig.engine.ChartHasPoints());
        rig.feed(99);
        QCOMPARE(rig.chart.drawnPoints(1), std::vector<QPointF> { QPointF(0, 99) });
    }

    // Y scaling on or off | readings, each with the Y min, Y max and running maximum after it,
    // from Y 0..100.
    void autoScale_data()
    {
        rows::add({ "rising | 1 | 100 0 110 100, 150 0 165 150",
            "below zero lowers the running maximum | 1 | -20 -18 100 -20, 100 -18 110 100",
            "margins rounded to whole numbers | 1 | 7 0 8 7, 33 0 36 33, -7 -6 36 -7",
            "off | 0 | 150 0 100 0, -20 0 100 0" });
    }
    void autoScale()
    {
        const QStringList f = rows::fields();
        const Doubles v = rows::numbers(f[1]);
        Rig rig;
        rig.window.mnuAutoScaleYAxis.setChecked(f[0] == QLatin1String("1"));
        rig.setAxis(Axis::Y, 0, 100);
        for (int i = 0; i < v.size(); i += 4) {
            rig.feed(qint16(v[i]));
            QCOMPARE(rig.axes().mid(2), v.mid(i + 1, 2));
            QCOMPARE(rig.state.RunningYMax, v[i + 3]);
            QCOMPARE(rig.state.RunningYMin, 0.0);
        }
        // A reading equal to a running maximum of 0 or more leaves a range set meanwhile alone.
        if (rig.state.RunningYMax >= 0) {
            rig.setAxis(Axis::Y, -500, 500);
            rig.feed(qint16(rig.state.RunningYMax));
            QCOMPARE(rig.axes().mid(2), (Doubles { -500, 500 }));
        }
    }

    // Interval | unit | compressed, strip chart | readings up to the one plotted at the right edge
    // of X 0..60 | the X range the next reading moves to.
    void plottingModes_data()
    {
        rows::add({ "compressed doubles | 1 | 0 | 1 0 | 61 | 0 120",
            "strip chart pages | 1 | 0 | 0 1 | 61 | 60 120", "both off | 1 | 0 | 0 0 | 61 | 0 60",
            "both: compressed wins | 1 | 0 | 1 1 | 61 | 0 120",
            "half steps: 59.5 rounds up to the edge | 0.5 | 0 | 1 0 | 120 | 0 120",
            "2 s steps | 2 | 0 | 0 1 | 31 | 60 120",
            "minutes re-anchor on the newest | 105 | 1 | 0 1 | 35 | 59.5 119.5" });
    }
    void plottingModes()
    {
        const QStringList f = rows::fields();
        const Doubles v = rows::numbers(f.mid(1).join(' '));
        Rig rig(f[0]);
        rig.window.mnuSenseTemperature.setChecked(true);
        rig.state.TimeUnitIndex = qint16(v[0]);
        rig.state.SettingsValues.timeUnit.text = f[1];
        rig.window.mnuAutoCompressed.setChecked(v[1] == 1);
        rig.window.mnuRealTimeGraphOn.setChecked(v[2] == 1);
        rig.setAxis(Axis::X, 0, 60);
        const int untilEdge = int(v[3]);
        for (int i = 0; i < untilEdge; ++i)
            rig.feed(20);
        QCOMPARE(rig.axes().mid(0, 2), (Doubles { 0, 60 }));
        rig.feed(21);
        QCOMPARE(rig.axes().mid(0, 2), v.mid(4));
        QCOMPARE(rig.chart.pointCount(1), untilEdge + 2);
        QCOMPARE(rig.chart.y(1, untilEdge + 1), 21.0);
        QCOMPARE(rig.chart.batchDepth(), 0);
    }

    // Panel open | Y scaling | readings | panel refreshes.
    void panelRefresh_data()
    {
        rows::add({ "closed | 0 1 3 0", "first reading, scaling | 1 1 1 1",
            "window step and scaling | 1 1 3 5", "window step only | 1 0 3 2" });
    }
    void panelRefresh()
    {
        const Doubles v = rows::numbers(rows::fields()[0]);
        Rig rig;
        rig.state.GraphSettingsOpen = v[0] == 1;
        rig.window.mnuAutoScaleYAxis.setChecked(v[1] == 1);
        for (int i = 0; i < v[2]; ++i)
            rig.feed(50);
        QCOMPARE(rig.updates, int(v[3]));
    }

    // Over readings at 0, 25 and 75: axis and way | time unit entry while sensing ("-": idle) |
    // range | range after.
    void scroll_data()
    {
        rows::add({ "X forward | X+ | - | 0 60 | 60 120",
            "X forward, sensing in seconds | X+ | 0 | 0 60 | 60 120",
            "X forward, sensing in days re-anchors | X+ | 3 | 0 60 | 75 135",
            "X forward in 32-bit floats | X+ | - | 0 0.1 | 0.10000000149011612 0.20000000298023224",
            "zero width X | X+ | - | 50 50 | 50 50", "X back | X- | - | 60 120 | 0 60",
            "X back at 0 stays | X- | - | 0 60 | 0 60",
            "X back widens to 0 | X- | - | 30 90 | 0 90",
            "X back a full step | X- | - | 60 100 | 20 60", "Y up | Y+ | - | 0 100 | 100 200",
            "zero width Y | Y+ | - | 7 7 | 7 7", "Y down below 0 | Y- | - | 0 100 | -100 0",
            "Y down again | Y- | - | -100 0 | -200 -100" });
    }
    void scroll()
    {
        const QStringList f = rows::fields();
        const Doubles v = rows::numbers(f[2] + ' ' + f[3]);
        Rig rig;
        rig.plot({ { 0, 50 }, { 25, 51 }, { 75, 52 } });
        rig.window.mnuSenseTemperature.setChecked(f[1] != QLatin1String("-"));
        rig.state.SettingsValues.timeUnit.text = f[1];
        const Axis axis = f[0][0] == QLatin1Char('X') ? Axis::X : Axis::Y;
        rig.setAxis(axis, v[0], v[1]);
        const int redraws = rig.chart.redrawCount();
        if (f[0] == QLatin1String("X+"))
            rig.engine.ScrollXForward();
        else if (f[0] == QLatin1String("X-"))
            rig.engine.ScrollXBack();
        else if (f[0] == QLatin1String("Y+"))
            rig.engine.ScrollYUp();
        else
            rig.engine.ScrollYDown();
        QCOMPARE(rig.chart.axisMin(axis), v[2]);
        QCOMPARE(rig.chart.axisMax(axis), v[3]);
        QCOMPARE(rig.chart.redrawCount(), redraws + 1);
    }

    // The chart set up over an X range | settings entry 21 (empty here or there) | where the lines
    // start and end at the limits 85 and 25 | shown.
    void limitLines_data()
    {
        rows::add({ "10..110 | 10 110 | 1 | 8 132 1", "from 0 starts at 0 | 0 60 | 1.0 | 0 72 1",
            "negative minimum: from the edge | -10 60 | 0 | -10 72 0",
            "bounds half to even | 10.5 61.5 |  | 8 74.4 0",
            "a bound rounded past the range | 0.6 0.9 | 2 | 0.6 1.2 0",
            "beyond 32 bits | 0 3e9 | 1 | 0 3.6e9 1" });
    }
    void limitLines()
    {
        const QStringList f = rows::fields();
        const Doubles v = rows::numbers(f[0] + ' ' + f[2]);
        Rig rig;
        rig.state.SettingsValues.limitLinesShown.text = f[1].trimmed();
        rig.setAxis(Axis::X, v[0], v[1]);
        const int redraws = rig.chart.redrawCount();
        rig.engine.InitializeChart();
        QCOMPARE(rig.chart.redrawCount(), redraws + 1);
        QCOMPARE(rig.chart.drawnPoints(2), (std::vector<QPointF> { { v[2], 85 }, { v[3], 85 } }));
        QCOMPARE(rig.chart.drawnPoints(3), (std::vector<QPointF> { { v[2], 25 }, { v[3], 25 } }));
        QCOMPARE(rig.chart.seriesVisible(2), v[4] == 1);
        QCOMPARE(rig.chart.seriesVisible(3), v[4] == 1);
    }

    // Readings as X Y pairs | the axes after SHOW ALL POINTS from X 300..360.
    void showAllPoints_data()
    {
        rows::add({ "positive | 0 100, 1 150, 2 120 | 0 2 90 165",
            "negative minimum toward zero | 0 -20, 5 40 | 0 5 -18 44",
            "a week in seconds | 0 70, 604799 71 | 0 604799 63 78.1",
            "one reading keeps the width | 0 50 | 0 60 45 55" });
    }
    void showAllPoints()
    {
        const QStringList f = rows::fields();
        const Doubles xy = rows::numbers(f[0]);
        const Doubles axes = rows::numbers(f[1]);
        Rig rig;
        QList<QPointF> points;
        for (int i = 0; i < xy.size(); i += 2)
            points << QPointF(xy[i], xy[i + 1]);
        rig.plot(points);
        rig.setAxis(Axis::X, 300, 360);
        const int redraws = rig.chart.redrawCount();
        rig.engine.ShowAllPoints();
        for (int i = 0; i < 4; ++i)
            QVERIFY(qFuzzyCompare(rig.axes()[i] + 1, axes[i] + 1));
        QCOMPARE(rig.chart.redrawCount(), redraws + 1);
    }
};
TALAVEX_TEST(TestGraphingFunctions)
#include "TestGraphingFunctions.moc"
