#include "support/AppRig.h"
#include "support/TestRegistry.h"

#include "Rows.h"

#include "chart/ChartCursor.h"
#include "chart/MarkerDataModel.h"
#include "chart/TwoPointMeasure.h"

#include <QTest>

namespace {
using Axis = ChartSurface::Axis;

// Puts readings given as X Y pairs on the reading series, followed by its empty slot.
void putReadings(ChartSurface& chart, const QList<double>& xy)
{
    const int n = int(xy.size()) / 2;
    chart.setPointCount(1, n + 1);
    for (int i = 0; i < n; ++i) {
        chart.setX(1, i + 1, xy[2 * i]);
        chart.setY(1, i + 1, xy[2 * i + 1]);
    }
    chart.setX(1, n + 1, chart.emptyPointValue());
}

QString pt(const QPointF& p) { return QStringLiteral("%1,%2").arg(p.x()).arg(p.y()); }

// The cursor over readings at 1, 11, 21 and 31 on X 0..80, where a pixel is a tenth of a unit;
// the CURSOR DATA window and the drawing of the pinned point recorded.
struct CursorRig : MarkerDataWindows, PinnedPointView {
    InMemoryChartSurface chart;
    MainWindowModel main;
    MarkerDataModel data;
    ChartCursor cursor { chart, main, data };
    int shown = 0, unloaded = 0, hidden = 0;
    std::optional<QPointF> pin, current;

    CursorRig()
    {
        cursor.setWindows(this);
        cursor.setPinnedPointView(this);
        main.cmdMarkers.setBackColor(0x123456);
        chart.setAxisMax(Axis::X, 80);
        putReadings(chart, { 1, 100, 11, 200, 21, 150, 31, -50 });
    }
    void showMarkerData() override { ++shown; }
    void unloadMarkerData() override { ++unloaded; }
    void showPinnedPoint(const QPointF& p, const std::optional<QPointF>& c) override
    {
        pin = p;
        current = c;
    }
    void hidePinnedPoint() override
    {
        pin.reset();
        ++hidden;
    }
    // The button and its colour; windows shown, closed and pins hidden; the marker; the read-out;
    // the measurement while shown; the point pinned and drawn.
    QString state() const
    {
        QStringList s { main.cmdMarkers.caption(), QString::number(main.cmdMarkers.backColor(), 16),
            QStringLiteral("%1/%2/%3").arg(shown).arg(unloaded).arg(hidden),
            chart.markerVisible() ? QStringLiteral("marker %1").arg(chart.markerX()) : "-",
            data.lblTemp.caption(), data.lblTime.caption() };
        if (data.measureShown())
            s << data.lblPinned.caption() << data.lblDeltaTime.caption()
              << data.lblDeltaTemp.caption() << data.lblRate.caption();
        if (cursor.pinned())
            s << QStringLiteral("pinned ") + pt(*cursor.pinned());
        if (pin)
            s << QStringLiteral("pin ") + pt(*pin) + (current ? " to " + pt(*current) : "");
        return s.join(QLatin1Char('|'));
    }
};
} // namespace

