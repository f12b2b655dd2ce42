#include "support/AppRig.h"
#include "support/SettingsLines.h"
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

// Records what the chart would draw of the pinned point.
class FakePinView : public PinnedPointView {
public:
    void showPinnedPoint(const QPointF& p, const std::optional<QPointF>& c) override
    {
        shown = true;
        pinned = p;
        current = c;
    }
    void hidePinnedPoint() override
    {
        shown = false;
        ++hidden;
    }
    bool shown = false;
    QPointF pinned;
    std::optional<QPointF> current;
    int hidden = 0;
};

struct CursorRig {
    InMemoryChartSurface chart;
    MainWindowModel main;
    MarkerDataModel data;
    FakeMarkerWindows windows;
    FakePinView pin;
    ChartCursor cursor { chart, main, data };
    CursorRig()
    {
        cursor.setWindows(&windows);
        cursor.setPinnedPointView(&pin);
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
        const CursorText readout = CursorReadout(chart, x);
        QCOMPARE(readout.text, text);
        QCOMPARE(int(readout.hasData), hasData);
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
        // Between readings 80000 and 80001.
        QCOMPARE(CursorReadout(chart, 40000.25).text, QStringLiteral("0.50"));
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

    // Pixels are tenths of a second here: pixel 25 is 2.5 s, reading 125.
    void clickPinsTheReadingUnderIt()
    {
        CursorRig r;
        r.cursor.cmdMarkers_Click();
        QVERIFY(!r.data.measureShown());
        r.cursor.TempChart_Click(QPointF(25, 300));
        QVERIFY(r.cursor.pinned());
        QCOMPARE(*r.cursor.pinned(), QPointF(2.5, 125));
        QVERIFY(r.data.measureShown());
        QVERIFY(r.data.lblRate.visible() && r.data.lblPinned.visible());
        QCOMPARE(r.data.lblPinned.caption(), QStringLiteral("FROM 2.50 AT 125.00"));
        QCOMPARE(r.data.lblRate.caption(), QStringLiteral("SAME TIME"));
        QVERIFY(r.pin.shown);
        QCOMPARE(r.pin.pinned, QPointF(2.5, 125));

        // The plain read-out keeps its own labels.
        r.cursor.TempChart_MouseMove(QPointF(75, 300));
        QCOMPARE(r.data.lblTemp.caption(), QStringLiteral("175.00"));
        QCOMPARE(r.data.lblTime.caption(), QStringLiteral("7.50"));
        QCOMPARE(r.data.lblDeltaTime.caption(), QStringLiteral("5.00"));
        QCOMPARE(r.data.lblDeltaTemp.caption(), QStringLiteral("50.00"));
        QCOMPARE(r.data.lblRate.caption(), QStringLiteral("600.00"));
        QVERIFY(r.pin.current);
        QCOMPARE(*r.pin.current, QPointF(7.5, 175));
    }

    // The unit chosen on the panel, from the plotted readings to the read-out and the settings
    // file: readings 120 s apart that rise 50 degrees rise 25 a minute in every unit.
    void measureIsRightInEveryUnit_data()
    {
        QTest::addColumn<int>("unit");
        QTest::addColumn<QString>("deltaTime");
        QTest::newRow("SECONDS") << 0 << "60.00";
        QTest::newRow("MINUTES") << 1 << "1.00";
        QTest::newRow("HOURS") << 2 << "0.02";
        QTest::newRow("DAYS") << 3 << "0.00";
    }
    void measureIsRightInEveryUnit()
    {
        QFETCH(int, unit);
        QFETCH(QString, deltaTime);
        AppRig rig;
        Application& a = rig.app();
        a.graphSettings.Form_Load();
        a.graphSettings.comTimeUnits_Click(unit);
        rig.startSensing();
        QVERIFY(!a.graphSettingsModel.comTimeUnits.enabled());
        rig.feed(AppRig::parameterBlock("  DEG F", "120", "72") + "  100\x07  150\x07");
        a.acquisition.mnuStop_Click();
        QVERIFY(a.graphSettingsModel.comTimeUnits.enabled());
        // All of the run in view, pinned a quarter of the way from 100 to 150 (the parameter
        // block ends in a reading of its own), the cursor at three quarters.
        a.chartCommands.mnuShowAllPts_Click();
        auto at = [&](double share) {
            const double x = rig.chart.x(1, 2) + share * (rig.chart.x(1, 3) - rig.chart.x(1, 2));
            return QPointF(x / rig.chart.axisMax(Axis::X) * InMemoryChartSurface::PlotWidth, 10);
        };
        a.cursor.cmdMarkers_Click();
        a.cursor.TempChart_Click(at(0.25));
        a.cursor.TempChart_MouseMove(at(0.75));
        QCOMPARE(a.markerDataModel.lblDeltaTime.caption(), deltaTime);
        QCOMPARE(a.markerDataModel.lblRate.caption(), QStringLiteral("25.00"));
        a.controller.Shutdown();
        QCOMPARE(
            settingslines::read(rig.dir.filePath("Settings.dat")).value(16), QString::number(unit));
    }

    void mouseBesideTheDataWhilePinned_data()
    {
        QTest::addColumn<double>("pixel");
        QTest::addColumn<QString>("deltaTemp");
        QTest::addColumn<QString>("others");
        QTest::newRow("beyond the newest") << 300.0 << "NO DATA"
                                           << "NO DATA";
        QTest::newRow("left of the plot") << -10.0 << "OFF CHART"
                                          << "NO DATA";
    }
    void mouseBesideTheDataWhilePinned()
    {
        QFETCH(double, pixel);
        QFETCH(QString, deltaTemp);
        QFETCH(QString, others);
        CursorRig r;
        r.cursor.cmdMarkers_Click();
        r.cursor.TempChart_Click(QPointF(25, 300));
        r.cursor.TempChart_MouseMove(QPointF(pixel, 300));
        QCOMPARE(r.data.lblDeltaTemp.caption(), deltaTemp);
        QCOMPARE(r.data.lblDeltaTime.caption(), others);
        QCOMPARE(r.data.lblRate.caption(), others);
        QVERIFY(r.pin.shown);
        QVERIFY(!r.pin.current);
        QVERIFY(r.cursor.pinned());
    }

    void clickBesideTheDataPinsNothing_data()
    {
        QTest::addColumn<double>("pixel");
        QTest::newRow("beyond the newest") << 300.0;
        QTest::newRow("left of the plot") << -10.0;
    }
    void clickBesideTheDataPinsNothing()
    {
        QFETCH(double, pixel);
        CursorRig r;
        r.cursor.cmdMarkers_Click();
        r.cursor.TempChart_Click(QPointF(pixel, 300));
        QVERIFY(!r.cursor.pinned());
        QVERIFY(!r.data.measureShown());
        QVERIFY(!r.pin.shown);
    }

    void clickWhileOffPinsNothing()
    {
        CursorRig r;
        r.cursor.TempChart_Click(QPointF(25, 300));
        QVERIFY(!r.cursor.pinned());
        QVERIFY(!r.pin.shown);
    }

    void unpinning_data()
    {
        QTest::addColumn<int>("how");
        QTest::newRow("a second click") << 0;
        QTest::newRow("escape") << 1;
        QTest::newRow("cursor off") << 2;
        QTest::newRow("read-out window closed") << 3;
    }
    void unpinning()
    {
        QFETCH(int, how);
        CursorRig r;
        r.cursor.cmdMarkers_Click();
        r.cursor.TempChart_Click(QPointF(25, 300));
        QVERIFY(r.cursor.pinned());
        switch (how) {
        case 0:
            r.cursor.TempChart_Click(QPointF(50, 300));
            break;
        case 1:
            r.cursor.Unpin();
            break;
        case 2:
            r.cursor.cmdMarkers_Click();
            break;
        default:
            r.cursor.frmMarkerData_Unload();
        }
        QVERIFY(!r.cursor.pinned());
        QVERIFY(!r.data.measureShown());
        QVERIFY(!r.pin.shown);
        QCOMPARE(r.pin.hidden, 1);
        // Unpinning again changes nothing.
        r.cursor.Unpin();
        QCOMPARE(r.pin.hidden, 1);
    }

    void cursorWiredInTheApplication()
    {
        AppRig rig;
        Application& a = rig.app();
        a.cursor.cmdMarkers_Click();
        QVERIFY(a.cursor.isOn());
        QVERIFY(rig.chart.markerVisible());
    }

    // A pinned point belongs to the readings it was pinned on: clearing the chart lets go of
    // it, while INITIALIZE CHART, which keeps the readings, keeps it too.
    void replacedReadingsUnpin_data()
    {
        QTest::addColumn<bool>("initialize");
        QTest::newRow("CLEAR CHART") << false;
        QTest::newRow("INITIALIZE CHART") << true;
    }
    void replacedReadingsUnpin()
    {
        QFETCH(bool, initialize);
        AppRig rig;
        Application& a = rig.app();
        a.state.Instrument.interval = SamplingInterval(QStringLiteral("1"));
        a.chart.InitializeChart();
        a.chart.ResetChartSeries();
        a.state.TimeInterval = 1.0f;
        for (int i = 0; i < 20; ++i) {
            qint16 reading = qint16(50 + i);
            a.chart.AddReadingToChart(reading);
        }
        a.cursor.cmdMarkers_Click();
        const double x0 = rig.chart.axisMin(Axis::X);
        const double x1 = rig.chart.axisMax(Axis::X);
        a.cursor.TempChart_Click(
            QPointF((5.0 - x0) / (x1 - x0) * InMemoryChartSurface::PlotWidth, 10));
        QVERIFY(a.cursor.pinned());
        initialize ? a.controller.mnuIniChart_Click() : a.controller.mnuClearChart_Click();
        QCOMPARE(bool(a.cursor.pinned()), initialize);
        QCOMPARE(a.markerDataModel.measureShown(), initialize);
    }
};
TALAVEX_TEST(TestChartCursor)
#include "TestChartCursor.moc"
