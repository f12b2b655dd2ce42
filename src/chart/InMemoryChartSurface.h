#pragma once

#include "ChartSurface.h"

#include <array>
#include <vector>

// A chart that only remembers: the series as plain vectors, the axes as numbers, and counters
// for redraws and clipboard copies. Tests and benchmarks run the engine on it.
//
// Redraws are counted as a real chart would make them: one per change made outside a batch,
// one per outermost batch that changed something, and one per explicit redraw().
// pixelToData maps a nominal 800 x 600 plot area linearly onto the axis ranges, Y pointing up.
class InMemoryChartSurface : public ChartSurface {
public:
    static constexpr double PlotWidth = 800.0;
    static constexpr double PlotHeight = 600.0;

    // Three empty series, X 0..60, Y 0..100, empty-point value 999999999.
    InMemoryChartSurface();

    int seriesCount() const override;
    void setSeriesCount(int count) override;
    int pointCount(int series) const override;
    void setPointCount(int series, int count) override;
    double x(int series, int point) const override;
    double y(int series, int point) const override;
    void setX(int series, int point, double value) override;
    void setY(int series, int point, double value) override;
    double emptyPointValue() const override;
    void setEmptyPointValue(double value) override;
    bool seriesVisible(int series) const override;
    void setSeriesVisible(int series, bool visible) override;

    double axisMin(Axis axis) const override;
    double axisMax(Axis axis) const override;
    void setAxisMin(Axis axis, double value) override;
    void setAxisMax(Axis axis, double value) override;
    QString axisTitle(Axis axis) const override;
    void setAxisTitle(Axis axis, const QString& title) override;
    QString axisLabelFormat(Axis axis) const override;
    void setAxisLabelFormat(Axis axis, const QString& format) override;
    QString timeFormat() const override;
    void setTimeFormat(const QString& format) override;

    void beginBatch() override;
    void endBatch() override;
    void redraw() override;
    void copyToClipboard() override;

    void setMarkerVisible(bool visible) override;
    void setMarkerX(double x) override;
    QPointF pixelToData(const QPointF& pixel) const override;
    qint64 color(Color which) const override;
    void setColor(Color which, qint64 rgb) override;

    // What a test looks at.
    int batchDepth() const { return batchDepth_; }
    int redrawCount() const { return redrawCount_; }
    int clipboardCopies() const { return clipboardCopies_; }
    bool markerVisible() const { return markerVisible_; }
    double markerX() const { return markerX_; }
    // Every point of a series that would be drawn, in point order.
    std::vector<QPointF> drawnPoints(int series) const;

private:
    struct Series {
        std::vector<double> x;
        std::vector<double> y;
        bool visible = true;
    };
    struct AxisState {
        double min = 0.0;
        double max = 0.0;
        QString title;
        QString labelFormat;
    };

    const Series* find(int series) const;
    Series* find(int series);
    AxisState& axis(Axis which) { return which == Axis::X ? x_ : y_; }
    const AxisState& axis(Axis which) const { return which == Axis::X ? x_ : y_; }
    void changed();

    std::vector<Series> series_;
    AxisState x_;
    AxisState y_;
    QString timeFormat_;
    double emptyValue_ = 999999999.0;
    int batchDepth_ = 0;
    bool batchChanged_ = false;
    int redrawCount_ = 0;
    int clipboardCopies_ = 0;
    bool markerVisible_ = false;
    double markerX_ = 0.0;
    std::array<qint64, ColorCount> colors_ {};
};
