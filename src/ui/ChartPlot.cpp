// ChartPlot's painting and its drawing in part. Everything down to the #else works on
// QCustomPlot's internals as they are in the one version the build accepts for it (see
// src/CMakeLists.txt): the plot's paint buffers, background and replot flags, the protected
// drawing calls of its elements, the pixel by which a replot moves each clip rectangle, and the
// way QCPGrid draws its lines. A library update could change any of them with no compile error,
// so with any other version the build leaves this code out; a test compares what it draws with
// replots.
#include "ChartPlot.h"

#ifdef TALAVEX_PARTIAL_REDRAW

#include <algorithm>
#include <cmath>

// Fills the whole widget with the plot's background brush, beneath every other layer.
class ViewportFill : public QCPLayerable {
public:
    ViewportFill(ChartPlot* plot, const QString& layer)
        : QCPLayerable(plot, layer)
        , plot_(plot)
    {
    }

protected:
    void applyDefaultAntialiasingHint(QCPPainter*) const override { }
    // A replot clips each element to its clip rectangle moved up a pixel; this one is moved down
    // first, so the fill reaches the widget's bottom row too.
    QRect clipRect() const override { return plot_->viewport().translated(0, 1); }
    void draw(QCPPainter* painter) override
    {
        // An axis rectangle that fills itself with an opaque colour is left out: filling it
        // twice costs a good part of a replot on a large window.
        const QCPAxisRect* rect = plot_->axisRect();
        const QBrush inner = rect ? rect->backgroundBrush() : QBrush();
        if (!rect || !rect->realVisibility() || inner.style() != Qt::SolidPattern
            || inner.color().alpha() != 255 || !rect->background().isNull()) {
            painter->fillRect(plot_->viewport(), plot_->mBackgroundBrush);
            return;
        }
        for (const QRect& part : QRegion(plot_->viewport()).subtracted(rect->rect()))
            painter->fillRect(part, plot_->mBackgroundBrush);
    }

private:
    ChartPlot* plot_;
};

