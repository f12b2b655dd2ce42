#include "support/EngineRig.h"
#include "support/TestRegistry.h"

#include "support/Rows.h"

#include <QRandomGenerator>
#include <QTest>

namespace {
using Xs = QList<double>;

// "10x2" is 10 readings 2 apart from 0; otherwise the X values themselves.
Xs readings(const QString& text)
{
    const QStringList counted = text.split(QLatin1Char('x'));
    if (counted.size() == 1)
        return rows::numbers(text);
    Xs xs;
    for (int i = 0; i < counted[0].toInt(); ++i)
        xs << i * counted[1].toDouble();
    return xs;
}

// Readings put straight on the series, as a loaded plot would, then the engine told.
struct Engine : EngineRig {
    explicit Engine(const Xs& xs)
    {
        QList<QPointF> points;
        for (double x : xs)
            points << QPointF(x, 50);
        plot(points);
        engine.SeriesReplaced();
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
    // Readings (explicit, or "10x2" for 10 readings 2 apart) | a bound | the spacing of readings
    // 1 and 2 (half to even, in 16 bits) | CalcXMinForWindow(-7, bound) | CalcXMaxForWindow(bound,
    // -7); "-" is nothing, the arithmetic overflowing.
    void windowArithmetic_data()
    {
        rows::add({ "no readings | 0x1 | 400 | 0 | -7 | -7", "one reading | 0 | 400 | 0 | -7 | -7",
            "two | 0,5 | 2000 | 5 | 500 | 3500", "first two | 0,3,100 | 1000 | 3 | 100 | 1900",
            "half down | 0,0.5,1 | 400 | 0 | -7 | -7", "half up | 0,1.5,3 | 1000 | 2 | 400 | 1600",
            "spacing 1 | 10x1 | 400 | 1 | 100 | 700", "clamped at 0 | 10x1 | 250 | 1 | 0 | 550",
            "exactly 0 | 10x1 | 300 | 1 | 0 | 600", "negative bound | 10x1 | -400 | 1 | 0 | -100",
            "a decimal | 10x1 | 400.31 | 1 | 100.3 | 700.3",
            "2 apart | 10x2 | 5.44 | 2 | 0 | 605.4", "109 | 10x109 | 40000 | 109 | 7300 | 72700",
            "110 | 5x110 | 1000 | 110 | - | -", "-110 | 5x-110 | 1000 | -110 | - | -",
            "16 bits | 0,32767,65534 | 1000 | 32767 | - | -",
            "17 bits | 0,32768,65536 | 1000 | - | - | -" });
    }
    void windowArithmetic()
    {
        const QStringList f = rows::fields();
        const Xs v = rows::numbers(f.mid(1).join(QLatin1Char(' ')));
        Engine e(readings(f[0]));
        const auto spacing = e.engine.GetPointSpacing();
        QCOMPARE(spacing ? double(*spacing) : qQNaN(), v[1]);
        QCOMPARE(e.engine.CalcXMinForWindow(-7.0, v[0]).value_or(qQNaN()), v[2]);
        QCOMPARE(e.engine.CalcXMaxForWindow(v[0], -7.0).value_or(qQNaN()), v[3]);
    }

    // Hand-counted: readings | X min | X max | over; for the engine and the scans alike.
    void overWindow_data()
    {
        rows::add({ "empty chart | 0x1 | 0 | 1e9 | 0", "0..400 of 1000 | 1000x1 | 0 | 400 | 1",
            "0..297: 299 | 1000x1 | 0 | 297 | 0", "0..298: 300 | 1000x1 | 0 | 298 | 1",
            "0.5..299.5 | 1000x1 | 0.5 | 299.5 | 1", "0.5..298.5 | 1000x1 | 0.5 | 298.5 | 0",
            "299 from 0 | 299x1 | 0 | 1000 | 0", "300 from 0 | 300x1 | 0 | 1000 | 1",
            "before the first | 1000x1 | -500 | -1 | 0",
            "first beyond X min | 1000x1 | -1 | 2000 | 0",
            "after the last | 1000x1 | 5000 | 6000 | 0" });
    }
    void overWindow()
    {
        const QStringList f = rows::fields();
        const Xs v = rows::numbers(f.mid(1).join(QLatin1Char(' ')));
        Engine e(readings(f[0]));
        QCOMPARE(e.engine.IsXRangeOverWindow(v[0], v[1]), v[2] == 1);
        QCOMPARE(scannedOverWindow(e.chart, v[0], v[1]), v[2] == 1);
    }

    // The searches against the scans on many random series: ordered ones (the searches),
    // growing ones (the order check kept up as readings arrive) and shuffled ones (the scans).
    void searchesAgreeWithScans()
    {
        QRandomGenerator random(20261122);
        int compared = 0;
        int overCount = 0;
        for (int round = 0; round < 600; ++round) {
            const int count = round < 20 ? round : 250 + int(random.bounded(700));
            const double steps[] = { 0.0, 0.25, 0.5, 1.0, 1.5, 2.0, 3.0 };
            Xs xs;
            double x = round % 3 == 0 ? 0.0 : double(int(random.bounded(20)) - 10) / 2.0;
            for (int i = 0; i < count; ++i) {
                xs << x;
                x += round % 4 == 0 ? random.bounded(3.0) : steps[random.bounded(7)];
            }
            const bool shuffled = round % 10 == 9 && count > 3;
            if (shuffled)
                std::swap(xs[1], xs[count - 2]);
            Engine e(xs);
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
                const QString at = QStringLiteral("round %1: %2..%3").arg(round).arg(a).arg(b);
                QVERIFY2(e.engine.IsXRangeOverWindow(a, b) == expected, qPrintable(at));
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
};
TALAVEX_TEST(TestAxisWindow)
#include "TestAxisWindow.moc"
