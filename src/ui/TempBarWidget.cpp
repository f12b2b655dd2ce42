#include "TempBarWidget.h"

#include "tempbar/TempBar.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>

namespace {
const QColor Panel(0x20, 0x22, 0x26);
const QColor PanelEdge(0x70, 0x74, 0x7a);
const QColor Tube(0x05, 0x05, 0x05);
const QColor TubeEdge(0xa0, 0xa4, 0xaa);
const QColor Scale(0xe8, 0xe8, 0xe8);
const QColor HighMarker(0xff, 0x40, 0x30);
const QColor LowMarker(0x40, 0xa0, 0xff);

QColor fromModel(qint64 rgb, const QColor& fallback)
{
    return rgb < 0 ? fallback : QColor::fromRgb(QRgb(rgb));
}

// The font of the scale and the caption, sized in twips (the painter draws in twips).
QFont twipFont(int pixelTwips, bool bold)
{
    QFont font(QStringLiteral("Arial"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(pixelTwips);
    font.setBold(bold);
    return font;
}

void drawMarker(QPainter& p, int top, const QColor& colour)
{
    // An arrow pointing left at the tube, as high as the marker picture.
    const double left = TempBar::MarkerLeft;
    const double mid = top + TempBar::MarkerHeight / 2.0;
    const double right = TempBar::MarkerLeft + TempBar::MarkerWidth;
    const double head = left + TempBar::MarkerHeight * 0.6;
    QPolygonF arrow;
    arrow << QPointF(left, mid) << QPointF(head, top) << QPointF(head, mid - 45)
          << QPointF(right, mid - 45) << QPointF(right, mid + 45) << QPointF(head, mid + 45)
          << QPointF(head, top + TempBar::MarkerHeight);
    p.setPen(QPen(colour.darker(180), 12));
    p.setBrush(colour);
    p.drawPolygon(arrow);
}
} // namespace

TempBarWidget::TempBarWidget(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void TempBarWidget::setModel(TempBar* model)
{
    if (model_)
        disconnect(model_, nullptr, this, nullptr);
    model_ = model;
    if (model_)
        connect(model_, &ViewModel::changed, this, qOverload<>(&QWidget::update));
    update();
}

QRectF TempBarWidget::twipArea() { return QRectF(-330, 240, 2160, 4680); }

QSize TempBarWidget::sizeHint() const { return QSize(216, 468); }

QSize TempBarWidget::minimumSizeHint() const { return QSize(72, 156); }

QTransform TempBarWidget::twipsToPixels() const
{
    const QRectF area = twipArea();
    const double scale = std::min(width() / area.width(), height() / area.height());
    const double dx = (width() - area.width() * scale) / 2.0;
    const double dy = (height() - area.height() * scale) / 2.0;
    QTransform t;
    t.translate(dx, dy);
    t.scale(scale, scale);
    t.translate(-area.left(), -area.top());
    return t;
}

QPointF TempBarWidget::toPixels(const QPointF& twips) const { return twipsToPixels().map(twips); }

void TempBarWidget::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.fillRect(rect(), palette().window());
    if (!model_)
        return;
    const TempBar& bar = *model_;
    p.setRenderHint(QPainter::Antialiasing);
    p.setTransform(twipsToPixels());

    // frameTempBar: the panel everything sits on
    const QRectF area = twipArea();
    p.setPen(QPen(PanelEdge, 24));
    p.setBrush(Panel);
    p.drawRoundedRect(area.adjusted(12, 12, -12, -12), 60, 60);

    // Shape1 and shpBackBox: the glass tube, with a bulb below the scale
    const QRectF tube(
        TempBar::BackBoxLeft, TempBar::BackBoxTop, TempBar::BackBoxWidth, TempBar::BackBoxHeight);
    p.setPen(QPen(TubeEdge, 18));
    p.setBrush(Tube);
    p.drawRoundedRect(tube, TempBar::BackBoxWidth / 2.0, TempBar::BackBoxWidth / 2.0);

    // shpIndicator: the column, shaded like liquid in a round tube
    const QColor fill = fromModel(bar.shpIndicator.backColor(), QColor(Qt::yellow));
    QLinearGradient shade(
        TempBar::IndicatorLeft, 0, TempBar::IndicatorLeft + TempBar::IndicatorWidth, 0);
    shade.setColorAt(0.0, fill.darker(160));
    shade.setColorAt(0.35, fill.lighter(125));
    shade.setColorAt(1.0, fill.darker(170));
    const double bulbRadius = 205;
    const QPointF bulb(
        TempBar::IndicatorLeft + TempBar::IndicatorWidth / 2.0, TempBar::BarBottom + 80);
    if (bar.indicatorHeight() > 0) {
        // The bulb fills with the column and joins it.
        p.setPen(Qt::NoPen);
        p.setBrush(shade);
        p.drawEllipse(bulb, bulbRadius, bulbRadius);
        p.drawRect(
            QRectF(TempBar::IndicatorLeft, TempBar::BarBottom - 10, TempBar::IndicatorWidth, 100));
        p.drawRect(QRectF(TempBar::IndicatorLeft, bar.indicatorTop(), TempBar::IndicatorWidth,
            bar.indicatorHeight()));
    } else {
        // No reading above the bottom of the scale (none yet, stopped, below the range): an
        // empty bulb, outlined like the tube, so the fill colour does not pass for a reading.
        p.setPen(QPen(TubeEdge, 18));
        p.setBrush(Qt::NoBrush);
        p.drawEllipse(bulb, bulbRadius, bulbRadius);
    }

    // Line1..Line7 and the scale labels
    p.setPen(QPen(Scale, 20));
    for (int k = 0; k < 7; ++k) {
        const double y = TempBar::FirstTickY + k * TempBar::TickSpacing;
        const double left = k == 1 ? TempBar::ShortTickLeft : TempBar::TickLeft;
        p.drawLine(QPointF(TempBar::TickRight, y), QPointF(left, y));
    }
    p.setFont(twipFont(165, false));
    const auto labels = bar.scaleLabels();
    for (int k = 0; k < 7; ++k) {
        const QRectF box(TempBar::LabelLeft, TempBar::LabelTops[size_t(k)],
            TempBar::LabelWidth - 45, TempBar::LabelHeight);
        p.drawText(box, Qt::AlignRight | Qt::AlignVCenter, labels[size_t(k)]->caption());
    }

    // imageHighLimit, imageLowLimit
    if (bar.imageHighLimit.visible())
        drawMarker(p, bar.highMarkerTop(), HighMarker);
    if (bar.imageLowLimit.visible())
        drawMarker(p, bar.lowMarkerTop(), LowMarker);

    // lblTempBar: the status caption
    if (bar.lblTempBar.visible()) {
        p.setPen(fromModel(bar.lblTempBar.foreColor(), QColor(Qt::yellow)));
        p.setFont(twipFont(190, true));
        p.drawText(QRectF(area.left(), TempBar::CaptionTop, area.width(), TempBar::CaptionHeight),
            Qt::AlignCenter, bar.lblTempBar.caption());
    }
}