namespace {
// The element calls a replot makes for each element of a layer, which the plot's own classes
// keep for themselves.
struct LayerableCalls : QCPLayerable {
    static QRect clipOf(const QCPLayerable* element)
    {
        return (element->*(&LayerableCalls::clipRect))();
    }
    static void drawWith(QCPLayerable* element, QCPPainter* painter)
    {
        (element->*(&LayerableCalls::applyDefaultAntialiasingHint))(painter);
        (element->*(&LayerableCalls::draw))(painter);
    }
};
// Whether an axis's drawing reaches into the area. Inside its axis rectangle an axis draws only
// its ticks along its own edge, so an area within the rectangle and clear of them needs none of
// its labels, which are the costly part of drawing it.
bool axisReaches(const QCPAxis* axis, const QRect& area)
{
    const QRect inner = axis->axisRect()->rect();
    if (!inner.contains(area) || axis->tickLabelSide() == QCPAxis::lsInside)
        return true;
    const int reach = std::max(axis->tickLengthIn(), axis->subTickLengthIn())
        + int(std::ceil(axis->basePen().widthF())) + 2;
    QRect band;
    switch (axis->axisType()) {
    case QCPAxis::atLeft:
        band = QRect(inner.left() - 2, inner.top(), reach + 2, inner.height());
        break;
    case QCPAxis::atRight:
        band = QRect(inner.right() - reach, inner.top(), reach + 2, inner.height());
        break;
    case QCPAxis::atTop:
        band = QRect(inner.left(), inner.top() - 2, inner.width(), reach + 2);
        break;
    case QCPAxis::atBottom:
        band = QRect(inner.left(), inner.bottom() - reach, inner.width(), reach + 2);
        break;
    }
    return band.intersects(area);
}
// Whether the plot draws an element of the given kind antialiased, the element's own wish given.
bool antialiased(const QCustomPlot& plot, QCP::AntialiasedElement kind, bool own)
{
    if (plot.notAntialiasedElements().testFlag(kind))
        return false;
    return plot.antialiasedElements().testFlag(kind) || own;
}

// Draws the part of a grid line from `from` to `to` that crosses the area. A dotted line is
// stroked pixel by pixel along its whole length however little of it shows, which made grid
// lines most of the cost of a small redraw; this one starts a whole number of dash periods
// after the line's start, just before the area, so its dots fall where the full line's do.
void drawLineInArea(QCPPainter* painter, QPointF from, QPointF to, const QRect& area)
{
    const bool vertical = from.x() == to.x();
    const double start = vertical ? from.y() : from.x();
    const double end = vertical ? to.y() : to.x();
    const double direction = end < start ? -1.0 : 1.0;
    // Where the line enters and leaves the area, with a pixel to spare.
    const double enter = direction > 0 ? (vertical ? area.top() : area.left()) - 2.0
                                       : (vertical ? area.bottom() : area.right()) + 2.0;
    const double leave = direction > 0 ? (vertical ? area.bottom() : area.right()) + 2.0
                                       : (vertical ? area.top() : area.left()) - 2.0;
    const QPen& pen = painter->pen();
    double period = 0.0;
    if (pen.style() != Qt::SolidLine) {
        for (qreal dash : pen.dashPattern())
            period += dash;
        period *= std::max(pen.widthF(), 1.0);
    }
    double first = start;
    const double before = (enter - start) * direction;
    if (before > 0.0)
        first = start + direction * (period > 0.0 ? std::floor(before / period) * period : before);
    double last = end;
    if ((end - leave) * direction > 0.0)
        last = leave;
    if ((last - first) * direction <= 0.0)
        return;
    if (vertical)
        painter->drawLine(QLineF(from.x(), first, from.x(), last));
    else
        painter->drawLine(QLineF(first, from.y(), last, from.y()));
}

// A grid as QCPGrid draws it (lines at the axis's ticks across the axis rectangle, a tick at
// zero drawn with the zero-line pen), each line only where it crosses the area. False when the
// grid has sub-grid lines, which are left to the grid itself.
bool drawGridInArea(const QCustomPlot& plot, QCPGrid* grid, QCPPainter* painter, const QRect& area)
{
    if (grid->subGridVisible())
        return false;
    QCPAxis* axis = nullptr;
    for (QCPAxis* candidate : plot.axisRect()->axes()) {
        if (candidate->grid() == grid)
            axis = candidate;
    }
    if (!axis)
        return false;
    const QRect rect = axis->axisRect()->rect();
    const QCPRange range = axis->range();
    const QVector<double> ticks = axis->tickVector();
    const bool horizontal = axis->orientation() == Qt::Horizontal;
    auto line = [&](double tick) {
        const double t = axis->coordToPixel(tick);
        if (horizontal)
            drawLineInArea(painter, QPointF(t, rect.bottom()), QPointF(t, rect.top()), area);
        else
            drawLineInArea(painter, QPointF(rect.left(), t), QPointF(rect.right(), t), area);
    };
    int zeroIndex = -1;
    if (grid->zeroLinePen().style() != Qt::NoPen && range.lower < 0 && range.upper > 0) {
        const double epsilon = range.size() * 1E-6;
        for (int i = 0; i < ticks.size(); ++i) {
            if (qAbs(ticks.at(i)) < epsilon) {
                zeroIndex = i;
                painter->setAntialiasing(
                    antialiased(plot, QCP::aeZeroLine, grid->antialiasedZeroLine()));
                painter->setPen(grid->zeroLinePen());
                line(ticks.at(i));
                break;
            }
        }
    }
    painter->setAntialiasing(antialiased(plot, QCP::aeGrid, grid->antialiased()));
    painter->setPen(grid->pen());
    for (int i = 0; i < ticks.size(); ++i) {
        if (i != zeroIndex)
            line(ticks.at(i));
    }
    return true;
}

// The paint buffer, which a replot clears before every layer draws into it. When the "fill"
// layer is about to cover each pixel with an opaque colour anyway, the clearing is skipped: on a
// large window it is one of the dearer steps of a replot.
class CoveredBuffer : public QCPPaintBufferPixmap {
public:
    CoveredBuffer(const QSize& size, double ratio, const ChartPlot& plot)
        : QCPPaintBufferPixmap(size, ratio)
        , plot_(plot)
    {
    }
    void clear(const QColor& color) override
    {
        if (!plot_.paintsOpaque())
            QCPPaintBufferPixmap::clear(color);
    }

private:
    const ChartPlot& plot_;
};
} // namespace

