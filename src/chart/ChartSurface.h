#pragma once

#include <QPointF>
#include <QString>

// The chart operations the engine needs, whatever draws the chart. Series and points are
// numbered from 1. A point whose X or Y equals the empty-point value is not drawn.
class ChartSurface {
public:
    enum class Axis { X, Y };

    virtual ~ChartSurface() = default;

    virtual int seriesCount() const = 0;
    virtual void setSeriesCount(int count) = 0;
    virtual int pointCount(int series) const = 0;
    // Growing adds points at the empty-point value; shrinking drops the last points.
    virtual void setPointCount(int series, int count) = 0;
    virtual double x(int series, int point) const = 0;
    virtual double y(int series, int point) const = 0;
    virtual void setX(int series, int point, double value) = 0;
    virtual void setY(int series, int point, double value) = 0;
    virtual double emptyPointValue() const = 0;
    virtual void setEmptyPointValue(double value) = 0;
    virtual bool seriesVisible(int series) const = 0;
    virtual void setSeriesVisible(int series, bool visible) = 0;

    virtual double axisMin(Axis axis) const = 0;
    virtual double axisMax(Axis axis) const = 0;
    virtual void setAxisMin(Axis axis, double value) = 0;
    virtual void setAxisMax(Axis axis, double value) = 0;
    virtual QString axisTitle(Axis axis) const = 0;
    virtual void setAxisTitle(Axis axis, const QString& title) = 0;
    virtual QString axisLabelFormat(Axis axis) const = 0;
    virtual void setAxisLabelFormat(Axis axis, const QString& format) = 0;
    virtual QString timeFormat() const = 0;
    virtual void setTimeFormat(const QString& format) = 0;

    // Brackets a group of changes so that the chart redraws once for the whole group;
    // brackets nest, and the redraw happens when the outermost one closes.
    virtual void beginBatch() = 0;
    virtual void endBatch() = 0;
    virtual void redraw() = 0;
    virtual void copyToClipboard() = 0;

    // The cursor's marker line on the X axis.
    virtual void setMarkerVisible(bool visible) = 0;
    virtual void setMarkerX(double x) = 0;
    // Data coordinates of a pixel position in the chart widget.
    virtual QPointF pixelToData(const QPointF& pixel) const = 0;

    // The colour properties of the appearance schemes, as 0xRRGGBB.
    enum class Color {
        ChartBackground,
        PlotBackground,
        XAxisLine,
        YAxisLine,
        XGridLine,
        YGridLine,
        ReadingLine,
    };
    static constexpr int ColorCount = 7;
    virtual qint64 color(Color which) const = 0;
    virtual void setColor(Color which, qint64 rgb) = 0;
};

// Suspends redrawing for the lifetime of the guard.
class ChartBatch {
public:
    explicit ChartBatch(ChartSurface& surface)
        : surface_(surface)
    {
        surface_.beginBatch();
    }
    ~ChartBatch() { surface_.endBatch(); }
    ChartBatch(const ChartBatch&) = delete;
    ChartBatch& operator=(const ChartBatch&) = delete;

private:
    ChartSurface& surface_;
};
