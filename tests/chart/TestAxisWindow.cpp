#include "support/EngineRig.h"
#include "support/TestRegistry.h"

#include "base/Numbers.h"

#include <QRandomGenerator>
#include <QTest>
#include <cmath>
#include <limits>

namespace {
using Axis = ChartSurface::Axis;
constexpr double Empty = GraphingFunctions::EmptyPoint;

// Readings put straight on the series, as a loaded plot would, then the engine told.
struct Engine : EngineRig<> {
    void setReadings(const QList<double>& xs)
    {
        chart.setPointCount(1, 1);
        chart.setX(1, 1, Empty);
        QList<QPointF> points;
        for (double x : xs)
            points << QPointF(x, 50);
        plot(points);
        engine.SeriesReplaced();
    }
    void evenReadings(int count, double step, double first = 0.0)
    {
        QList<double> xs;
        for (int i = 0; i < count; ++i)
            xs << first + i * step;
        setReadings(xs);
    }
};

// The two scans of the window rule exactly as they are written, one point at a time.
bool scannedOverWindow(const ChartSurface& chart, double xMin, double xMax)
{
    auto X = [&chart](int i) { return Numbers::RoundHalfEven(chart.x(1, i)); };
    if (chart.pointCount(1) == 1)
        return false;
    const int n = chart.pointCount(1);
    int s;
    if (xMin == 0) {
        s = 1;
    } else {
        int i = 1;
        double x = X(1);
        for (;;) {
            if (xMin < x || i >= n)
                break;
            x = X(i);
            i = i + 1;
        }
        s = i - 1;
    }
    int j = std::min(s, n);
    double x = X(j);
    for (;;) {
        if (xMax < x || j >= n)
            break;
        x = X(j);
        j = j + 1;
    }
    return j - s >= 300;
}
} // namespace

class TestAxisWindow : public QObject {
    Q_OBJECT
private slots:
    void pointSpacing_data()
    {
        QTest::addColumn<QList<double>>("xs");
        QTest::addColumn<int>("spacing");
        QTest::newRow("no readings") << QList<double> {} << 0;
        QTest::newRow("one reading is too few") << QList<double> { 0 } << 0;
        QTest::newRow("two readings") << QList<double> { 0, 5 } << 5;
        QTest::newRow("three readings") << QList<double> { 0, 2, 4 } << 2;
        QTest::newRow("only the first two count") << QList<double> { 0, 3, 100 } << 3;
        QTest::newRow("half rounds to even, down") << QList<double> { 0, 0.5, 1 } << 0;
        QTest::newRow("half rounds to even, up") << QList<double> { 0, 1.5, 3 } << 2;
        QTest::newRow("minutes of a 2 s interval") << QList<double> { 0, 2.0 / 60, 4.0 / 60 } << 0;
        QTest::newRow("largest 16-bit") << QList<double> { 0, 32767, 65534 } << 32767;
    }
    void pointSpacing()
    {
        QFETCH(QList<double>, xs);
        QFETCH(int, spacing);
        Engine e;
        e.setReadings(xs);
        QCOMPARE(int(e.engine.GetPointSpacing().value_or(-1)), spacing);
    }

    void spacingOverflowGivesNothing()
    {
        Engine e;
        e.setReadings({ 0, 32768, 65536 });
        QVERIFY(!e.engine.GetPointSpacing());
    }

    void calcXMin_data()
    {
        QTest::addColumn<double>("step");
        QTest::addColumn<double>("xMax");
        QTest::addColumn<double>("xMin");
        QTest::newRow("spacing 1") << 1.0 << 400.0 << 100.0;
        QTest::newRow("clamped at 0") << 1.0 << 250.0 << 0.0;
        QTest::newRow("exactly 0") << 1.0 << 300.0 << 0.0;
        QTest::newRow("2 s apart spans 600") << 2.0 << 1000.0 << 400.0;
        QTest::newRow("one decimal kept") << 1.0 << 400.31 << 100.3;
        QTest::newRow("tie to even, down") << 1.0 << 400.25 << 100.2;
        QTest::newRow("tie to even, up") << 1.0 << 400.75 << 100.8;
        QTest::newRow("spacing 109 still fits") << 109.0 << 40000.0 << 7300.0;
        QTest::newRow("spacing 0 leaves it") << 0.4 << 400.0 << -7.0;
    }
    void calcXMin()
    {
        QFETCH(double, step);
        QFETCH(double, xMax);
        QFETCH(double, xMin);
        Engine e;
        e.evenReadings(10, step);
        QCOMPARE(e.engine.CalcXMinForWindow(-7.0, xMax).value_or(-1), xMin);
    }

