#include "support/EngineRig.h"
#include "support/TestRegistry.h"

#include <QTest>

namespace {
using Axis = ChartSurface::Axis;
using Engine = EngineRig<>;
} // namespace

class TestScrollingAndLimits : public QObject {
    Q_OBJECT
private slots:
    void scroll_data()
    {
        QTest::addColumn<QString>("operation");
        QTest::addColumn<double>("min");
        QTest::addColumn<double>("max");
        QTest::addColumn<double>("newMin");
        QTest::addColumn<double>("newMax");
        QTest::newRow("X forward") << "XForward" << 0.0 << 60.0 << 60.0 << 120.0;
        QTest::newRow("X back") << "XBack" << 60.0 << 120.0 << 0.0 << 60.0;
        QTest::newRow("X back at 0 keeps the window") << "XBack" << 0.0 << 60.0 << 0.0 << 60.0;
        QTest::newRow("X back widens to 0") << "XBack" << 30.0 << 90.0 << 0.0 << 90.0;
        QTest::newRow("X back a full step") << "XBack" << 60.0 << 100.0 << 20.0 << 60.0;
        QTest::newRow("Y up") << "YUp" << 0.0 << 100.0 << 100.0 << 200.0;
        QTest::newRow("Y down below zero") << "YDown" << 0.0 << 100.0 << -100.0 << 0.0;
        QTest::newRow("Y down again") << "YDown" << -100.0 << 0.0 << -200.0 << -100.0;
        QTest::newRow("zero width X") << "XForward" << 50.0 << 50.0 << 50.0 << 50.0;
        QTest::newRow("zero width Y") << "YUp" << 7.0 << 7.0 << 7.0 << 7.0;
        QTest::newRow("32-bit floats")
            << "XForward" << 0.0 << 0.1 << double(0.1f) << double(0.1f + 0.1f);
    }
    void scroll()
    {
        QFETCH(QString, operation);
        QFETCH(double, min);
        QFETCH(double, max);
        QFETCH(double, newMin);
        QFETCH(double, newMax);
        Engine e;
        const Axis axis = operation.startsWith(QLatin1Char('X')) ? Axis::X : Axis::Y;
        e.setAxis(axis, min, max);
        const int redraws = e.chart.redrawCount();
        if (operation == QLatin1String("XForward"))
            e.engine.ScrollXForward();
        else if (operation == QLatin1String("XBack"))
            e.engine.ScrollXBack();
        else if (operation == QLatin1String("YUp"))
            e.engine.ScrollYUp();
        else
            e.engine.ScrollYDown();
        QCOMPARE(e.chart.axisMin(axis), newMin);
        QCOMPARE(e.chart.axisMax(axis), newMax);
        QCOMPARE(e.chart.redrawCount(), redraws + 1);
    }

    void forwardWhileSensing_data()
    {
        QTest::addColumn<bool>("sensing");
        QTest::addColumn<QString>("unitEntry");
        QTest::addColumn<double>("newMin");
        QTest::addColumn<double>("newMax");
        QTest::newRow("idle pages") << false << "1" << 60.0 << 120.0;
        QTest::newRow("days re-anchor") << true << "3" << 75.0 << 135.0;
    }
    void forwardWhileSensing()
    {
        QFETCH(bool, sensing);
        QFETCH(QString, unitEntry);
        QFETCH(double, newMin);
        QFETCH(double, newMax);
        Engine e;
        e.plot({ { 0, 50 }, { 25, 51 }, { 75, 52 } });
        e.window.mnuSenseTemperature.setChecked(sensing);
        e.state.SettingsValues.timeUnit.text = unitEntry;
        e.setAxis(Axis::X, 0, 60);
        e.engine.ScrollXForward();
        QCOMPARE(e.chart.axisMin(Axis::X), newMin);
        QCOMPARE(e.chart.axisMax(Axis::X), newMax);
    }

    void limitLines_data()
    {
        QTest::addColumn<double>("min");
        QTest::addColumn<double>("max");
        QTest::addColumn<double>("start");
        QTest::addColumn<double>("end");
        QTest::newRow("10..110") << 10.0 << 110.0 << 8.0 << 132.0;
        QTest::newRow("from 0 starts at 0") << 0.0 << 60.0 << 0.0 << 72.0;
        QTest::newRow("negative minimum: from the edge") << -10.0 << 60.0 << -10.0 << 72.0;
        QTest::newRow("bounds rounded half to even") << 10.5 << 109.5 << 8.0 << 132.0;
        QTest::newRow("a bound rounded past the range") << 0.6 << 0.9 << 0.6 << 1.2;
        QTest::newRow("beyond 32 bits") << 0.0 << 3e9 << 0.0 << 3.6e9;
    }
    void limitLines()
    {
        QFETCH(double, min);
        QFETCH(double, max);
        QFETCH(double, start);
        QFETCH(double, end);
        Engine e;
        e.setAxis(Axis::X, min, max);
        e.engine.UpdateLimitLines();
        for (int series : { 2, 3 }) {
            QCOMPARE(e.chart.pointCount(series), 2);
            QCOMPARE(e.chart.x(series, 1), start);
            QVERIFY(qFuzzyCompare(e.chart.x(series, 2), end));
        }
        QCOMPARE(e.chart.y(2, 1), 85.0);
        QCOMPARE(e.chart.y(2, 2), 85.0);
        QCOMPARE(e.chart.y(3, 1), 25.0);
        QCOMPARE(e.chart.y(3, 2), 25.0);
    }

    void showAndHideMarkers()
    {
        Engine e;
        QVERIFY(!e.chart.seriesVisible(2));
        e.engine.ShowLimitMarkers();
        QVERIFY(e.chart.seriesVisible(2) && e.chart.seriesVisible(3));
        QVERIFY(e.chart.seriesVisible(1));
        e.engine.HideLimitMarkers();
        QVERIFY(!e.chart.seriesVisible(2) && !e.chart.seriesVisible(3));
        QVERIFY(e.chart.seriesVisible(1));
    }

    void showAllPoints_data()
    {
        QTest::addColumn<QList<QPointF>>("points");
        QTest::addColumn<QList<double>>("axes"); // X min, X max, Y min, Y max
        QTest::newRow("positive") << QList<QPointF> { { 0, 100 }, { 1, 150 }, { 2, 120 } }
                                  << QList<double> { 0, 2, 90, 165 };
        QTest::newRow("negative minimum toward zero")
            << QList<QPointF> { { 0, -20 }, { 5, 40 } } << QList<double> { 0, 5, -18, 44 };
        QTest::newRow("a week in seconds") << QList<QPointF> { { 0, 70 }, { 604799, 71 } }
                                           << QList<double> { 0, 604799, 63, 78.1 };
    }
    void showAllPoints()
    {
        QFETCH(QList<QPointF>, points);
        QFETCH(QList<double>, axes);
        Engine e;
        e.plot(points);
        e.setAxis(Axis::X, 300, 360);
        const int redraws = e.chart.redrawCount();
        e.engine.ShowAllPoints();
        QCOMPARE(e.chart.axisMin(Axis::X), axes[0]);
        QCOMPARE(e.chart.axisMax(Axis::X), axes[1]);
        QVERIFY(qFuzzyCompare(e.chart.axisMin(Axis::Y), axes[2]));
        QVERIFY(qFuzzyCompare(e.chart.axisMax(Axis::Y), axes[3]));
        QCOMPARE(e.chart.redrawCount(), redraws + 1);
    }
};
TALAVEX_TEST(TestScrollingAndLimits)
#include "TestScrollingAndLimits.moc"
