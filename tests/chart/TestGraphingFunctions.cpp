#include "support/EngineRig.h"
#include "support/TestRegistry.h"

#include "base/AppState.h"
#include "base/MainWindowModel.h"
#include "base/Numbers.h"
#include "chart/ChartPanel.h"
#include "chart/GraphingFunctions.h"
#include "chart/InMemoryChartSurface.h"

#include <QTest>

namespace {
using Axis = ChartSurface::Axis;
constexpr double Empty = GraphingFunctions::EmptyPoint;

class CountingPanel : public ChartPanel {
public:
    void UpdatePanelWithCurrentChartSettings() override { ++updates; }
    int updates = 0;
};

// Counts how often the engine reads points, to show that a reading never walks the series.
class ReadCountingSurface : public InMemoryChartSurface {
public:
    double x(int series, int point) const override
    {
        ++reads;
        return InMemoryChartSurface::x(series, point);
    }
    double y(int series, int point) const override
    {
        ++reads;
        return InMemoryChartSurface::y(series, point);
    }
    mutable int reads = 0;
};

// The engine with a panel that counts its refreshes.
template <typename Surface = InMemoryChartSurface> struct Rig : EngineRig<Surface> {
    CountingPanel panel;
    explicit Rig(const QString& interval = QStringLiteral("1"))
        : EngineRig<Surface>(interval)
    {
        this->engine.setPanel(&panel);
    }
};
} // namespace

class TestGraphingFunctions : public QObject {
    Q_OBJECT
private slots:
    void initializeChart_data()
    {
        QTest::addColumn<double>("xmin");
        QTest::addColumn<double>("xmax");
        QTest::addColumn<QString>("limitsShown");
        QTest::addColumn<double>("lineStart");
        QTest::addColumn<double>("lineEnd");
        QTest::addColumn<bool>("visible");
        QTest::newRow("shown") << 0.0 << 60.0 << "1" << 0.0 << 72.0 << true;
        QTest::newRow("ends half to even, 1.0") << 10.5 << 61.5 << "1.0" << 8.0 << 74.4 << true;
        QTest::newRow("hidden by 0") << 2.4 << 2.6 << "0" << 1.6 << 3.6 << false;
        QTest::newRow("hidden when empty") << 0.0 << 60.0 << "" << 0.0 << 72.0 << false;
        QTest::newRow("hidden by 2") << 0.0 << 60.0 << "2" << 0.0 << 72.0 << false;
    }
    void initializeChart()
    {
        QFETCH(double, xmin);
        QFETCH(double, xmax);
        QFETCH(QString, limitsShown);
        QFETCH(double, lineStart);
        QFETCH(double, lineEnd);
        QFETCH(bool, visible);
        AppState state;
        MainWindowModel window;
        InMemoryChartSurface chart;
        chart.setSeriesCount(1);
        chart.setAxisMin(Axis::X, xmin);
        chart.setAxisMax(Axis::X, xmax);
        state.SettingsValues.highAlarmLimit.text = "85.5";
        state.SettingsValues.lowAlarmLimit.text = "25 DEG";
        state.SettingsValues.limitLinesShown.text = limitsShown;
        GraphingFunctions engine(chart, state, window);
        const int redraws = chart.redrawCount();
        engine.InitializeChart();

        QCOMPARE(chart.redrawCount(), redraws + 1);
        QCOMPARE(chart.seriesCount(), 3);
        QCOMPARE(chart.axisLabelFormat(Axis::X), QString("#.##"));
        QCOMPARE(chart.axisLabelFormat(Axis::Y), QString("#.##"));
        const std::vector<QPointF> high { { lineStart, 85.5 }, { lineEnd, 85.5 } };
        const std::vector<QPointF> low { { lineStart, 25 }, { lineEnd, 25 } };
        QCOMPARE(chart.drawnPoints(2), high);
        QCOMPARE(chart.drawnPoints(3), low);
        QCOMPARE(chart.seriesVisible(2), visible);
        QCOMPARE(chart.seriesVisible(3), visible);
    }

    void resetChartSeries()
    {
        Rig<> rig;
        rig.window.mnuAutoScaleYAxis.setChecked(true);
        rig.feed({ -5, 50, 70 });
        rig.chart.setEmptyPointValue(-1);
        rig.window.cmdResetChart.setVisible(true);
        QVERIFY(rig.engine.ChartHasPoints());
        QCOMPARE(rig.state.RunningYMax, 70.0);

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

    void chartHasPoints_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<bool>("hasPoints");
        QTest::newRow("no series points") << 0 << true;
        QTest::newRow("the empty slot only") << 1 << false;
        QTest::newRow("one reading") << 2 << true;
        QTest::newRow("many") << 500 << true;
    }
    void chartHasPoints()
    {
        QFETCH(int, count);
        QFETCH(bool, hasPoints);
        Rig<> rig;
        rig.chart.setPointCount(1, count);
        QCOMPARE(rig.engine.ChartHasPoints(), hasPoints);
    }