bool ChartPlot::drawsInPart() { return true; }

ChartPlot::ChartPlot(QWidget* parent)
    : QCustomPlot(parent)
{
    // One buffer for every layer: the zoom rectangle then costs a full redraw while it is
    // dragged, which is cheap next to blending a second window-sized buffer on every repaint.
    layer(QStringLiteral("overlay"))->setMode(QCPLayer::lmLogical);
    const QString fill = QStringLiteral("fill");
    addLayer(fill, layer(QStringLiteral("background")), QCustomPlot::limBelow);
    new ViewportFill(this, fill);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

bool ChartPlot::paintsOpaque() const
{
    return mPaintBuffers.size() == 1 && mPaintBuffers.first()->size() == mViewport.size()
        && mBackgroundBrush.style() == Qt::SolidPattern && mBackgroundBrush.color().alpha() == 255
        && mBackgroundPixmap.isNull();
}

void ChartPlot::paintEvent(QPaintEvent* event)
{
    if (!paintsOpaque()) {
        QCustomPlot::paintEvent(event);
        return;
    }
    QCPPainter painter(this);
    if (!painter.isActive())
        return;
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    mPaintBuffers.first()->draw(&painter);
}

// Runs just before a replot sets up its paint buffers: the one buffer becomes a CoveredBuffer,
// which the replot then sizes and hands to every layer.
void ChartPlot::updateLayout()
{
    QCustomPlot::updateLayout();
    if (mPaintBuffers.size() == 1 && !dynamic_cast<CoveredBuffer*>(mPaintBuffers.first().data()))
        mPaintBuffers.first().reset(
            new CoveredBuffer(mViewport.size(), mBufferDevicePixelRatio, *this));
}

bool ChartPlot::redrawArea(const QRect& area)
{
    if (!paintsOpaque() || mReplotting || mReplotQueued || mPaintBuffers.first()->invalidated())
        return false;
    const QRect part = area.intersected(mViewport);
    if (part.isEmpty())
        return true;
    QCPPainter* painter = mPaintBuffers.first()->startPainting();
    if (!painter)
        return false;
    if (painter->isActive()) {
        // As a replot draws each layer, with the clip moved up a pixel as it does.
        for (int i = 0; i < layerCount(); ++i) {
            const QList<QCPLayerable*> elements = layer(i)->children();
            for (QCPLayerable* element : elements) {
                if (!element->realVisibility())
                    continue;
                if (auto* axis = qobject_cast<QCPAxis*>(element); axis && !axisReaches(axis, part))
                    continue;
                const QRect clip
                    = LayerableCalls::clipOf(element).translated(0, -1).intersected(part);
                if (clip.isEmpty())
                    continue;
                painter->save();
                painter->setClipRect(clip);
                auto* grid = qobject_cast<QCPGrid*>(element);
                if (!grid || !drawGridInArea(*this, grid, painter, part))
                    LayerableCalls::drawWith(element, painter);
                painter->restore();
            }
        }
    }
    delete painter;
    mPaintBuffers.first()->donePainting();
    update(part);
    emit areaRedrawn(part);
    return true;
}

#else

bool ChartPlot::drawsInPart() { return false; }

ChartPlot::ChartPlot(QWidget* parent)
    : QCustomPlot(parent)
{
    // One buffer for every layer, as above.
    layer(QStringLiteral("overlay"))->setMode(QCPLayer::lmLogical);
}

bool ChartPlot::paintsOpaque() const { return false; }
void ChartPlot::paintEvent(QPaintEvent* event) { QCustomPlot::paintEvent(event); }
void ChartPlot::updateLayout() { QCustomPlot::updateLayout(); }
bool ChartPlot::redrawArea(const QRect&) { return false; }

#endif
