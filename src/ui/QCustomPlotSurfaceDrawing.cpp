// When and how the chart is drawn: the batch bracket, the gate that spaces replots, and drawing
// just the area of readings added at the end of the line.
#include "ChartPlot.h"
#include "PlotSeries.h"
#include "QCustomPlotSurface.h"

#include <algorithm>
#include <qcustomplot.h>

void QCustomPlotSurface::beginBatch() { ++batchDepth_; }

void QCustomPlotSurface::endBatch()
{
    if (batchDepth_ == 0)
        return;
    // A closed batch is complete, so new points may be drawn at once.
    if (--batchDepth_ == 0)
        replotWhenDue(true);
}

void QCustomPlotSurface::redraw() { changed(); }

void QCustomPlotSurface::changed(Change change)
{
    // A replot already waiting draws this change too; only a first change of the view may need
    // it sooner. This runs for every point written, so it looks at no clock otherwise.
    const bool sooner = change == Change::View && !viewPending_;
    pending_ = true;
    if (change == Change::View)
        viewPending_ = true;
    if (batchDepth_ == 0 && (sooner || !gate_.isActive()))
        replotWhenDue();
}

int QCustomPlotSurface::msUntilRedraw() const
{
    if (!pending_)
        return -1;
    return gate_.isActive() ? std::max(gate_.remainingTime(), 0) : 0;
}

void QCustomPlotSurface::replotWhenDue(bool drawNow)
{
    if (!pending_)
        return;
    const int spacing = viewPending_ ? FrameMs : LiveMs;
    const qint64 wait = sinceReplot_.isValid() ? spacing - sinceReplot_.elapsed() : qint64(0);
    if (wait > 0) {
        if (!gate_.isActive() || gate_.remainingTime() > wait)
            gate_.start(int(wait));
        return;
    }
    if (!viewPending_ && !drawNow) {
        // New points are drawn at the next pass of the event loop, with whatever else it adds.
        gate_.start(0);
        return;
    }
    gate_.stop();
    const bool view = viewPending_;
    pending_ = false;
    viewPending_ = false;
    const QElapsedTimer before = sinceReplot_;
    sinceReplot_.start();
    switch (view ? Drawing::NeedsReplot : drawAddedPoints()) {
    case Drawing::NeedsReplot:
        plot_.replot(QCustomPlot::rpQueuedReplot);
        break;
    case Drawing::Nothing:
        // Nothing on the screen changed, so the next change need not wait for this one.
        sinceReplot_ = before;
        break;
    case Drawing::Done:
        break;
    }
}

void QCustomPlotSurface::beforeReplot()
{
    for (auto& s : series_) {
        s->sync();
        s->markDrawn();
    }
}

void QCustomPlotSurface::afterReplot() { drawnView_ = currentView(); }

QCustomPlotSurface::DrawnView QCustomPlotSurface::currentView() const
{
    const QCPRange x = x_.axis->range();
    const QCPRange y = y_.axis->range();
    return { { x.lower, x.upper, y.lower, y.upper }, plot_.axisRect()->rect() };
}

QRect QCustomPlotSurface::addedPointsArea() const
{
    const PlotSeries* readings = find(1);
    if (!readings || !readings->inOrder())
        return {};
    const QCPGraph* g = readings->graph();
    const QSharedPointer<QCPGraphDataContainer> data = g->data();
    const int first = std::max(readings->drawnMark() - 1, 0);
    if (data->size() <= readings->drawnMark() || !g->visible())
        return {};
    // The stretch of line from the last point drawn through the new ones lies within their
    // bounding box for the line styles allowed here; the pen and the point symbols reach past it.
    double left = 0, right = 0, top = 0, bottom = 0;
    for (int i = first; i < data->size(); ++i) {
        const auto it = data->at(i);
        const double px = g->keyAxis()->coordToPixel(it->key);
        const double py = g->valueAxis()->coordToPixel(it->value);
        if (i == first) {
            left = right = px;
            top = bottom = py;
        }
        left = std::min(left, px);
        right = std::max(right, px);
        top = std::min(top, py);
        bottom = std::max(bottom, py);
    }
    double reach = std::max(g->pen().widthF(), 1.0) / 2.0 + 2.0;
    if (!g->scatterStyle().isNone())
        reach += g->scatterStyle().size() / 2.0 + g->scatterStyle().pen().widthF();
    const QRectF box(QPointF(left - reach, top - reach), QPointF(right + reach, bottom + reach));
    // The graph is clipped to the axis rectangle; clamping first keeps far points in range.
    const QRectF clip = QRectF(plot_.axisRect()->rect()).adjusted(-1, -2, 1, 1);
    return box.intersected(clip).toAlignedRect();
}

// Draws the readings added to series 1 since the last drawing by redrawing their area alone,
// when that is all that changed.
QCustomPlotSurface::Drawing QCustomPlotSurface::drawAddedPoints()
{
    auto* chart = qobject_cast<ChartPlot*>(&plot_);
    if (!chart || !chart->paintsOpaque() || !drawnView_ || !(*drawnView_ == currentView()))
        return Drawing::NeedsReplot;
    for (std::size_t i = 1; i < series_.size(); ++i) {
        if (!series_[i]->graphUnchanged())
            return Drawing::NeedsReplot;
    }
    PlotSeries* readings = find(1);
    if (!readings || !readings->graphOnlyGrew())
        return Drawing::NeedsReplot;
    const QCPGraph* g = readings->graph();
    const bool boxedLine = g->lineStyle() == QCPGraph::lsNone || g->lineStyle() == QCPGraph::lsLine
        || g->lineStyle() == QCPGraph::lsStepLeft || g->lineStyle() == QCPGraph::lsStepRight
        || g->lineStyle() == QCPGraph::lsStepCenter;
    if (!boxedLine || g->brush().style() != Qt::NoBrush || g->channelFillGraph())
        return Drawing::NeedsReplot;
    const QRect area = addedPointsArea();
    readings->markDrawn();
    if (area.isEmpty())
        return Drawing::Nothing;
    return chart->redrawArea(area) ? Drawing::Done : Drawing::NeedsReplot;
}