    void intervalLabel_data()
    {
        QTest::addColumn<QString>("caption");
        QTest::addColumn<bool>("plotted");
        QTest::newRow("unknown interval") << "NO-INT" << false;
        QTest::newRow("empty field") << "" << false;
        QTest::newRow("whole seconds") << "2" << true;
        QTest::newRow("fraction") << "0.5" << true;
    }
    void intervalLabel()
    {
        QFETCH(QString, caption);
        QFETCH(bool, plotted);
        Rig<> rig(caption);
        rig.feed(42);
        QCOMPARE(rig.chart.pointCount(1), plotted ? 2 : 1);
    }

    void spacing_data()
    {
        QTest::addColumn<QString>("interval");
        QTest::addColumn<int>("unit");
        QTest::addColumn<double>("step");
        QTest::newRow("2 s in seconds") << "2" << 0 << 2.0;
        QTest::newRow("2 s in minutes") << "2" << 1 << 0.0333333;
        QTest::newRow("90 s in minutes") << "90" << 1 << 1.5;
        QTest::newRow("1800 s in hours") << "1800" << 2 << 0.5;
        QTest::newRow("43200 s in days") << "43200" << 3 << 0.5;
        QTest::newRow("unknown unit keeps seconds") << "2" << 4 << 2.0;
    }
    void spacing()
    {
        QFETCH(QString, interval);
        QFETCH(int, unit);
        QFETCH(double, step);
        Rig<> rig(interval);
        rig.state.TimeUnitIndex = qint16(unit);
        rig.feed({ 7, 8, 9, 10 });

        QCOMPARE(rig.chart.pointCount(1), 5);
        QCOMPARE(rig.chart.x(1, 5), Empty);
        for (int i = 1; i <= 4; ++i) {
            QVERIFY(qAbs(rig.chart.x(1, i) - (i - 1) * step) < 1e-5);
            QCOMPARE(rig.chart.y(1, i), 6.0 + i);
        }
        // The interval itself stays in seconds.
        QCOMPARE(rig.state.TimeInterval, float(Numbers::Val(interval)));
    }

    void autoScale_data()
    {
        QTest::addColumn<bool>("autoScale");
        QTest::addColumn<QList<int>>("readings");
        QTest::addColumn<QList<double>>("yMax");
        QTest::addColumn<QList<double>>("yMin");
        QTest::addColumn<QList<double>>("runningMax");
        QTest::newRow("rising") << true << QList<int> { 100, 150 } << QList<double> { 110, 165 }
                                << QList<double> { 0, 0 } << QList<double> { 100, 150 };
        QTest::newRow("below zero lowers the running maximum")
            << true << QList<int> { -20, 100 } << QList<double> { 100, 110 }
            << QList<double> { -18, -18 } << QList<double> { -20, 100 };
        QTest::newRow("margins rounded to whole numbers")
            << true << QList<int> { 7, 33, -7 } << QList<double> { 8, 36, 36 }
            << QList<double> { 0, 0, -6 } << QList<double> { 7, 33, -7 };
        QTest::newRow("off") << false << QList<int> { 150, -20 } << QList<double> { 100, 100 }
                             << QList<double> { 0, 0 } << QList<double> { 0, 0 };
    }
    void autoScale()
    {
        QFETCH(bool, autoScale);
        QFETCH(QList<int>, readings);
        QFETCH(QList<double>, yMax);
        QFETCH(QList<double>, yMin);
        QFETCH(QList<double>, runningMax);
        Rig<> rig;
        rig.window.mnuAutoScaleYAxis.setChecked(autoScale);
        rig.chart.setAxisMin(Axis::Y, 0);
        rig.chart.setAxisMax(Axis::Y, 100);
        for (int i = 0; i < readings.size(); ++i) {
            rig.feed(qint16(readings[i]));
            QCOMPARE(rig.chart.axisMax(Axis::Y), yMax[i]);
            QCOMPARE(rig.chart.axisMin(Axis::Y), yMin[i]);
            QCOMPARE(rig.state.RunningYMax, runningMax[i]);
            QCOMPARE(rig.state.RunningYMin, 0.0);
        }
    }

    void equalReadingChangesNothing()
    {
        Rig<> rig;
        rig.window.mnuAutoScaleYAxis.setChecked(true);
        rig.feed(100);
        rig.chart.setAxisMax(Axis::Y, 500);
        rig.chart.setAxisMin(Axis::Y, -500);
        rig.feed(100);
        QCOMPARE(rig.chart.axisMax(Axis::Y), 500.0);
        QCOMPARE(rig.chart.axisMin(Axis::Y), -500.0);
        QCOMPARE(rig.state.RunningYMax, 100.0);
    }

