#include "support/PlotWindowApp.h"
#include "support/TestRegistry.h"

#include "ui/ChartMouse.h"
#include "ui/MarkerDataWindow.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace {
using Axis = ChartSurface::Axis;

// Readings (0, 100) and (10, 200) on an X axis from 0 to 60 seconds.
struct CursorApp : PlotWindowApp {
    CursorApp()
    {
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
    MarkerDataWindow* dataWindow() { return window.findChild<MarkerDataWindow*>(); }
    CursorMouse* mouse() { return window.findChild<CursorMouse*>(); }
    QLabel* labelWidget(const char* name)
    {
        QWidget* w = dataWindow();
        return w ? w->findChild<QLabel*>(QString::fromLatin1(name)) : nullptr;
    }
    QString label(const char* name)
    {
        QLabel* l = labelWidget(name);
        return l ? l->text() : QString();
    }
    bool measureShown()
    {
        for (const char* name : { "lblPinned", "lblDeltaTime", "lblDeltaTemp", "lblRate",
                 "lblDeltaTimeCaption", "lblDeltaTempCaption", "lblRateCaption" }) {
            if (!labelWidget(name) || !labelWidget(name)->isVisible())
                return false;
        }
        return true;
    }
    void cursorOn()
    {
        QTest::mouseClick(button(), Qt::LeftButton);
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
        c.cursorOn();
        QCOMPARE(c.button()->text(), QStringLiteral("CURSOR ON"));
        QVERIFY(c.button()->styleSheet().contains(QStringLiteral("#ffff00")));
        QVERIFY(c.dataWindow() && c.dataWindow()->isVisible());
        QCOMPARE(c.dataWindow()->font().family(), QStringLiteral("Arial"));
        QVERIFY(!c.measureShown());

        c.hover(c.atX(x));
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

    // A click pins the reading under it; the window then measures from it to the cursor, and
    // the chart shows the pin and the span to the cursor's reading.
    void clickPinsAndMeasures()
    {
        CursorApp c;
        c.cursorOn();
        const int plainHeight = c.dataWindow()->height();
        c.click(c.atX(2.5));
        QVERIFY(c.app.cursor.pinned().has_value());
        QTRY_VERIFY(c.measureShown());
        QCOMPARE(c.label("lblPinned"), QStringLiteral("FROM 2.50 AT 125.00"));
        QVERIFY(c.dataWindow()->height() > plainHeight);
        QVERIFY(c.mouse()->pin()->visible());
        QVERIFY(qAbs(c.mouse()->pin()->position->coords().y() - 125.0) < 1e-6);

        c.hover(c.atX(7.5));
        QCOMPARE(c.label("lblTemp"), QStringLiteral("175.00"));
        QCOMPARE(c.label("lblDeltaTime"), QStringLiteral("5.00"));
        QCOMPARE(c.label("lblDeltaTemp"), QStringLiteral("50.00"));
        // 50 degrees in 5 seconds.
        QCOMPARE(c.label("lblRate"), QStringLiteral("600.00"));
        QVERIFY(c.mouse()->span()->visible());
        QVERIFY(qAbs(c.mouse()->span()->end->coords().y() - 175.0) < 1e-6);

        // Beyond the newest reading the span goes; the pin stays.
        c.hover(c.atX(30));
        QCOMPARE(c.label("lblDeltaTemp"), QStringLiteral("NO DATA"));
        QVERIFY(!c.mouse()->span()->visible());
        QVERIFY(c.mouse()->pin()->visible());

        // A second click unpins and the window shrinks back.
        c.click(c.atX(5));
        QVERIFY(!c.app.cursor.pinned());
        QTRY_VERIFY(!c.labelWidget("lblRate")->isVisible());
        QTRY_COMPARE(c.dataWindow()->height(), plainHeight);
        QVERIFY(!c.mouse()->pin()->visible());
    }

    void dragOrClickBesideTheDataPinsNothing()
    {
        CursorApp c;
        c.cursorOn();
        c.click(c.atX(30)); // no reading there
        QVERIFY(!c.app.cursor.pinned());
        c.drag({ 0.02, 0.5 }, { 0.1, 0.6 });
        QVERIFY(!c.app.cursor.pinned());
        QVERIFY(!c.mouse()->pin()->visible());
    }

    void escapeInTheReadoutUnpins()
    {
        CursorApp c;
        c.cursorOn();
        c.click(c.atX(2.5));
        QVERIFY(c.app.cursor.pinned());
        QTest::keyClick(c.dataWindow(), Qt::Key_Escape);
        QVERIFY(!c.app.cursor.pinned());
        QVERIFY(!c.mouse()->pin()->visible());
        // The cursor itself stays on.
        QCOMPARE(c.button()->text(), QStringLiteral("CURSOR ON"));
    }

    void escapeOnTheMainWindowUnpins()
    {
        CursorApp c;
        c.cursorOn();
        c.click(c.atX(2.5));
        QVERIFY(c.app.cursor.pinned());
        c.window.activateWindow();
        if (!QTest::qWaitForWindowActive(&c.window))
            QSKIP("this platform does not activate windows");
        QTest::keyClick(&c.window, Qt::Key_Escape);
        QVERIFY(!c.app.cursor.pinned());
    }

    void cursorOffUnpins()
    {
        CursorApp c;
        c.cursorOn();
        c.click(c.atX(2.5));
        QVERIFY(c.mouse()->pin()->visible());
        QTest::mouseClick(c.button(), Qt::LeftButton);
        QVERIFY(!c.app.cursor.pinned());
        QVERIFY(!c.mouse()->pin()->visible());
        // On again: nothing pinned, the measurement hidden.
        c.cursorOn();
        QVERIFY(!c.measureShown());
    }
};
TALAVEX_TEST(TestChartCursorGui)
#include "TestChartCursorGui.moc"
