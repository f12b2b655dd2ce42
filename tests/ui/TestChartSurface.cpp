#include "support/Rows.h"
#include "support/TestRegistry.h"

#include "chart/InMemoryChartSurface.h"
#include "ui/ChartPlot.h"
#include "ui/QCustomPlotSurface.h"

#include <QApplication>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <cmath>
#include <qcustomplot.h>

namespace {
using Axis = ChartSurface::Axis;

struct PlotRig {
    ChartPlot plot;
    QCustomPlotSurface surface { plot };
    PlotRig() { plot.resize(800, 600); }
    // Redraws now, which also brings series in the general model into their graphs.
    void draw() { plot.replot(QCustomPlot::rpImmediateRefresh); }
    std::vector<QPointF> graphPoints(int series)
    {
        std::vector<QPointF> points;
        const auto data = surface.graph(series)->data();
        for (auto it = data->constBegin(); it != data->constEnd(); ++it)
            points.emplace_back(it->key, it->value);
        return points;
    }
};

// Applies a script of surface operations: "c5" sets the point count of series 1, "x3=7.5" and
// "y3=7.5" set a value, "=E" stands for the empty-point value, "e=-1" changes that value.
void run(ChartSurface& chart, const QString& script)
{
    for (const QString& op : script.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        if (op.startsWith(QLatin1Char('c'))) {
            chart.setPointCount(1, op.mid(1).toInt());
            continue;
        }
        const QString value = op.section(QLatin1Char('='), 1);
        const double v = value == QLatin1String("E") ? chart.emptyPointValue() : value.toDouble();
        const int point = op.section(QLatin1Char('='), 0, 0).mid(1).toInt();
        if (op.startsWith(QLatin1Char('x')))
            chart.setX(1, point, v);
        else if (op.startsWith(QLatin1Char('y')))
            chart.setY(1, point, v);
        else
            chart.setEmptyPointValue(v);
    }
}

// A long random script over a short series: counts, values in and out of order, empties.
QString randomScript(quint32 seed, int length)
{
    QRandomGenerator random(seed);
    QStringList ops;
    int count = 0;
    for (int i = 0; i < length; ++i) {
        const int kind = random.bounded(10);
        if (kind == 0 || count == 0) {
            count = random.bounded(12);
            ops << QStringLiteral("c%1").arg(count);
        } else if (kind == 1 && random.bounded(8) == 0) {
            ops << QStringLiteral("e=%1").arg(random.bounded(3) - 1);
        } else {
            const int point = 1 + random.bounded(count);
            const QString value = random.bounded(5) == 0
                ? QStringLiteral("E")
                : QString::number(random.bounded(2) ? point : random.bounded(20));
            ops << QStringLiteral("%1%2=%3").arg(kind % 2 ? 'x' : 'y').arg(point).arg(value);
        }
    }
    return ops.join(QLatin1Char(' '));
}

std::vector<QPointF> sortedByX(std::vector<QPointF> points)
{
    std::stable_sort(points.begin(), points.end(),
        [](const QPointF& a, const QPointF& b) { return a.x() < b.x(); });
    return points;
}
} // namespace

