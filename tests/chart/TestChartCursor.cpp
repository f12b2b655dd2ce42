#include "support/AppRig.h"
#include "support/TestRegistry.h"

#include "chart/ChartCursor.h"
#include "chart/CursorReadout.h"
#include "chart/MarkerDataModel.h"

#include <QTest>

namespace {
using Axis = ChartSurface::Axis;
using Points = QList<QPointF>;

// Puts readings on the reading series, followed by its empty slot.
void putReadings(ChartSurface& chart, const Points& readings)
{
    chart.setPointCount(1, int(readings.size()) + 1);
    for (int i = 0; i < readings.size(); ++i) {
        chart.setX(1, i + 1, readings[i].x());
        chart.setY(1, i + 1, readings[i].y());
    }
    chart.setX(1, int(readings.size()) + 1, chart.emptyPointValue());
    chart.setY(1, int(readings.size()) + 1, chart.emptyPointValue());
}

// Counts the X values read, to tell a search from a walk.
class CountingSurface : public InMemoryChartSurface {
public:
    double x(int series, int point) const override
    {
        ++reads;
        return InMemoryChartSurface::x(series, point);
    }
    mutable int reads = 0;
};

class FakeMarkerWindows : public MarkerDataWindows {
public:
    void showMarkerData() override { ++shown; }
    void unloadMarkerData() override { ++unloaded; }
    int shown = 0;
    int unloaded = 0;
};

struct CursorRig {
    InMemoryChartSurface chart;
    MainWindowModel main;
    MarkerDataModel data;
    FakeMarkerWindows windows;
    ChartCursor cursor { chart, main, data };
    CursorRig()
    {
        cursor.setWindows(&windows);
        // X 0..80 over 800 pixels: a pixel is a tenth of a time unit.
        chart.setAxisMin(Axis::X, 0);
        chart.setAxisMax(Axis::X, 80);
        putReadings(chart, { { 0, 100 }, { 10, 200 } });
    }
};
} // namespace

class TestChartCursor : public QObject {
    Q_OBJECT
private slots:
    void readout_data()
    {
        QTest::addColumn<Points>("readings");
        QTest::addColumn<double>("x");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("hasData");
        const Points two { { 0, 100 }, { 10, 200 } };
        QTest::newRow("between") << two << 2.5 << "125.00" << 1;
        QTest::newRow("on the newest") << two << 10.0 << "200.00" << 1;
        QTest::newRow("on the first") << two << 0.0 << "100.00" << 1;
        QTest::newRow("left of the X minimum") << two << -0.01 << "OFF CHART" << 0;
        QTest::newRow("right of the X maximum") << two << 60.01 << "OFF CHART" << 0;
        QTest::newRow("beyond the newest, on the chart") << two << 10.5 << "NO DATA" << 0;
        QTest::newRow("no readings") << Points {} << 5.0 << "NO DATA" << 0;
        QTest::newRow("before the first reading")
            << Points { { 4, 50 }, { 8, 60 } } << 3.0 << "NO DATA" << 0;
        QTest::newRow("one reading, on it") << Points { { 4, 50 } } << 4.0 << "50.00" << 1;
        QTest::newRow("one reading, beside it") << Points { { 4, 50 } } << 4.5 << "NO DATA" << 0;
        const Points falling { { 0, 90 }, { 2, 80 }, { 4, 40 }, { 6, -20 }, { 8, -30 } };
        QTest::newRow("falling, third interval") << falling << 5.0 << "10.00" << 1;
        QTest::newRow("falling, below zero") << falling << 7.5 << "-27.50" << 1;
        QTest::newRow("falling, on a middle reading") << falling << 4.0 << "40.00" << 1;
        QTest::newRow("rounded to two places") << two << 1.0 / 3 << "103.33" << 1;
    }
    void readout()
    {
        QFETCH(Points, readings);
        QFETCH(double, x);
        QFETCH(QString, text);
        QFETCH(int, hasData);
        InMemoryChartSurface chart; // X 0..60
        putReadings(chart, readings);
        qint16 flag = -7;
        QCOMPARE(CursorReadout(chart, x, flag), text);
        QCOMPARE(int(flag), hasData);
    }

