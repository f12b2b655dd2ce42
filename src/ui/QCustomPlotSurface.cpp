#include "QCustomPlotSurface.h"

#include "ChartPlot.h"
#include "PatternAxisTicker.h"
#include "PlotSeries.h"

#include <QClipboard>
#include <QGuiApplication>
#include <algorithm>
#include <qcustomplot.h>

namespace {
QPen seriesPen(int series)
{
    switch (series) {
    case 1:
        return QPen(QColor(0, 0, 160), 1);
    case 2:
        return QPen(QColor(200, 0, 0), 1, Qt::DashLine);
    case 3:
        return QPen(QColor(0, 130, 0), 1, Qt::DashLine);
    default:
        return QPen(Qt::darkGray, 1);
    }
}
} // namespace

QCustomPlotSurface::QCustomPlotSurface(QCustomPlot& plot, QObject* parent)
    : QObject(parent)
    , plot_(plot)
    , timeFormat_(QStringLiteral("%H:%M:%S"))
{
    setUpAxis(x_, plot_.xAxis);
    setUpAxis(y_, plot_.yAxis);
    x_.axis->setLabel(QStringLiteral("SECONDS"));
    y_.axis->setLabel(QStringLiteral("TEMPERATURE"));

    colors_[size_t(Color::ChartBackground)] = 0xFFFFFF;
    colors_[size_t(Color::PlotBackground)] = 0xFFFFFF;
    colors_[size_t(Color::ReadingLine)] = seriesPen(1).color().rgb() & 0xFFFFFF;
    marker_ = new QCPItemStraightLine(&plot_);
    marker_->setPen(QPen(Qt::black, 1, Qt::DotLine));
    marker_->point1->setCoords(0.0, 0.0);
    marker_->point2->setCoords(0.0, 1.0);
    marker_->setVisible(false);

    gate_.setSingleShot(true);
    connect(&gate_, &QTimer::timeout, this, [this] {
        if (batchDepth_ == 0)
            replotWhenDue(true);
    });
    // Series in the general model are re-sorted into their graphs just before each replot,
    // whoever asked for it (a resize, say).
    connect(&plot_, &QCustomPlot::beforeReplot, this, &QCustomPlotSurface::beforeReplot);
    connect(&plot_, &QCustomPlot::afterReplot, this, &QCustomPlotSurface::afterReplot);

    setSeriesCount(3);
}

QCustomPlotSurface::~QCustomPlotSurface() = default;

void QCustomPlotSurface::setUpAxis(AxisState& state, QCPAxis* axis)
{
    state.axis = axis;
    state.ticker = QSharedPointer<PatternAxisTicker>::create();
    axis->setTicker(state.ticker);
    state.min = axis->range().lower;
    state.max = axis->range().upper;
    // A range moved on the plot itself (by a user interaction, say) becomes the axis's limits.
    connect(axis, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), this,
        [this, &state](const QCPRange& range) {
            if (showingRange_)
                return;
            state.min = range.lower;
            state.max = range.upper;
        });
}

PlotSeries* QCustomPlotSurface::find(int series) const
{
    if (series < 1 || series > int(series_.size()))
        return nullptr;
    return series_[std::size_t(series - 1)].get();
}

QCPGraph* QCustomPlotSurface::graph(int series) const
{
    const PlotSeries* s = find(series);
    return s ? s->graph() : nullptr;
}

int QCustomPlotSurface::seriesCount() const { return int(series_.size()); }

void QCustomPlotSurface::setSeriesCount(int count)
{
    if (count < 0 || count == seriesCount())
        return;
    while (seriesCount() > count) {
        QCPGraph* graph = series_.back()->graph();
        series_.pop_back();
        plot_.removeGraph(graph);
    }
    while (seriesCount() < count) {
        QCPGraph* graph = plot_.addGraph(x_.axis, y_.axis);
        QPen pen = seriesPen(seriesCount() + 1);
        if (seriesCount() == 0)
            pen.setColor(QColor::fromRgb(QRgb(colors_[size_t(Color::ReadingLine)])));
        graph->setPen(pen);
        graph->setAdaptiveSampling(true);
        series_.push_back(std::make_unique<PlotSeries>(graph, emptyValue_));
    }
    changed();
}

int QCustomPlotSurface::pointCount(int series) const
{
    const PlotSeries* s = find(series);
    return s ? s->count() : 0;
}

void QCustomPlotSurface::setPointCount(int series, int count)
{
    PlotSeries* s = find(series);
    if (!s || count < 0 || count == s->count())
        return;
    s->setCount(count);
    changed(Change::Points);
}

double QCustomPlotSurface::x(int series, int point) const
{
    const PlotSeries* s = find(series);
    return s ? s->x(point) : emptyValue_;
}

double QCustomPlotSurface::y(int series, int point) const
{
    const PlotSeries* s = find(series);
    return s ? s->y(point) : emptyValue_;
}

void QCustomPlotSurface::setX(int series, int point, double value)
{
    if (PlotSeries* s = find(series)) {
        s->setX(point, value);
        changed(Change::Points);
    }
}

void QCustomPlotSurface::setY(int series, int point, double value)
{
    if (PlotSeries* s = find(series)) {
        s->setY(point, value);
        changed(Change::Points);
    }
}

