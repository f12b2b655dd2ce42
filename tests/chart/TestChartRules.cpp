#include "support/EngineRig.h"
#include "support/TestRegistry.h"

#include "Rows.h"

#include "chart/ChartPanel.h"
#include "chart/ChartSummary.h"
#include "chart/TwoPointMeasure.h"

#include <QTest>

// Rules of the chart read apart from the application: the two-point measurement, the summary of
// the readings and when the engine refreshes the graph settings panel.
class TestChartRules : public QObject {
    Q_OBJECT
private slots:
    // Pinned X, Y | cursor X | what is under it (0 a reading, 1 off the chart, 2 no data) and its
    // value | X axis title | time, temperature and rate.
    void measure_data()
    {
        rows::add({ "heating, seconds | 10 30 | 130 | 0 90 | SECONDS | 120.00;60.00;30.00",
            "heating, minutes | 1 30 | 3 | 0 90 | MINUTES | 2.00;60.00;30.00",
            "heating, hours | 0 30 | 0.5 | 0 90 | HOURS | 0.50;60.00;2.00",
            "heating, days | 0 0 | 1 | 0 1440 | DAYS | 1.00;1440.00;1.00",
            "an operator's title: seconds | 0 0 | 60 | 0 5 | ELAPSED | 60.00;5.00;5.00",
            "lower case is no unit | 0 0 | 60 | 0 5 | hours | 60.00;5.00;5.00",
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

    // Readings as X Y pairs, "e" an empty value | count, first and last X, lowest Y and its X,
    // highest Y and its X, mean.
    void summary_data()
    {
        rows::add({ "only the empty slot | e e | 0 0 0 0 0 0 0 0",
            "one reading | 1 72, e e | 1 1 1 72 1 72 1 72",
            "ties keep the first | 1 5, 2 9, 3 5, 4 9 | 4 1 4 5 1 9 2 7",
            "below zero | 0.5 -20, 1 -5, 1.5 -40 | 3 0.5 1.5 -40 1.5 -5 1 -21.6666666667",
            "emptied points skipped | 1 10, e 500, 3 e, 4 30, e e | 2 1 4 10 1 30 4 20" });
    }
    void summary()
    {
        const QStringList f = rows::fields();
        const QList<double> xy = rows::numbers(
            QString(f[0]).replace('e', QString::number(GraphingFunctions::EmptyPoint, 'f', 0)));
        InMemoryChartSurface chart;
        chart.setPointCount(1, int(xy.size()) / 2);
        for (int k = 0; k < xy.size() / 2; ++k) {
            chart.setX(1, k + 1, xy[2 * k]);
            chart.setY(1, k + 1, xy[2 * k + 1]);
        }
        const ChartSummary s = ChartSummary::of(chart, 1);
        const QList<double> got { double(s.count), s.firstX, s.lastX, s.minY, s.minX, s.maxY,
            s.maxX, s.meanY };
        const QList<double> expected = rows::numbers(f[1]);
        for (int i = 0; i < got.size(); ++i)
            QVERIFY2(qAbs(got[i] - expected[i]) < 1e-9, qPrintable(QString::number(i)));
        // As the operator reads it, without a unit: three decimals at most, the mean with one.
        if (s.count == 3)
            QVERIFY(s.text(QString()).endsWith("\r\nLOWEST: -40 AT 1.5\r\nHIGHEST: -5 AT 1\r\n"
                                               "AVERAGE: -21.7"));
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
        EngineRig<> rig;
        rig.engine.setPanel(&panel);
        rig.state.GraphSettingsOpen = v[0] == 1;
        rig.window.mnuAutoScaleYAxis.setChecked(v[1] == 1);
        for (int i = 0; i < v[2]; ++i)
            rig.feed(50);
        QCOMPARE(panel.updates, int(v[3]));
    }
};
TALAVEX_TEST(TestChartRules)
#include "TestChartRules.moc"