    void calcXMax_data()
    {
        QTest::addColumn<double>("step");
        QTest::addColumn<double>("xMin");
        QTest::addColumn<double>("xMax");
        QTest::newRow("spacing 1") << 1.0 << 100.0 << 400.0;
        QTest::newRow("no clamp below 0") << 1.0 << -400.0 << -100.0;
        QTest::newRow("2 s apart") << 2.0 << 5.44 << 605.4;
        QTest::newRow("spacing 0 leaves it") << 0.2 << 100.0 << -7.0;
    }
    void calcXMax()
    {
        QFETCH(double, step);
        QFETCH(double, xMin);
        QFETCH(double, xMax);
        Engine e;
        e.evenReadings(10, step);
        QCOMPARE(e.engine.CalcXMaxForWindow(xMin, -7.0).value_or(-1), xMax);
    }

    void windowProductOverflowGivesNothing_data()
    {
        QTest::addColumn<double>("step");
        QTest::newRow("110 units") << 110.0;
        QTest::newRow("-110 units") << -110.0;
        QTest::newRow("32767 units") << 32767.0;
    }
    void windowProductOverflowGivesNothing()
    {
        QFETCH(double, step);
        Engine e;
        e.evenReadings(5, step);
        QVERIFY(!e.engine.CalcXMinForWindow(1.0, 1000.0));
        QVERIFY(!e.engine.CalcXMaxForWindow(10.0, 2.0));
    }

