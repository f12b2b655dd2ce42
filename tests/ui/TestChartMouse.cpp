#include "support/PlotWindowApp.h"
#include "support/TestRegistry.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

namespace {
using Axis = ChartSurface::Axis;

// Forty readings on an X axis from 0 to 60 and a Y axis from 0 to 100.
struct PlotApp : PlotWindowApp {
    PlotApp()
    {
        app.state.Instrument.interval = SamplingInterval(QStringLiteral("1"));
        for (int i = 0; i < 40; ++i) {
            app.state.TimeInterval = 1.0f;
            qint16 reading = qint16(60 + i % 7);
            app.chart.AddReadingToChart(reading);
        }
        surface.setAxisMin(Axis::X, 0);
        surface.setAxisMax(Axis::X, 60);
        surface.setAxisMin(Axis::Y, 0);
        surface.setAxisMax(Axis::Y, 100);
        plot->replot(QCustomPlot::rpImmediateRefresh);
    }
    QPushButton* resetButton()
    {
        return window.findChild<QPushButton*>(QStringLiteral("cmdResetChart"));
    }
};
} // namespace

class TestChartMouse : public QObject {
    Q_OBJECT
private slots:
    void readingsAppearWithoutTheEmptySlot()
    {
        PlotApp p;
        QCOMPARE(p.surface.pointCount(1), 41);
        QCOMPARE(p.surface.graph(1)->dataCount(), 40);
        bool found = false;
        const QCPRange keys = p.surface.graph(1)->data()->keyRange(found);
        QVERIFY(found);
        QCOMPARE(keys.upper, 39.0);
        p.app.controller.mnuClearChart_Click();
        QCOMPARE(p.surface.graph(1)->dataCount(), 0);
    }

    void zoomRectangleShowsResetChart()
    {
        PlotApp p;
        QVERIFY(p.resetButton()->isHidden());
        p.drag({ 0.25, 0.25 }, { 0.5, 0.75 });
        QTRY_VERIFY(p.app.main.cmdResetChart.visible());
        QTRY_VERIFY(!p.resetButton()->isHidden());
        QVERIFY(p.surface.axisMin(Axis::X) > 10 && p.surface.axisMax(Axis::X) < 35);
        QVERIFY(p.surface.axisMin(Axis::Y) > 20 && p.surface.axisMax(Axis::Y) < 80);

        p.resetButton()->click();
        QCoreApplication::processEvents();
        QCOMPARE(p.surface.axisMin(Axis::X), 0.0);
        QCOMPARE(p.surface.axisMax(Axis::X), 60.0);
        QCOMPARE(p.surface.axisMax(Axis::Y), 100.0);
        QVERIFY(!p.app.main.cmdResetChart.visible());
    }

    void clickWithoutMovingLeavesItHidden()
    {
        PlotApp p;
        p.drag({ 0.5, 0.5 }, { 0.5, 0.5 });
        QTest::qWait(20);
        QVERIFY(!p.app.main.cmdResetChart.visible());
        QCOMPARE(p.surface.axisMax(Axis::X), 60.0);
    }

    void shiftDragMovesTheAxes()
    {
        PlotApp p;
        const QPointF from = p.at({ 0.5, 0.5 });
        const QPointF to = p.at({ 0.25, 0.5 });
        p.mouse(QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton, Qt::ShiftModifier);
        p.mouse(QEvent::MouseMove, to, Qt::LeftButton, Qt::LeftButton, Qt::ShiftModifier);
        // The limit lines follow the axes as they move.
        QVERIFY(p.surface.x(2, 2) >= p.surface.axisMax(Axis::X));
        p.mouse(QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton, Qt::ShiftModifier);
        QTRY_VERIFY(p.app.main.cmdResetChart.visible());
        const double width = p.surface.axisMax(Axis::X) - p.surface.axisMin(Axis::X);
        QVERIFY(qAbs(width - 60.0) < 1e-6);
        QVERIFY(p.surface.axisMin(Axis::X) > 10);
        QCOMPARE(p.surface.axisMax(Axis::Y), 100.0);
    }

    // A reading with a window step, a page and auto-scaling makes one redraw.
    void oneReplotPerReading()
    {
        PlotApp p;
        p.app.main.mnuAutoScaleYAxis.setChecked(true);
        p.app.main.mnuRealTimeGraphOn.setChecked(true);
        p.surface.setAxisMax(Axis::X, 39);
        QSignalSpy replots(p.plot, &QCustomPlot::afterReplot);
        QTest::qWait(40);
        replots.clear();
        p.app.state.TimeInterval = 1.0f;
        qint16 reading = 500;
        p.app.chart.AddReadingToChart(reading);
        QCOMPARE(p.surface.axisMin(Axis::X), 39.0);
        QCOMPARE(p.surface.axisMax(Axis::Y), 550.0);
        QTRY_COMPARE(replots.count(), 1);
        QTest::qWait(40);
        QCOMPARE(replots.count(), 1);
    }
};
TALAVEX_TEST(TestChartMouse)
#include "TestChartMouse.moc"
