#pragma once

#include "base/AppState.h"
#include "base/MainWindowModel.h"
#include "base/Numbers.h"
#include "chart/GraphingFunctions.h"
#include "chart/InMemoryChartSurface.h"

#include <QList>
#include <QPointF>
#include <QStringList>

// The graphing engine on the in-memory chart, started as the main window's load sequence starts
// it: limits 85 and 25, the interval label given, notices of overflow kept.
struct EngineRig {
    using Axis = ChartSurface::Axis;

    AppState state;
    MainWindowModel window;
    InMemoryChartSurface chart;
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
    void setAxes(double x0, double x1, double y0, double y1)
    {
        chart.setAxisMin(Axis::X, x0);
        chart.setAxisMax(Axis::X, x1);
        chart.setAxisMin(Axis::Y, y0);
        chart.setAxisMax(Axis::Y, y1);
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
};
