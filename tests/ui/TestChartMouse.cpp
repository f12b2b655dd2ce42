#include "support/FakeBeeper.h"
#include "support/FakeClock.h"
#include "support/FakeLauncher.h"
#include "support/FakePrompter.h"
#include "support/FakeSerialPort.h"
#include "support/FakeSystemInfo.h"
#include "support/TestRegistry.h"

#include "app/Application.h"
#include "link/PortMap.h"
#include "ui/MainWindow.h"
#include "ui/QCustomPlotSurface.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <qcustomplot.h>

namespace {
using Axis = ChartSurface::Axis;

// The application on the real chart widget inside the real main window.
struct PlotApp {
    QTemporaryDir dir;
    FakePrompter prompter;
    FakeClock clock;
    FakeBeeper beeper;
    FakeLauncher launcher;
    FakeSystemInfo systemInfo;
    FakeSerialPort port;
    PortMap portMap;
    QCustomPlot* plot = new QCustomPlot;
    QCustomPlotSurface surface { *plot };
    Application app { Platform {
        prompter, clock, beeper, launcher, systemInfo, port, surface, portMap } };
    MainWindow window { app, plot };

    PlotApp()
    {
        app.state.ProgramDirectory = dir.path();
        app.controller.Form_Load();
        window.resize(1000, 700);
        window.show();
        app.main.lblSystParameters(2).setCaption(QStringLiteral("1"));
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
    // A left-button gesture from one point of the plot area to another, as fractions of it.
    void drag(QPointF from, QPointF to, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        const QRect area = plot->axisRect()->rect();
        auto at = [&area](QPointF f) {
            return QPointF(area.left() + f.x() * area.width(), area.top() + f.y() * area.height());
        };
        const QPointF a = at(from);
        const QPointF b = at(to);
        const QPointF mid = (a + b) / 2;
        auto send = [this, modifiers](QEvent::Type type, QPointF pos, Qt::MouseButtons buttons) {
            QMouseEvent event(
                type, pos, plot->mapToGlobal(pos), Qt::LeftButton, buttons, modifiers);
            QCoreApplication::sendEvent(plot, &event);
        };
        send(QEvent::MouseButtonPress, a, Qt::LeftButton);
        send(QEvent::MouseMove, mid, Qt::LeftButton);
        send(QEvent::MouseMove, b, Qt::LeftButton);
        send(QEvent::MouseButtonRelease, b, Qt::NoButton);
        QCoreApplication::processEvents();
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
        p.drag({ 0.5, 0.5 }, { 0.25, 0.5 }, Qt::ShiftModifier);
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
