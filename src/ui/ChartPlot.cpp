#include "ChartPlot.h"

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
    void draw(QCPPainter* painter) override
    {
        painter->fillRect(plot_->viewport(), plot_->backgroundBrush());
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
} // namespace

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
