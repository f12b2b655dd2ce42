#pragma once

#include "chart/ChartSurface.h"

#include <QElapsedTimer>
#include <QObject>
#include <QRect>
#include <QSharedPointer>
#include <QTimer>
#include <array>
#include <memory>
#include <optional>
#include <vector>

class PatternAxisTicker;
class PlotSeries;
class QCPAxis;
class QCPGraph;
class QCPItemStraightLine;
class QCustomPlot;

// The chart engine's surface on a QCustomPlot: series are QCPGraphs (series 1 the readings,
// 2 and 3 the limit lines), the axes are the plot's bottom and left axes, the marker is a
// vertical line.
//
// Redrawing: every change asks for a queued replot, but a batch holds the request until its
// outermost bracket closes, and a gate spaces the replots: a change of the view (axes, titles,
// colours, the cursor's marker) is drawn within FrameMs of the last replot, so the mouse feels
// direct, while new points alone wait until LiveMs have passed since it. A reading after a quiet
// spell is drawn at once; a stream of them is drawn LiveMs apart however fast it comes, which
// keeps a fast instrument from spending the processor on pictures no eye can follow. Changes
// made meanwhile are drawn by the next replot.
//
// When the only change since the last drawing is readings added at the end of series 1, and the
// plot is a ChartPlot that can draw in part, only the area around the new stretch of line is
// drawn again; a live strip chart costs a small fraction of full replots that way.

//
// The axis limits are kept as set (a minimum above the maximum included) and shown as the
// ordered range; a zero-width range is kept but not shown. The X axis time format is held as a
// property only: the labels are numbers written with the label format.
//
// The destructor leaves the plot alone, so the plot may be destroyed first at shutdown; no other
// call is allowed once it is gone.
class QCustomPlotSurface : public QObject, public ChartSurface {
    Q_OBJECT
public:
    static constexpr int FrameMs = 16;
    static constexpr int LiveMs = 250;

    // Three empty series, titles "SECONDS" and "TEMPERATURE", time format "%H:%M:%S",
    // empty-point value 999999999, marker hidden; the plot's axis ranges stand.
    explicit QCustomPlotSurface(QCustomPlot& plot, QObject* parent = nullptr);
    ~QCustomPlotSurface() override;

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
    // The axis lines colour their ticks, labels and title too, so a dark scheme stays readable.
    qint64 color(Color which) const override;
    void setColor(Color which, qint64 rgb) override;

    QCustomPlot& plot() const { return plot_; }
    // The graph of a series (1-based), null when there is no such series.
    QCPGraph* graph(int series) const;
    QCPItemStraightLine* marker() const { return marker_; }
    // True while a change waits for its batch to close or for the frame gate.
    bool redrawPending() const { return pending_; }
    // Milliseconds until the waiting change is drawn: 0 when its replot is asked for at the
    // next pass of the event loop, -1 when nothing waits.
    int msUntilRedraw() const;
    // True while the series keeps its fast, in-order layout.
    bool seriesInOrder(int series) const;
    // The area a redraw of the points added to series 1 since it was last drawn would cover,
    // empty when no point was added or none is in view.
    QRect addedPointsArea() const;

private:
    struct AxisState {
        QCPAxis* axis = nullptr;
        QSharedPointer<PatternAxisTicker> ticker;
        double min = 0.0;
        double max = 0.0;
    };

    PlotSeries* find(int series) const;
    AxisState& state(Axis axis) { return axis == Axis::X ? x_ : y_; }
    const AxisState& state(Axis axis) const { return axis == Axis::X ? x_ : y_; }
    void setUpAxis(AxisState& state, QCPAxis* axis);
    void showRange(AxisState& state);
    enum class Change { Points, View };
    void changed(Change change = Change::View);
    void replotWhenDue(bool drawNow = false);
    enum class Drawing { Done, Nothing, NeedsReplot };
    Drawing drawAddedPoints();
    void beforeReplot();
    void afterReplot();

    QCustomPlot& plot_;
    std::vector<std::unique_ptr<PlotSeries>> series_;
    AxisState x_;
    AxisState y_;
    QString timeFormat_;
    double emptyValue_ = 999999999.0;
    QCPItemStraightLine* marker_ = nullptr;
    QTimer gate_;
    QElapsedTimer sinceReplot_;
    int batchDepth_ = 0;
    bool pending_ = false;
    bool viewPending_ = false;
    bool showingRange_ = false;
    // The view as the last replot drew it.
    struct DrawnView {
        std::array<double, 4> ranges;
        QRect axisRect;
        bool operator==(const DrawnView& o) const
        {
            return ranges == o.ranges && axisRect == o.axisRect;
        }
    };
    DrawnView currentView() const;
    std::optional<DrawnView> drawnView_;
    std::array<qint64, ColorCount> colors_ {};
};
