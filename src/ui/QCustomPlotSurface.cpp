#include "QCustomPlotSurface.h"

#include "PatternAxisTicker.h"
#include "PlotSeries.h"

#include <QClipboard>
#include <QGuiApplication>
#include <algorithm>
#include <qcustomplot.h>

namespace {
// The limit lines keep their colours whatever the scheme, so they are dark enough to stand out
// from the white plots and from the oscilloscope's green alike (a contrast of 3 or more), and
// twice as wide as the grid.
QPen seriesPen(int series)
{
    switch (series) {
    case 1:
        return QPen(QColor(0, 0, 160), 1);
    case 2:
        return QPen(QColor(110, 0, 0), 2, Qt::DashLine);
    case 3:
        return QPen(QColor(0, 0, 160), 2, Qt::DashLine);
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

bool QCustomPlotSurface::seriesInOrder(int series) const
{
    const PlotSeries* s = find(series);
    return s && s->inOrder();
}