double QCustomPlotSurface::emptyPointValue() const { return emptyValue_; }

void QCustomPlotSurface::setEmptyPointValue(double value)
{
    if (value == emptyValue_)
        return;
    for (auto& s : series_)
        s->beforeEmptyValueChange();
    emptyValue_ = value;
    for (auto& s : series_)
        s->afterEmptyValueChange();
    changed();
}

bool QCustomPlotSurface::seriesVisible(int series) const
{
    const PlotSeries* s = find(series);
    return s && s->graph()->visible();
}

void QCustomPlotSurface::setSeriesVisible(int series, bool visible)
{
    PlotSeries* s = find(series);
    if (!s || s->graph()->visible() == visible)
        return;
    s->graph()->setVisible(visible);
    changed();
}

double QCustomPlotSurface::axisMin(Axis axis) const { return state(axis).min; }
double QCustomPlotSurface::axisMax(Axis axis) const { return state(axis).max; }

void QCustomPlotSurface::setAxisMin(Axis axis, double value)
{
    AxisState& s = state(axis);
    if (s.min == value)
        return;
    s.min = value;
    showRange(s);
}

void QCustomPlotSurface::setAxisMax(Axis axis, double value)
{
    AxisState& s = state(axis);
    if (s.max == value)
        return;
    s.max = value;
    showRange(s);
}

// The engine writes one limit at a time, so the pair may pass through an inverted or empty
// range on its way; the plot shows the ordered range and skips an empty one.
void QCustomPlotSurface::showRange(AxisState& s)
{
    if (s.min != s.max) {
        showingRange_ = true;
        s.axis->setRange(std::min(s.min, s.max), std::max(s.min, s.max));
        showingRange_ = false;
    }
    changed();
}

QString QCustomPlotSurface::axisTitle(Axis axis) const { return state(axis).axis->label(); }

void QCustomPlotSurface::setAxisTitle(Axis axis, const QString& title)
{
    if (state(axis).axis->label() == title)
        return;
    state(axis).axis->setLabel(title);
    changed();
}

QString QCustomPlotSurface::axisLabelFormat(Axis axis) const
{
    return state(axis).ticker->pattern();
}

void QCustomPlotSurface::setAxisLabelFormat(Axis axis, const QString& format)
{
    state(axis).ticker->setPattern(format);
    changed();
}

QString QCustomPlotSurface::timeFormat() const { return timeFormat_; }

void QCustomPlotSurface::setTimeFormat(const QString& format) { timeFormat_ = format; }

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

void QCustomPlotSurface::copyToClipboard()
{
    // Draw now so the picture shows every change, even one still held by the frame gate.
    plot_.replot(QCustomPlot::rpQueuedRefresh);
    QGuiApplication::clipboard()->setPixmap(plot_.toPixmap());
}

void QCustomPlotSurface::setMarkerVisible(bool visible)
{
    marker_->setVisible(visible);
    changed();
}

void QCustomPlotSurface::setMarkerX(double x)
{
    marker_->point1->setCoords(x, 0.0);
    marker_->point2->setCoords(x, 1.0);
    changed();
}

QPointF QCustomPlotSurface::pixelToData(const QPointF& pixel) const
{
    return { x_.axis->pixelToCoord(pixel.x()), y_.axis->pixelToCoord(pixel.y()) };
}

qint64 QCustomPlotSurface::color(Color which) const { return colors_.at(size_t(which)); }

void QCustomPlotSurface::setColor(Color which, qint64 rgb)
{
    colors_.at(size_t(which)) = rgb;
    const QColor c = QColor::fromRgb(QRgb(rgb));
    auto axisLine = [&c](QCPAxis* axis) {
        for (auto setPen : { &QCPAxis::setBasePen, &QCPAxis::setTickPen, &QCPAxis::setSubTickPen })
            (axis->*setPen)(QPen(c, 0));
        axis->setTickLabelColor(c);
        axis->setLabelColor(c);
    };
    auto gridLine = [&c](QCPAxis* axis) {
        QPen pen = axis->grid()->pen();
        pen.setColor(c);
        axis->grid()->setPen(pen);
    };
    switch (which) {
    case Color::ChartBackground:
        plot_.setBackground(QBrush(c));
        break;
    case Color::PlotBackground:
        plot_.axisRect()->setBackground(QBrush(c));
        break;
    case Color::XAxisLine:
        axisLine(x_.axis);
        break;
    case Color::YAxisLine:
        axisLine(y_.axis);
        break;
    case Color::XGridLine:
        gridLine(x_.axis);
        break;
    case Color::YGridLine:
        gridLine(y_.axis);
        break;
    case Color::ReadingLine:
        if (QCPGraph* g = graph(1)) {
            QPen pen = g->pen();
            pen.setColor(c);
            g->setPen(pen);
        }
        break;
    }
    changed();
}

qint64 QCustomPlotSurface::reservedBytes(int series) const
{
    const PlotSeries* s = find(series);
    return s ? s->reservedBytes() : 0;
}

bool QCustomPlotSurface::seriesInOrder(int series) const
{
    const PlotSeries* s = find(series);
    return s && s->inOrder();
}

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
    if (!chart || !drawnView_ || !(*drawnView_ == currentView()))
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
