#include "support/TestRegistry.h"

#include "chart/ChartSummary.h"
#include "chart/GraphingFunctions.h"
#include "chart/InMemoryChartSurface.h"

#include <QTest>

namespace {
constexpr double E = GraphingFunctions::EmptyPoint;
using Points = QList<QPointF>;
} // namespace

// The survey of the chart's readings shown by SEARCH FOR IR.
class TestChartSummary : public QObject {
    Q_OBJECT

    static void fill(InMemoryChartSurface& chart, const Points& points)
    {
        chart.setPointCount(1, int(points.size()));
        for (int k = 0; k < points.size(); ++k) {
            chart.setX(1, k + 1, points[k].x());
            chart.setY(1, k + 1, points[k].y());
        }
    }

private slots:
    void summary_data()
    {
        QTest::addColumn<Points>("points");
        QTest::addColumn<int>("count");
        QTest::addColumn<double>("firstX");
        QTest::addColumn<double>("lastX");
        QTest::addColumn<double>("minY");
        QTest::addColumn<double>("minX");
        QTest::addColumn<double>("maxY");
        QTest::addColumn<double>("maxX");
        QTest::addColumn<double>("meanY");
        QTest::newRow("only the empty slot")
            << Points { { E, E } } << 0 << 0.0 << 0.0 << 0.0 << 0.0 << 0.0 << 0.0 << 0.0;
        QTest::newRow("one reading") << Points { { 1, 72 }, { E, E } } << 1 << 1.0 << 1.0 << 72.0
                                     << 1.0 << 72.0 << 1.0 << 72.0;
        QTest::newRow("rising then falling")
            << Points { { 1, 50 }, { 2, 90 }, { 3, 40 }, { 4, 60 }, { E, E } } << 4 << 1.0 << 4.0
            << 40.0 << 3.0 << 90.0 << 2.0 << 60.0;
        // The first of equal extremes is the one reported.
        QTest::newRow("ties keep the first") << Points { { 1, 5 }, { 2, 9 }, { 3, 5 }, { 4, 9 } }
                                             << 4 << 1.0 << 4.0 << 5.0 << 1.0 << 9.0 << 2.0 << 7.0;
        QTest::newRow("negative readings")
            << Points { { 0.5, -20 }, { 1.0, -5 }, { 1.5, -40 } } << 3 << 0.5 << 1.5 << -40.0 << 1.5
            << -5.0 << 1.0 << (-65.0 / 3);
        QTest::newRow("emptied points in the middle are skipped")
            << Points { { 1, 10 }, { E, 500 }, { 3, E }, { 4, 30 }, { E, E } } << 2 << 1.0 << 4.0
            << 10.0 << 1.0 << 30.0 << 4.0 << 20.0;
    }
    void summary()
    {
        QFETCH(Points, points);
        InMemoryChartSurface chart;
        fill(chart, points);
        const ChartSummary s = ChartSummary::of(chart, 1);
        QTEST(s.count, "count");
        if (s.count == 0)
            return;
        QTEST(s.firstX, "firstX");
        QTEST(s.lastX, "lastX");
        QTEST(s.minY, "minY");
        QTEST(s.minX, "minX");
        QTEST(s.maxY, "maxY");
        QTEST(s.maxX, "maxX");
        QFETCH(double, meanY);
        QVERIFY(qAbs(s.meanY - meanY) < 1e-9);
    }

    void missingSeriesHasNoReadings()
    {
        InMemoryChartSurface chart;
        chart.setSeriesCount(0);
        QCOMPARE(ChartSummary::of(chart, 1).count, 0);
        QCOMPARE(ChartSummary::of(chart, -1).count, 0);
    }

    void text_data()
    {
        QTest::addColumn<Points>("points");
        QTest::addColumn<QString>("unit");
        QTest::addColumn<QString>("expected");
        QTest::newRow("empty") << Points { { E, E } } << "SECONDS"
                               << "NO READINGS ON THE CHART.";
        QTest::newRow("seconds") << Points { { 2, 70 }, { 4, 95 }, { 6, 61 }, { E, E } }
                                 << "SECONDS"
                                 << "READINGS ON THE CHART: 3\r\n"
                                    "FIRST READING AT: 2 SECONDS\r\n"
                                    "LAST READING AT: 6 SECONDS\r\n"
                                    "LOWEST: 61 AT 6 SECONDS\r\n"
                                    "HIGHEST: 95 AT 4 SECONDS\r\n"
                                    "AVERAGE: 75.3";
        QTest::newRow("fractional minutes, no unit")
            << Points { { 0.0167, 10 }, { 0.0333, 11 } } << ""
            << "READINGS ON THE CHART: 2\r\n"
               "FIRST READING AT: 0.017\r\n"
               "LAST READING AT: 0.033\r\n"
               "LOWEST: 10 AT 0.017\r\n"
               "HIGHEST: 11 AT 0.033\r\n"
               "AVERAGE: 10.5";
    }
    void text()
    {
        QFETCH(Points, points);
        QFETCH(QString, unit);
        InMemoryChartSurface chart;
        fill(chart, points);
        QTEST(ChartSummary::of(chart, 1).text(unit), "expected");
    }
};

TALAVEX_TEST(TestChartSummary)
#include "TestChartSummary.moc"
