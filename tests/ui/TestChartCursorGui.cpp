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
#include "ui/MarkerDataWindow.h"
#include "ui/QCustomPlotSurface.h"

#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <qcustomplot.h>

namespace {
using Axis = ChartSurface::Axis;

// The application on the real chart inside the real main window, with readings (0, 100) and
// (10, 200) on an X axis from 0 to 60.
struct CursorApp {
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

    CursorApp()
    {
        app.state.ProgramDirectory = dir.path();
        app.controller.Form_Load();
        window.resize(1000, 700);
        window.show();
        surface.setPointCount(1, 3);
        surface.setX(1, 1, 0);
        surface.setY(1, 1, 100);
        surface.setX(1, 2, 10);
        surface.setY(1, 2, 200);
        surface.setAxisMin(Axis::X, 0);
        surface.setAxisMax(Axis::X, 60);
        plot->replot(QCustomPlot::rpImmediateRefresh);
    }
    QPushButton* button() { return window.findChild<QPushButton*>(QStringLiteral("cmdMarkers")); }
    QWidget* dataWindow() { return window.findChild<MarkerDataWindow*>(); }
    QString label(const char* name)
    {
        QWidget* w = dataWindow();
        return w ? w->findChild<QLabel*>(QString::fromLatin1(name))->text() : QString();
    }
    // The mouse over the plot at data X, halfway up, no button held.
    void hover(double x)
    {
        const QPointF pos(plot->xAxis->coordToPixel(x), plot->axisRect()->center().y());
        QMouseEvent event(QEvent::MouseMove, pos, plot->mapToGlobal(pos), Qt::NoButton,
            Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(plot, &event);
        QCoreApplication::processEvents();
    }
};
} // namespace

class TestChartCursorGui : public QObject {
    Q_OBJECT
private slots:
    void hoverReadsTheChart_data()
    {
        QTest::addColumn<double>("x");
        QTest::addColumn<QString>("temp");
        QTest::addColumn<QString>("time");
        QTest::newRow("between") << 2.5 << "125.00"
                                 << "2.50";
        QTest::newRow("beyond the newest") << 30.0 << "NO DATA"
                                           << "NO DATA";
    }
    void hoverReadsTheChart()
    {
        QFETCH(double, x);
        QFETCH(QString, temp);
        QFETCH(QString, time);
        CursorApp c;
        const QString before = c.button()->styleSheet();
        QTest::mouseClick(c.button(), Qt::LeftButton);
        QCOMPARE(c.button()->text(), QStringLiteral("CURSOR ON"));
        QVERIFY(c.button()->styleSheet().contains(QStringLiteral("#ffff00")));
        QVERIFY(c.dataWindow() && c.dataWindow()->isVisible());
        QCOMPARE(c.dataWindow()->windowTitle(), QStringLiteral("CURSOR DATA"));
        QCOMPARE(c.dataWindow()->font().family(), QStringLiteral("Arial"));
        QCOMPARE(c.label("lblTimeCaption"), QStringLiteral("TIME"));
        QCOMPARE(c.label("lblTempCaption"), QStringLiteral("Y VALUE"));

        c.hover(x);
        QCOMPARE(c.label("lblTemp"), temp);
        QCOMPARE(c.label("lblTime"), time);
        QVERIFY(c.surface.marker()->visible());
        QVERIFY(qAbs(c.surface.marker()->point1->coords().x() - x) < 1e-6);

        // The window's close box switches the cursor off as the button would.
        c.dataWindow()->close();
        QCoreApplication::processEvents();
        QCOMPARE(c.button()->text(), QStringLiteral("CURSOR OFF"));
        QCOMPARE(c.button()->styleSheet(), before);
        QVERIFY(!c.surface.marker()->visible());
        QVERIFY(!c.dataWindow()->isVisible());
    }
};
TALAVEX_TEST(TestChartCursorGui)
#include "TestChartCursorGui.moc"