    void plottingModes_data()
    {
        QTest::addColumn<QString>("interval");
        QTest::addColumn<int>("unit");
        QTest::addColumn<bool>("compressed");
        QTest::addColumn<bool>("stripChart");
        QTest::addColumn<int>("untilEdge"); // readings up to the one plotted at the right edge
        QTest::addColumn<double>("newMin");
        QTest::addColumn<double>("newMax");
        QTest::newRow("compressed doubles") << "1" << 0 << true << false << 61 << 0.0 << 120.0;
        QTest::newRow("strip chart pages") << "1" << 0 << false << true << 61 << 60.0 << 120.0;
        QTest::newRow("both off") << "1" << 0 << false << false << 61 << 0.0 << 60.0;
        QTest::newRow("both: compressed wins") << "1" << 0 << true << true << 61 << 0.0 << 120.0;
        // 59.5 rounds half to even up to 60, the edge.
        QTest::newRow("half steps") << "0.5" << 0 << true << false << 120 << 0.0 << 120.0;
        QTest::newRow("2 s steps") << "2" << 0 << false << true << 31 << 60.0 << 120.0;
        // 1.75 minutes apart: the reading at 59.5 reaches the edge and the window re-anchors on
        // it rather than paging to 60.
        QTest::newRow("minutes re-anchor") << "105" << 1 << false << true << 35 << 59.5 << 119.5;
    }
    void plottingModes()
    {
        QFETCH(QString, interval);
        QFETCH(int, unit);
        QFETCH(bool, compressed);
        QFETCH(bool, stripChart);
        QFETCH(int, untilEdge);
        QFETCH(double, newMin);
        QFETCH(double, newMax);
        Rig<> rig(interval);
        rig.window.mnuSenseTemperature.setChecked(true);
        rig.state.TimeUnitIndex = qint16(unit);
        rig.state.SettingsValues.timeUnit.text = QString::number(unit);
        rig.window.mnuAutoCompressed.setChecked(compressed);
        rig.window.mnuRealTimeGraphOn.setChecked(stripChart);
        rig.chart.setAxisMin(Axis::X, 0);
        rig.chart.setAxisMax(Axis::X, 60);
        for (int i = 0; i < untilEdge; ++i)
            rig.feed(20);
        QCOMPARE(rig.chart.axisMin(Axis::X), 0.0);
        QCOMPARE(rig.chart.axisMax(Axis::X), 60.0);

        rig.feed(21);
        QCOMPARE(rig.chart.axisMin(Axis::X), newMin);
        QCOMPARE(rig.chart.axisMax(Axis::X), newMax);
        QCOMPARE(rig.chart.pointCount(1), untilEdge + 2);
        QCOMPARE(rig.chart.y(1, untilEdge + 1), 21.0);
        QCOMPARE(rig.chart.batchDepth(), 0);
    }

    void panelRefresh_data()
    {
        QTest::addColumn<bool>("open");
        QTest::addColumn<bool>("autoScale");
        QTest::addColumn<int>("readings");
        QTest::addColumn<int>("updates");
        QTest::newRow("closed") << false << true << 3 << 0;
        QTest::newRow("first reading, scaling") << true << true << 1 << 1;
        QTest::newRow("window step and scaling") << true << true << 3 << 5;
        QTest::newRow("window step only") << true << false << 3 << 2;
    }
    void panelRefresh()
    {
        QFETCH(bool, open);
        QFETCH(bool, autoScale);
        QFETCH(int, readings);
        QFETCH(int, updates);
        Rig<> rig;
        rig.state.GraphSettingsOpen = open;
        rig.window.mnuAutoScaleYAxis.setChecked(autoScale);
        for (int i = 0; i < readings; ++i)
            rig.feed(50);
        QCOMPARE(rig.panel.updates, updates);
    }

    // The window rule searches the X values instead of walking them: from 1,000 to 64,000
    // readings each of its two searches may take 6 more reads, never thousands.
    void readingCostGrowsLogarithmically()
    {
        Rig<ReadCountingSurface> rig;
        rig.window.mnuAutoScaleYAxis.setChecked(true);
        rig.window.mnuRealTimeGraphOn.setChecked(true);
        rig.setAxis(Axis::X, 0, 400);
        auto readsOfOne = [&rig] {
            rig.chart.reads = 0;
            rig.feed(4);
            return rig.chart.reads;
        };
        for (int i = 0; i < 1000; ++i)
            rig.feed(qint16(i % 200));
        const int early = readsOfOne();
        for (int i = 0; i < 63000; ++i)
            rig.feed(qint16(i % 200));
        const int late = readsOfOne();
        QVERIFY(early > 0);
        QVERIFY2(late - early <= 14, qPrintable(QStringLiteral("%1 then %2").arg(early).arg(late)));
        QVERIFY(rig.chart.axisMax(Axis::X) - rig.chart.axisMin(Axis::X) <= 300);
    }
};
TALAVEX_TEST(TestGraphingFunctions)
#include "TestGraphingFunctions.moc"