class TestChartSurface : public QObject {
    Q_OBJECT
private slots:
    // The plot must show exactly the points a plain model of the series would draw, and read
    // back every value as set, whatever order the values come in.
    void sameAsPlainModel_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<bool>("inOrder");
        QTest::newRow("appending") << "c1 x1=E x1=0 y1=5 c2 x2=1 y2=6 c3 x3=2 y3=7 c4" << true;
        QTest::newRow("all Y, then all X") << "c4 y1=1 y2=2 y3=3 y4=4 x1=0 x2=1 x3=1 x4=9" << true;
        QTest::newRow("last point emptied and refilled")
            << "c3 x1=0 y1=1 x2=1 y2=2 x3=2 y3=3 x3=E x3=5 c1 x1=E" << true;
        QTest::newRow("shrink below the drawn points and grow")
            << "c4 x1=0 y1=1 x2=1 y2=2 x3=2 y3=3 c2 c5 x3=4 y3=4" << true;
        QTest::newRow("X out of order") << "c3 x1=0 y1=1 x2=5 y2=2 x3=2 y3=3" << false;
        QTest::newRow("middle point emptied") << "c3 x1=0 y1=1 x2=5 y2=2 x3=6 y3=3 y2=E" << false;
        QTest::newRow("drawable behind a gap") << "c4 x1=0 y1=1 x3=5 y3=2" << false;
        QTest::newRow("empty value changed") << "c3 x1=0 y1=0 x2=1 y2=-1 e=0" << false;
        QTest::newRow("general, then back by a reset")
            << "c3 x1=5 y1=1 x2=0 y2=2 c1 x1=E x1=0 y1=4 c2 x2=3 y2=1" << true;
        for (quint32 seed : { 1u, 2u, 3u }) {
            QTest::addRow("random %u", seed)
                << randomScript(seed, 400) + QStringLiteral(" c1 x1=E y1=E") << true;
        }
    }
    void sameAsPlainModel()
    {
        QFETCH(QString, script);
        QFETCH(bool, inOrder);
        PlotRig rig;
        InMemoryChartSurface plain;
        // Checked at every step, so a wrong value is caught where it first appears.
        const QStringList ops = script.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        for (int i = 0; i < ops.size(); ++i) {
            run(rig.surface, ops[i]);
            run(plain, ops[i]);
            const int count = plain.pointCount(1);
            QCOMPARE(rig.surface.pointCount(1), count);
            for (int k = 1; k <= count; ++k) {
                QCOMPARE(rig.surface.x(1, k), plain.x(1, k));
                QCOMPARE(rig.surface.y(1, k), plain.y(1, k));
            }
            if (i % 7 == 0 || i == ops.size() - 1) {
                rig.draw();
                QCOMPARE(rig.graphPoints(1), sortedByX(plain.drawnPoints(1)));
            }
        }
        QCOMPARE(rig.surface.seriesInOrder(1), inOrder);
    }

    void batchMakesOneReplot()
    {
        PlotRig rig;
        QSignalSpy replots(&rig.plot, &QCustomPlot::afterReplot);
        QTRY_COMPARE(replots.count(), 1);
        QTRY_VERIFY(!rig.surface.redrawPending());
        replots.clear();

        rig.surface.beginBatch();
        rig.surface.beginBatch();
        rig.surface.setAxisMin(Axis::X, 10);
        rig.surface.setAxisMax(Axis::X, 20);
        rig.surface.endBatch();
        rig.surface.setPointCount(1, 2);
        rig.surface.setX(1, 1, 12);
        rig.surface.setY(1, 1, 3);
        rig.surface.setAxisTitle(Axis::Y, "DEG");
        QCoreApplication::processEvents();
        QCOMPARE(replots.count(), 0);
        rig.surface.endBatch();

        QTRY_COMPARE(replots.count(), 1);
        QTRY_VERIFY(!rig.surface.redrawPending());
        QCoreApplication::processEvents();
        QCOMPARE(replots.count(), 1);
        QCOMPARE(rig.plot.xAxis->range(), QCPRange(10, 20));
    }

    // A change of the view (an axis, the cursor's marker) is drawn within a frame, even while
    // new points wait their turn.
    void viewChangeIsDrawnSooner()
    {
        PlotRig rig;
        QTRY_VERIFY(!rig.surface.redrawPending());
        rig.surface.setPointCount(1, 2);
        rig.surface.setAxisMax(Axis::X, 30);
        QVERIFY(rig.surface.msUntilRedraw() <= QCustomPlotSurface::FrameMs);
        QTRY_VERIFY(!rig.surface.redrawPending());
        QCoreApplication::processEvents(); // the queued replot
        QSignalSpy replots(&rig.plot, &QCustomPlot::afterReplot);
        rig.surface.setMarkerVisible(true);
        QTRY_VERIFY(!replots.isEmpty());
    }

    // Readings added at the end of the line are drawn by redrawing their area alone, which must
    // leave the very pixels a replot would; any other change is drawn by a replot.
    void addedPointsDrawnInPlace_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<QString>("extras");
        QTest::addColumn<QString>("drawing");
        QTest::newRow("added in view") << "a40,6 a42,7 a44,3"
                                       << ""
                                       << "part";
        QTest::newRow("across the limit line") << "a40,2 a42,8 a44,2"
                                               << ""
                                               << "part";
        QTest::newRow("under the marker") << "a40,2 a42,8"
                                          << "marker"
                                          << "part";
        QTest::newRow("with point symbols") << "a40,9.9 a42,0.1"
                                            << "symbols"
                                            << "part";
        QTest::newRow("to the edge") << "a99.5,0 a100,10"
                                     << ""
                                     << "part";
        QTest::newRow("over the zero line") << "a40,-3 a42,4 a44,-1"
                                            << "zero line"
                                            << "part";
        QTest::newRow("leaving the view") << "a150,6 a160,7"
                                          << ""
                                          << "part";
        QTest::newRow("earlier point changed") << "y3=9"
                                               << ""
                                               << "replot";
        QTest::newRow("added and earlier changed") << "a40,6 y3=9"
                                                   << ""
                                                   << "replot";
        QTest::newRow("last point removed") << "c19"
                                            << ""
                                            << "replot";
        QTest::newRow("limit line moved") << "a40,6 L7"
                                          << ""
                                          << "replot";
        QTest::newRow("axis moved") << "a40,6 Y12"
                                    << ""
                                    << "replot";
    }
    void addedPointsDrawnInPlace()
    {
        QFETCH(QString, script);
        QFETCH(QString, extras);
        QFETCH(QString, drawing);
        PlotRig rig;
        rig.surface.setAxisMin(Axis::X, 0);
        rig.surface.setAxisMax(Axis::X, 100);
        rig.surface.setAxisMin(Axis::Y, 0);
        rig.surface.setAxisMax(Axis::Y, 10);
        auto append = [&](double x, double y) {
            const int n = rig.surface.pointCount(1) + 1;
            rig.surface.setPointCount(1, n);
            rig.surface.setX(1, n, x);
            rig.surface.setY(1, n, y);
        };
        auto limit = [&](double y) {
            rig.surface.setPointCount(2, 2);
            for (int point : { 1, 2 }) {
                rig.surface.setX(2, point, point == 1 ? 0 : 100);
                rig.surface.setY(2, point, y);
            }
        };
        for (int i = 0; i < 20; ++i)
            append(i * 2.0, 5 + 4 * std::sin(i));
        limit(5);
        if (extras == QLatin1String("marker")) {
            rig.surface.setMarkerX(41);
            rig.surface.setMarkerVisible(true);
        }
        if (extras == QLatin1String("zero line")) {
            rig.surface.setAxisMin(Axis::Y, -5);
            rig.plot.yAxis->grid()->setZeroLinePen(QPen(Qt::darkGreen, 0, Qt::DashDotLine));
        }
        if (extras == QLatin1String("symbols"))
            rig.surface.graph(1)->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssCircle, 7));
        rig.plot.show();
        // The window settles (exposed, its resize and queued replots done) before the readings
        // come, or a late resize would rightly force a replot.
        QVERIFY(QTest::qWaitForWindowExposed(&rig.plot));
        QCoreApplication::processEvents();
        QTRY_VERIFY(!rig.surface.redrawPending());
        rig.draw();
        QCoreApplication::processEvents();
        QSignalSpy replots(&rig.plot, &QCustomPlot::afterReplot);
        QSignalSpy parts(&rig.plot, &ChartPlot::areaRedrawn);

        for (const QString& op : script.split(QLatin1Char(' '))) {
            const QStringList v = op.mid(1).split(QRegularExpression(QStringLiteral("[,=]")));
            switch (op.at(0).toLatin1()) {
            case 'a':
                append(v[0].toDouble(), v[1].toDouble());
                break;
            case 'y':
                rig.surface.setY(1, v[0].toInt(), v[1].toDouble());
                break;
            case 'c':
                rig.surface.setPointCount(1, v[0].toInt());
                break;
            case 'L':
                limit(v[0].toDouble());
                break;
            case 'Y':
                rig.surface.setAxisMax(Axis::Y, v[0].toDouble());
                break;
            }
        }
        QTRY_VERIFY(!rig.surface.redrawPending());
        QTest::qWait(30);
        // A build that cannot draw in part replots instead.
        const bool inPart = drawing == QLatin1String("part") && ChartPlot::drawsInPart();
        QCOMPARE(parts.count(), inPart ? 1 : 0);
        QCOMPARE(replots.count(), inPart ? 0 : 1);

        const QImage shown = rig.plot.grab().toImage();
        rig.draw();
        const QImage replotted = rig.plot.grab().toImage();
        QCOMPARE(shown.size(), replotted.size());
        // A stroke's edge shading may shift by a few levels where a line goes on past a point
        // that used to end it; a missing or stale stroke differs by far more.
        int differing = 0;
        for (int y = 0; y < shown.height(); ++y) {
            for (int x = 0; x < shown.width(); ++x) {
                const QRgb a = shown.pixel(x, y);
                const QRgb b = replotted.pixel(x, y);
                const int most = std::max({ std::abs(qRed(a) - qRed(b)),
                    std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b)) });
                differing += most > 24;
            }
        }
        QVERIFY2(differing == 0, qPrintable(QStringLiteral("%1 pixels differ").arg(differing)));
    }

    // The plot paints its background itself and copies its buffer; a brush it cannot copy that
    // way is painted as usual. Either way the readings are on the screen.
    void paintsBackgroundAndReadings_data()
    {
        QTest::addColumn<QColor>("background");
        QTest::addColumn<bool>("opaque");
        QTest::newRow("white") << QColor(Qt::white) << true;
        QTest::newRow("black") << QColor(Qt::black) << true;
        QTest::newRow("see-through") << QColor(0, 0, 255, 128) << false;
    }
    void paintsBackgroundAndReadings()
    {
        QFETCH(QColor, background);
        QFETCH(bool, opaque);
        PlotRig rig;
        rig.surface.setColor(ChartSurface::Color::ReadingLine, 0xFF0000);
        rig.plot.setBackground(QBrush(background));
        rig.surface.setAxisMin(Axis::X, 0);
        rig.surface.setAxisMax(Axis::X, 10);
        rig.surface.setAxisMin(Axis::Y, 0);
        rig.surface.setAxisMax(Axis::Y, 10);
        rig.surface.setPointCount(1, 2);
        rig.surface.setX(1, 1, 0);
        rig.surface.setY(1, 1, 5);
        rig.surface.setX(1, 2, 10);
        rig.surface.setY(1, 2, 5);
        rig.draw();
        QCOMPARE(rig.plot.paintsOpaque(), opaque && ChartPlot::drawsInPart());

        const QImage shot = rig.plot.grab().toImage();
        if (opaque) {
            // Every corner, the bottom row included.
            for (const QPoint corner : { QPoint(0, 0), QPoint(shot.width() - 1, 0),
                     QPoint(0, shot.height() - 1), QPoint(shot.width() - 1, shot.height() - 1) })
                QCOMPARE(shot.pixelColor(corner), background);
        }
        const int lineY = int(rig.plot.yAxis->coordToPixel(5));
        const int midX = int(rig.plot.xAxis->coordToPixel(5));
        bool red = false;
        for (int dy = -1; dy <= 1; ++dy) {
            const QColor c = shot.pixelColor(midX, lineY + dy);
            red = red || (c.red() > 200 && c.green() < 80 && c.blue() < 80);
        }
        QVERIFY(red);
    }

    // Tick labels in the axis's picture ("_" none): picture, lower and upper end, a label.
    void labels_data()
    {
        rows::add({ "#.## 10 14 12", "#.## 12 13 12.2", "#.## 0 0.1 .02", "#.## 0 1 .2",
            "#.## -1 0 -.4", "_ 0 1 0.2" });
    }
    void labels()
    {
        QFETCH(QString, row);
        const QStringList f = row.split(' ');
        const QString format = f[0] == "_" ? QString() : f[0], expected = f[3];
        PlotRig rig;
        rig.surface.setAxisLabelFormat(Axis::X, format);
        rig.surface.setAxisMin(Axis::X, f[1].toDouble());
        rig.surface.setAxisMax(Axis::X, f[2].toDouble());
        rig.draw();
        const QVector<QString> labels = rig.plot.xAxis->tickVectorLabels();
        QVERIFY2(labels.contains(expected),
            qPrintable(QStringList(labels.begin(), labels.end()).join('|')));
        if (format != QLatin1String("#.##"))
            return;
        // No trailing zeros, no zero before the point, at most two decimals.
        static const QRegularExpression picture(
            QStringLiteral("^-?([1-9]\\d*)?(\\.\\d?[1-9])?$|^0$"));
        for (const QString& label : labels)
            QVERIFY2(picture.match(label).hasMatch(), qPrintable(label));
    }
};
TALAVEX_TEST(TestChartSurface)
#include "TestChartSurface.moc"