    void readoutSearchesInsteadOfWalking()
    {
        CountingSurface chart;
        Points many;
        for (int i = 0; i < 100000; ++i)
            many << QPointF(i * 0.5, i % 100);
        putReadings(chart, many);
        chart.setAxisMax(Axis::X, 50000);
        chart.reads = 0;
        double x = 40000.25; // between readings 80000 and 80001
        qint16 flag = 0;
        QCOMPARE(CursorReadout(chart, x, flag), QStringLiteral("0.50"));
        QVERIFY2(chart.reads < 50, qPrintable(QString::number(chart.reads)));
    }

    void buttonSwitchesTheCursor()
    {
        CursorRig r;
        r.main.cmdMarkers.setBackColor(0x123456);
        r.cursor.cmdMarkers_Click();
        QCOMPARE(r.main.cmdMarkers.caption(), QStringLiteral("CURSOR ON"));
        QCOMPARE(r.main.cmdMarkers.backColor(), Colors::Yellow);
        QVERIFY(r.chart.markerVisible());
        QCOMPARE(r.windows.shown, 1);
        QCOMPARE(r.data.frmMarkerData.caption(), QStringLiteral("CURSOR DATA"));

        r.cursor.cmdMarkers_Click();
        QCOMPARE(r.main.cmdMarkers.caption(), QStringLiteral("CURSOR OFF"));
        QCOMPARE(r.main.cmdMarkers.backColor(), qint64(0x123456));
        QVERIFY(!r.chart.markerVisible());
        QCOMPARE(r.windows.unloaded, 1);
    }

    void closingTheWindowSwitchesTheCursorOff()
    {
        CursorRig r;
        r.cursor.cmdMarkers_Click();
        r.cursor.frmMarkerData_Unload();
        QCOMPARE(r.main.cmdMarkers.caption(), QStringLiteral("CURSOR OFF"));
        QCOMPARE(r.main.cmdMarkers.backColor(), Colors::Default);
        QVERIFY(!r.chart.markerVisible());
        QCOMPARE(r.windows.unloaded, 1);
        // Closed again while off: nothing switches back on.
        r.cursor.frmMarkerData_Unload();
        QCOMPARE(r.main.cmdMarkers.caption(), QStringLiteral("CURSOR OFF"));
        QCOMPARE(r.windows.shown, 1);
    }

    void mouseMove_data()
    {
        QTest::addColumn<double>("pixel");
        QTest::addColumn<double>("markerX");
        QTest::addColumn<QString>("temp");
        QTest::addColumn<QString>("time");
        QTest::newRow("between") << 25.0 << 2.5 << "125.00"
                                 << "2.50";
        QTest::newRow("on the newest") << 100.0 << 10.0 << "200.00"
                                       << "10.00";
        QTest::newRow("beyond the newest") << 300.0 << 30.0 << "NO DATA"
                                           << "NO DATA";
        QTest::newRow("left of the plot") << -10.0 << -1.0 << "OFF CHART"
                                          << "NO DATA";
    }
    void mouseMove()
    {
        QFETCH(double, pixel);
        QFETCH(double, markerX);
        QFETCH(QString, temp);
        QFETCH(QString, time);
        CursorRig r;
        r.cursor.cmdMarkers_Click();
        r.cursor.TempChart_MouseMove(QPointF(pixel, 300));
        QCOMPARE(r.chart.markerX(), markerX);
        QCOMPARE(r.data.lblTemp.caption(), temp);
        QCOMPARE(r.data.lblTime.caption(), time);
    }

    void mouseMoveWhileOffChangesNothing()
    {
        CursorRig r;
        r.chart.setMarkerX(7);
        r.cursor.TempChart_MouseMove(QPointF(25, 300));
        QCOMPARE(r.chart.markerX(), 7.0);
        QVERIFY(r.data.lblTemp.caption().isEmpty());
        QVERIFY(r.data.lblTime.caption().isEmpty());
    }

    void cursorWiredInTheApplication()
    {
        AppRig rig;
        Application& a = rig.app();
        a.cursor.cmdMarkers_Click();
        QVERIFY(a.cursor.isOn());
        QVERIFY(rig.chart.markerVisible());
    }
};
TALAVEX_TEST(TestChartCursor)
#include "TestChartCursor.moc"
