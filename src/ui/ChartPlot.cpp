#include "ChartPlot.h"

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