class TestChartCursor : public QObject {
    Q_OBJECT
private slots:
    // Steps: "b" the CURSOR button, "close" the window's close box, "esc", "m25" the mouse at
    // pixel 25, "c25" a click there | the state after them.
    void cursorScript_data()
    {
        rows::add({ "on | b | CURSOR ON|ffff00|1/0/0|marker 0||",
            "off | b b | CURSOR OFF|123456|1/1/0|-||",
            "closed twice | b close close | CURSOR OFF|123456|1/1/0|-||",
            "move while off | m35 | CURSOR OFF|123456|0/0/0|-||",
            "click while off | c35 | CURSOR OFF|123456|0/0/0|-||",
            "before the first reading | b m5 | CURSOR ON|ffff00|1/0/0|marker 0.5|NO DATA|NO DATA",
            "between | b m35 | CURSOR ON|ffff00|1/0/0|marker 3.5|125.00|3.50",
            "on a reading | b m110 | CURSOR ON|ffff00|1/0/0|marker 11|200.00|11.00",
            "falling | b m160 | CURSOR ON|ffff00|1/0/0|marker 16|175.00|16.00",
            "third interval | b m260 | CURSOR ON|ffff00|1/0/0|marker 26|50.00|26.00",
            "rounded | b m43.33333 | CURSOR ON|ffff00|1/0/0|marker 4.33333|133.33|4.33",
            "on the newest | b m310 | CURSOR ON|ffff00|1/0/0|marker 31|-50.00|31.00",
            "beyond the newest | b m315 | CURSOR ON|ffff00|1/0/0|marker 31.5|NO DATA|NO DATA",
            "at the X maximum | b m800 | CURSOR ON|ffff00|1/0/0|marker 80|NO DATA|NO DATA",
            "right of the plot | b m801 | CURSOR ON|ffff00|1/0/0|marker 80.1|OFF CHART|NO DATA",
            "left of the plot | b m-10 | CURSOR ON|ffff00|1/0/0|marker -1|OFF CHART|NO DATA",
            "pinned | b c35 | CURSOR ON|ffff00|1/0/0|marker 3.5|125.00|3.50|FROM 3.50 AT 125.00|"
            "0.00|0.00|SAME TIME|pinned 3.5,125|pin 3.5,125 to 3.5,125",
            "measured | b c35 m85 | CURSOR ON|ffff00|1/0/0|marker 8.5|175.00|8.50|FROM 3.50 AT "
            "125.00|5.00|50.00|600.00|pinned 3.5,125|pin 3.5,125 to 8.5,175",
            "measured beyond | b c35 m315 | CURSOR ON|ffff00|1/0/0|marker 31.5|NO DATA|NO "
            "DATA|FROM "
            "3.50 AT 125.00|NO DATA|NO DATA|NO DATA|pinned 3.5,125|pin 3.5,125",
            "measured off | b c35 m-10 | CURSOR ON|ffff00|1/0/0|marker -1|OFF CHART|NO DATA|FROM "
            "3.50 AT 125.00|NO DATA|OFF CHART|NO DATA|pinned 3.5,125|pin 3.5,125",
            "click beyond | b c315 | CURSOR ON|ffff00|1/0/0|marker 31.5|NO DATA|NO DATA",
            "click off | b c-10 | CURSOR ON|ffff00|1/0/0|marker -1|OFF CHART|NO DATA",
            "second click unpins | b c35 c50 | CURSOR ON|ffff00|1/0/1|marker 3.5|125.00|3.50",
            "escape unpins, once | b c35 esc esc | CURSOR ON|ffff00|1/0/1|marker 3.5|125.00|3.50",
            "then the read-out | b c35 c35 m110 | CURSOR ON|ffff00|1/0/1|marker 11|200.00|11.00",
            "off unpins | b c35 b | CURSOR OFF|123456|1/1/1|-|125.00|3.50",
            "closing unpins | b c35 close | CURSOR OFF|123456|1/1/1|-|125.00|3.50",
            "on again | b c35 b b | CURSOR ON|ffff00|2/1/1|marker 3.5|125.00|3.50" });
    }
    void cursorScript()
    {
        const QStringList f = rows::fields();
        CursorRig r;
        for (const QString& step : f[0].split(QLatin1Char(' '))) {
            const QPointF pixel(step.mid(1).toDouble(), 300);
            if (step == QLatin1String("b"))
                r.cursor.cmdMarkers_Click();
            else if (step == QLatin1String("close"))
                r.cursor.frmMarkerData_Unload();
            else if (step == QLatin1String("esc"))
                r.cursor.Unpin();
            else if (step.startsWith(QLatin1Char('m')))
                r.cursor.TempChart_MouseMove(pixel);
            else
                r.cursor.TempChart_Click(pixel);
        }
        QCOMPARE(r.state(), f.mid(1).join(QLatin1String(" | ")));
        QCOMPARE(r.cursor.isOn(), r.chart.markerVisible());
    }

    // Readings as X Y pairs on X 0..60 | the cursor's X | the read-out.
    void readout_data()
    {
        rows::add({ "no readings |  | 5 | NO DATA", "one reading, on it | 4 50 | 4 | 50.00",
            "one reading, beside it | 4 50 | 4.5 | NO DATA" });
    }
    void readout()
    {
        const QStringList f = rows::fields();
        InMemoryChartSurface chart;
        putReadings(chart, rows::numbers(f[0]));
        const CursorText readout = CursorReadout(chart, f[1].toDouble());
        QCOMPARE(readout.text, f[2]);
        QCOMPARE(readout.hasData, f[2] != QLatin1String("NO DATA"));
    }

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

    // A pinned point belongs to the readings it was pinned on: CLEAR CHART lets go of it,
    // INITIALIZE CHART, which keeps the readings, keeps it too.
    void replacedReadingsUnpin_data() { rows::add({ "CLEAR CHART | 0", "INITIALIZE CHART | 1" }); }
    void replacedReadingsUnpin()
    {
        const bool initialize = rows::fields()[0] == QLatin1String("1");
        AppRig rig;
        Application& a = rig.app();
        a.state.Instrument.interval = SamplingInterval(QStringLiteral("1"));
        a.state.TimeInterval = 1.0f;
        for (int i = 0; i < 20; ++i)
            a.chart.AddReadingToChart(qint16(50 + i));
        a.cursor.cmdMarkers_Click();
        a.cursor.TempChart_Click(QPointF(5.0 / 60 * InMemoryChartSurface::PlotWidth, 10));
        QVERIFY(a.cursor.pinned());
        initialize ? a.controller.mnuIniChart_Click() : a.controller.mnuClearChart_Click();
        QCOMPARE(bool(a.cursor.pinned()), initialize);
        QCOMPARE(a.markerDataModel.measureShown(), initialize);
    }
};
TALAVEX_TEST(TestChartCursor)
#include "TestChartCursor.moc"
