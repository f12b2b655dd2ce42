#pragma once

#include "base/AppState.h"
#include "base/MainWindowModel.h"
#include "base/Numbers.h"
#include "chart/GraphingFunctions.h"
#include "chart/InMemoryChartSurface.h"

#include <QList>
#include <QPointF>
#include <QStringList>

// The graphing engine on a chart surface of type Surface, started as the main window's load
// sequence starts it: limits 85 and 25, the interval label given, notices of overflow kept.
template <typename Surface = InMemoryChartSurface> struct EngineRig {
    using Axis = ChartSurface::Axis;

    AppState state;
    MainWindowModel window;
    Surface chart;
    GraphingFunctions engine { chart, state, window };
    QStringList notices;

    explicit EngineRig(const QString& interval = QStringLiteral("1"))
    {
        state.SettingsValues.highAlarmLimit.text = QStringLiteral("85");
        state.SettingsValues.lowAlarmLimit.text = QStringLiteral("25");
        state.Instrument.interval = SamplingInterval(interval);
        engine.setOverflowNotice([this](const QString& what) { notices << what; });
        engine.InitializeChart();
        engine.ResetChartSeries();
    }
    void setAxis(Axis axis, double min, double max)
    {
        chart.setAxisMin(axis, min);
        chart.setAxisMax(axis, max);
    }
    void setAxes(double x0, double x1, double y0, double y1)
    {
        setAxis(Axis::X, x0, x1);
        setAxis(Axis::Y, y0, y1);
    }
    // X min, X max, Y min, Y max.
    QList<double> axes() const
    {
        return { chart.axisMin(Axis::X), chart.axisMax(Axis::X), chart.axisMin(Axis::Y),
            chart.axisMax(Axis::Y) };
    }
    // Points put straight on the readings series, as a loaded plot puts them.
    void plot(const QList<QPointF>& points)
    {
        for (int i = 0; i < points.size(); ++i) {
            chart.setX(1, i + 1, points[i].x());
            chart.setY(1, i + 1, points[i].y());
            chart.setPointCount(1, i + 2);
        }
    }
    // Readings through the receive path's door: the interval taken from the instrument first.
    void feed(qint16 reading)
    {
        state.TimeInterval = float(state.Instrument.interval.seconds());
        engine.AddReadingToChart(reading);
    }
    void feed(const QList<int>& readings)
    {
        for (int r : readings)
            feed(qint16(r));
    }
};