    void overWindow_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<double>("step");
        QTest::addColumn<double>("xMin");
        QTest::addColumn<double>("xMax");
        QTest::addColumn<bool>("over");
        QTest::newRow("empty chart") << 0 << 1.0 << 0.0 << 1e9 << false;
        QTest::newRow("0..400 of 1000") << 1000 << 1.0 << 0.0 << 400.0 << true;
        QTest::newRow("0..297: 299 counted") << 1000 << 1.0 << 0.0 << 297.0 << false;
        QTest::newRow("0..298: 300 counted") << 1000 << 1.0 << 0.0 << 298.0 << true;
        QTest::newRow("0.5..299.5 starts at the scan") << 1000 << 1.0 << 0.5 << 299.5 << true;
        QTest::newRow("0.5..298.5") << 1000 << 1.0 << 0.5 << 298.5 << false;
        QTest::newRow("all 299 readings from 0") << 299 << 1.0 << 0.0 << 1000.0 << false;
        QTest::newRow("all 300 readings from 0") << 300 << 1.0 << 0.0 << 1000.0 << true;
        QTest::newRow("range before the first reading") << 1000 << 1.0 << -500.0 << -1.0 << false;
        QTest::newRow("first reading beyond xMin") << 1000 << 1.0 << -1.0 << 2000.0 << false;
        QTest::newRow("range after the last reading") << 1000 << 1.0 << 5000.0 << 6000.0 << false;
        QTest::newRow("2 s apart, 0..600") << 1000 << 2.0 << 0.0 << 600.0 << true;
        QTest::newRow("2 s apart, 0..500") << 1000 << 2.0 << 0.0 << 500.0 << false;
    }
    void overWindow()
    {
        QFETCH(int, count);
        QFETCH(double, step);
        QFETCH(double, xMin);
        QFETCH(double, xMax);
        QFETCH(bool, over);
        Engine e;
        e.evenReadings(count, step);
        QCOMPARE(e.engine.IsXRangeOverWindow(xMin, xMax), over);
        QCOMPARE(scannedOverWindow(e.chart, xMin, xMax), over);
    }

    // The searches against the scans on many random series: ordered ones (the searches),
    // growing ones (the order check kept up as readings arrive) and shuffled ones (the scans).
    void searchesAgreeWithScans()
    {
        QRandomGenerator random(20261122);
        int compared = 0;
        int overCount = 0;
        for (int round = 0; round < 600; ++round) {
            Engine e;
            const int count = round < 20 ? round : 250 + int(random.bounded(700));
            const double steps[] = { 0.0, 0.25, 0.5, 1.0, 1.5, 2.0, 3.0 };
            QList<double> xs;
            double x = round % 3 == 0 ? 0.0 : double(int(random.bounded(20)) - 10) / 2.0;
            for (int i = 0; i < count; ++i) {
                xs << x;
                x += round % 4 == 0 ? random.bounded(3.0) : steps[random.bounded(7)];
            }
            const bool shuffled = round % 10 == 9 && count > 3;
            if (shuffled)
                std::swap(xs[1], xs[count - 2]);
            e.setReadings(xs);
            // A bound at, beside or between readings, in the given share of the series.
            auto pick = [&](double from, double to) -> double {
                if (xs.isEmpty() || random.bounded(8) == 0)
                    return random.bounded(8) == 0 ? 0.0 : double(int(random.bounded(400)) - 50);
                const int lo = int(from * xs.size());
                const int span = std::max(1, int((to - from) * xs.size()));
                const int at = std::min(int(xs.size()) - 1, lo + int(random.bounded(span)));
                const double nudges[] = { 0.0, 0.5, -0.5, 0.25, 1.0, -1.0 };
                return xs[at] + nudges[random.bounded(6)];
            };
            for (int q = 0; q < 40; ++q) {
                const double a = q % 2 ? pick(0.0, 0.3) : pick(0.0, 1.0);
                const double b = q % 5 == 0 ? a + 299 : q % 2 ? pick(0.6, 1.0) : pick(0.0, 1.0);
                const bool expected = scannedOverWindow(e.chart, a, b);
                QVERIFY2(e.engine.IsXRangeOverWindow(a, b) == expected,
                    qPrintable(QStringLiteral("round %1 (%2 readings) %3..%4")
                                   .arg(round)
                                   .arg(count)
                                   .arg(a)
                                   .arg(b)));
                overCount += expected;
                ++compared;
            }
            // Grow the series one reading at a time, as the receive path does.
            if (!shuffled && count > 0 && round % 2 == 0) {
                for (int more = 0; more < 30; ++more) {
                    const int k = e.chart.pointCount(1);
                    e.chart.setX(1, k, e.chart.x(1, k - 1) + steps[random.bounded(7)]);
                    e.chart.setY(1, k, 50);
                    e.chart.setPointCount(1, k + 1);
                    const double a = e.chart.x(1, int(random.bounded(k)) + 1) - 0.5;
                    const double b = e.chart.x(1, k) + random.bounded(2.0);
                    QCOMPARE(e.engine.IsXRangeOverWindow(a, b), scannedOverWindow(e.chart, a, b));
                    ++compared;
                }
            }
        }
        QVERIFY(compared > 20000);
        // Both answers occur often enough for the comparison to mean something.
        QVERIFY(overCount > 500);
        QVERIFY(compared - overCount > 500);
    }

    void outOfOrderSeriesIsScanned()
    {
        Engine e;
        QList<double> xs;
        for (int i = 0; i < 400; ++i)
            xs << i;
        e.setReadings(xs);
        QVERIFY(e.engine.IsXRangeOverWindow(0.0, 400.0));
        // A reading far ahead early on: a binary search would stop before it.
        e.chart.setX(1, 2, 1000.0);
        e.engine.SeriesReplaced();
        QCOMPARE(e.engine.IsXRangeOverWindow(0.5, 400.0), scannedOverWindow(e.chart, 0.5, 400.0));
        QVERIFY(!e.engine.IsXRangeOverWindow(0.5, 400.0));
    }
};
TALAVEX_TEST(TestAxisWindow)
#include "TestAxisWindow.moc"
