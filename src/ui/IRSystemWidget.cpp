#include "IRSystemWidget.h"

#include "link/IRSystem.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <algorithm>
#include <cmath>

namespace {
// The figures are drawn on a fixed 160 x 64 scene that is scaled to fit the widget.
constexpr qreal SceneWidth = 160.0;
constexpr qreal SceneHeight = 64.0;

// The row of segments runs from the instrument (RowRight) to the computer (RowLeft).
constexpr qreal RowLeft = 50.0;
constexpr qreal RowRight = 106.0;
constexpr qreal RowY = 30.0;
constexpr qreal Slot = (RowRight - RowLeft) / IRSystem::SegmentCount;
constexpr qreal Gap = 1.6;

const QColor Track(38, 56, 76);
const QColor SenseGreen(64, 255, 140);
const QColor ScanAmber(255, 190, 60);
const QColor DataCyan(90, 225, 255);
const QColor Casing(217, 212, 199);
const QColor CasingEdge(120, 116, 104);
const QRectF ScreenRect(9, 7.5, 32, 24);
// Where the row's figures, glow included, can reach.
const QRectF RowArea(RowLeft - 1, RowY - 4, RowRight - RowLeft + 2, 8);

// Segment i counts from the instrument end of the row.
QRectF segmentRect(int i)
{
    const qreal right = RowRight - i * Slot - Gap / 2;
    return { right - (Slot - Gap), RowY - 1.1, Slot - Gap, 2.2 };
}

void drawGlowingSegment(QPainter& p, const QRectF& r, const QColor& colour, qreal strength)
{
    QColor glow = colour;
    glow.setAlphaF(0.25 * strength);
    p.setPen(Qt::NoPen);
    p.setBrush(glow);
    p.drawRoundedRect(r.adjusted(-0.8, -1.4, 0.8, 1.4), 1.6, 1.6);
    QColor core = colour;
    core.setAlphaF(std::clamp(strength, 0.0, 1.0));
    p.setBrush(core);
    p.drawRoundedRect(r, 1.0, 1.0);
}
} // namespace

IRSystemWidget::IRSystemWidget(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void IRSystemWidget::setModel(IRSystem* model)
{
    if (model_ == model)
        return;
    disconnect(changedConnection_);
    model_ = model;
    if (model_)
        changedConnection_ = connect(model_, &IRSystem::changed, this, &IRSystemWidget::onChanged);
    update();
}

IRSystemWidget::Layout IRSystemWidget::layout() const
{
    Layout l;
    const QRectF all = rect();
    // The caption takes a band at the bottom whose height follows the widget's height.
    const qreal band = std::clamp(all.height() * 0.2, 18.0, 44.0);
    l.captionBand = QRectF(all.left(), all.bottom() - band, all.width(), band);
    const QRectF scene = all.adjusted(6, 6, -6, -band - 2);
    l.sceneShown = scene.width() > 1 && scene.height() > 1;
    if (l.sceneShown) {
        const qreal scale = std::min(scene.width() / SceneWidth, scene.height() / SceneHeight);
        l.toScene.translate(scene.center().x() - SceneWidth * scale / 2,
            scene.center().y() - SceneHeight * scale / 2);
        l.toScene.scale(scale, scale);
        l.rowArea = l.toScene.mapRect(RowArea).toAlignedRect() & rect();
        l.screenArea = l.toScene.mapRect(ScreenRect).toAlignedRect() & rect();
    }
    return l;
}

IRSystemWidget::StillKey IRSystemWidget::stillKey() const
{
    StillKey key;
    key.caption = model_ ? model_->caption() : IRSystem::idleCaption();
    key.active = model_ && model_->GetCurrentState() != IRSystem::Idle;
    key.sending = model_ && model_->dataShown() && model_->dataInstrumentSide();
    return key;
}

void IRSystemWidget::onChanged()
{
    // A step of an animation repaints only the row and the screen; anything else, all of it.
    if (!(stillKey() == paintedKey_) || background_.isNull()) {
        update();
        return;
    }
    const Layout l = layout();
    if (l.sceneShown)
        update(QRegion(l.rowArea) + QRegion(l.screenArea));
}

void IRSystemWidget::paintEvent(QPaintEvent*)
{
    const Layout l = layout();
    const StillKey key = stillKey();
    const qreal ratio = devicePixelRatioF();
    // Everything that does not move is drawn once per size and state; each frame then costs a
    // copy and two small cached pictures, which keeps the 30 ms animation cheap.
    if (background_.isNull() || background_.size() != size() * ratio || !(key == paintedKey_)) {
        background_ = QPixmap(size() * ratio);
        background_.setDevicePixelRatio(ratio);
        QPainter b(&background_);
        b.setRenderHint(QPainter::Antialiasing);
        drawStill(b, l, key);
        paintedKey_ = key;
        frames_.clear();
    }

    QPainter p(this);
    p.drawPixmap(0, 0, background_);
    if (!l.sceneShown || !model_)
        return;
    p.drawPixmap(l.rowArea.topLeft(), frame(l, false));
    p.drawPixmap(l.screenArea.topLeft(), frame(l, true));
}

QPixmap IRSystemWidget::frame(const Layout& l, bool screen)
{
    // The figures of one frame, told apart by what they show.
    quint64 key = screen ? 1 : 0;
    auto add = [&key](bool shown, int value) { key = key * 64 + (shown ? quint64(value) + 1 : 0); };
    if (screen) {
        add(model_->dataShown() && model_->dataComputerSide(), model_->dataPhase());
    } else {
        add(model_->sensingShown(), model_->sensingSegments());
        add(model_->scanningShown(), model_->scanStep());
        add(model_->dataShown() && model_->dataInstrumentSide(), model_->dataPhase());
    }
    const auto cached = frames_.constFind(key);
    if (cached != frames_.constEnd())
        return *cached;

    const QRect area = screen ? l.screenArea : l.rowArea;
    const qreal ratio = background_.devicePixelRatio();
    QPixmap picture(area.size() * ratio);
    picture.setDevicePixelRatio(ratio);
    QPainter p(&picture);
    p.drawPixmap(QPointF(0, 0), background_,
        QRectF(QPointF(area.topLeft()) * ratio, QSizeF(area.size()) * ratio));
    p.setRenderHint(QPainter::Antialiasing);
    p.translate(-area.topLeft());
    p.setTransform(l.toScene, true);
    if (screen)
        drawScreen(p);
    else
        drawRow(p);
    p.end();
    frames_.insert(key, picture);
    return picture;
}

void IRSystemWidget::drawStill(QPainter& p, const Layout& l, const StillKey& key) const
{
    const QRectF all = rect();
    QLinearGradient sky(all.topLeft(), all.bottomLeft());
    sky.setColorAt(0.0, QColor(16, 28, 44));
    sky.setColorAt(1.0, QColor(6, 12, 20));
    p.fillRect(all, sky);
    if (l.sceneShown) {
        p.save();
        p.setTransform(l.toScene);
        drawTrack(p);
        drawComputer(p, key.active);
        drawInstrument(p, key.active, key.sending);
        p.restore();
    }
    drawCaption(p, l.captionBand, key.caption, !key.active);
}

void IRSystemWidget::drawComputer(QPainter& p, bool active) const
{
    p.setPen(QPen(CasingEdge, 0.6));

    // Desktop unit with the monitor standing on it.
    QLinearGradient caseShade(0, 41, 0, 54);
    caseShade.setColorAt(0, Casing);
    caseShade.setColorAt(1, Casing.darker(125));
    p.setBrush(caseShade);
    p.drawRoundedRect(QRectF(2, 42, 46, 12), 1.8, 1.8);
    p.setBrush(QColor(40, 40, 40));
    p.drawRoundedRect(QRectF(27, 45.5, 15, 1.8), 0.6, 0.6);
    p.setPen(Qt::NoPen);
    p.setBrush(active ? QColor(80, 255, 120) : QColor(30, 70, 40));
    p.drawEllipse(QPointF(8, 48), 1.3, 1.3);
    p.setBrush(QColor(150, 146, 134));
    for (int i = 0; i < 3; ++i)
        p.drawRect(QRectF(13 + i * 3.2, 47.2, 2, 1.6));

    p.setPen(QPen(CasingEdge, 0.6));
    p.setBrush(Casing.darker(110));
    QPolygonF neck;
    neck << QPointF(21, 36.5) << QPointF(29, 36.5) << QPointF(31, 42) << QPointF(19, 42);
    p.drawPolygon(neck);

    QLinearGradient bezel(0, 4, 0, 37);
    bezel.setColorAt(0, Casing.lighter(105));
    bezel.setColorAt(1, Casing.darker(115));
    p.setBrush(bezel);
    p.drawRoundedRect(QRectF(5, 4, 40, 33), 3, 3);
    p.setPen(QPen(QColor(60, 60, 60), 0.5));
    p.setBrush(QColor(4, 18, 10));
    p.drawRoundedRect(ScreenRect, 1.5, 1.5);
}

void IRSystemWidget::drawScreen(QPainter& p) const
{
    const QRectF screen = ScreenRect;

    p.save();
    p.setClipRect(screen.adjusted(0.8, 0.8, -0.8, -0.8));
    if (model_->dataShown() && model_->dataComputerSide()) {
        // A strip chart that scrolls as data comes in. Its wave repeats every DataPhases
        // units, so the phase wrapping round shows no jump.
        constexpr qreal TwoPi = 6.283185307179586;
        const qreal period = IRSystem::DataPhases;
        QPainterPath trace;
        for (int k = 0; k <= 2 * int(screen.width()); ++k) {
            const qreal x = screen.left() + k * 0.5;
            const qreal u = k * 0.5 + model_->dataPhase();
            const qreal y = screen.center().y() - 4.0 * std::sin(TwoPi * u / period)
                - 1.5 * std::sin(TwoPi * 3 * u / period + 1.0);
            if (k == 0)
                trace.moveTo(x, y);
            else
                trace.lineTo(x, y);
        }
        p.setPen(QPen(QColor(70, 255, 130), 0.8));
        p.setBrush(Qt::NoBrush);
        p.drawPath(trace);
        p.setPen(QPen(QColor(30, 90, 50), 0.3));
        for (int i = 1; i < 4; ++i)
            p.drawLine(QPointF(screen.left(), screen.top() + i * 6),
                QPointF(screen.right(), screen.top() + i * 6));
    } else {
        // An idle prompt.
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(40, 140, 70));
        p.drawRect(QRectF(screen.left() + 2.5, screen.bottom() - 5, 3, 1));
    }
    p.restore();

    // A faint reflection across the glass.
    QLinearGradient shine(screen.topLeft(), screen.bottomRight());
    shine.setColorAt(0, QColor(255, 255, 255, 30));
    shine.setColorAt(0.5, QColor(255, 255, 255, 0));
    p.setPen(Qt::NoPen);
    p.setBrush(shine);
    p.drawRoundedRect(screen, 1.5, 1.5);
}

void IRSystemWidget::drawInstrument(QPainter& p, bool active, bool sending) const
{
    const QColor body(242, 169, 0);
    const QColor bodyEdge(140, 96, 0);
    const QColor grip(74, 74, 82);

    // Handle, slanting back under the body like a pistol grip.
    QPainterPath handle;
    handle.moveTo(117, 30);
    handle.lineTo(131, 30);
    handle.lineTo(127, 53);
    handle.quadTo(126, 55, 123.5, 55);
    handle.lineTo(115.5, 55);
    handle.quadTo(113, 55, 113.4, 52.5);
    handle.closeSubpath();
    p.setPen(QPen(grip.lighter(160), 0.6));
    p.setBrush(grip);
    p.drawPath(handle);
    p.setPen(QPen(grip.lighter(150), 0.5));
    for (int i = 0; i < 4; ++i) {
        const qreal y = 37 + i * 4;
        p.drawLine(QPointF(116.5 - (y - 30) * 0.17, y), QPointF(127.5 - (y - 30) * 0.17, y));
    }

    // Trigger and its guard.
    p.setPen(QPen(grip.lighter(170), 1.0));
    p.setBrush(Qt::NoBrush);
    QPainterPath guard;
    guard.moveTo(131, 31);
    guard.quadTo(140, 32, 139, 38);
    guard.quadTo(134, 41, 129.5, 39);
    p.drawPath(guard);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(200, 40, 30));
    QPainterPath trigger;
    trigger.moveTo(132, 31);
    trigger.quadTo(135.5, 33, 133.5, 37);
    trigger.lineTo(132.3, 36.6);
    trigger.quadTo(133.5, 33.5, 131, 32);
    trigger.closeSubpath();
    p.drawPath(trigger);

    // Body, widening to the lens housing at the front.
    QPainterPath shell;
    shell.moveTo(112, 21);
    shell.quadTo(112, 16, 117, 16);
    shell.lineTo(144, 16);
    shell.lineTo(152, 13.5);
    shell.lineTo(152, 36.5);
    shell.lineTo(144, 33);
    shell.lineTo(117, 33);
    shell.quadTo(112, 33, 112, 28);
    shell.closeSubpath();
    QLinearGradient shade(0, 13, 0, 37);
    shade.setColorAt(0, body.lighter(125));
    shade.setColorAt(0.55, body);
    shade.setColorAt(1, body.darker(135));
    p.setPen(QPen(bodyEdge, 0.6));
    p.setBrush(shade);
    p.drawPath(shell);

    // Read-out window on the back of the body.
    p.setPen(QPen(QColor(40, 40, 40), 0.5));
    p.setBrush(QColor(150, 178, 140));
    p.drawRoundedRect(QRectF(115.5, 19.5, 15, 7.5), 1, 1);
    if (active) {
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(30, 45, 30));
        for (int i = 0; i < 3; ++i)
            p.drawRect(QRectF(117.2 + i * 4.3, 21, 3.2, 4.5));
    }

    // Lens housing and the lens.
    p.setPen(QPen(QColor(30, 30, 30), 0.6));
    p.setBrush(QColor(45, 45, 50));
    p.drawRoundedRect(QRectF(151.5, 12.5, 4.5, 25), 1.2, 1.2);
    QRadialGradient glass(QPointF(156, 22), 7);
    glass.setColorAt(0, QColor(170, 220, 255));
    glass.setColorAt(0.6, QColor(40, 90, 170));
    glass.setColorAt(1, QColor(15, 30, 70));
    p.setBrush(glass);
    p.drawEllipse(QPointF(156.3, 25), 2.2, 10);

    // Transmit lamp: lit while the instrument side of the data animation runs.
    const QPointF lamp(138, 19.5);
    if (sending) {
        QRadialGradient halo(lamp, 4);
        halo.setColorAt(0, QColor(255, 60, 40, 200));
        halo.setColorAt(1, QColor(255, 60, 40, 0));
        p.setPen(Qt::NoPen);
        p.setBrush(halo);
        p.drawEllipse(lamp, 4, 4);
    }
    p.setPen(QPen(QColor(60, 30, 0), 0.4));
    p.setBrush(sending ? QColor(255, 80, 50) : QColor(110, 40, 30));
    p.drawEllipse(lamp, 1.4, 1.4);
}

void IRSystemWidget::drawTrack(QPainter& p) const
{
    // The empty track is always there, so the row's place is seen even when idle.
    p.setPen(Qt::NoPen);
    p.setBrush(Track);
    for (int i = 0; i < IRSystem::SegmentCount; ++i)
        p.drawRoundedRect(segmentRect(i), 1.0, 1.0);
}

void IRSystemWidget::drawRow(QPainter& p) const
{
    if (model_->sensingShown()) {
        for (int i = 0; i < model_->sensingSegments() && i < IRSystem::SegmentCount; ++i)
            drawGlowingSegment(p, segmentRect(i), SenseGreen, 1.0);
    }

    if (model_->scanningShown()) {
        const int lit = model_->scanSegment();
        // The light drags a fading tail behind it.
        const int step = model_->scanStep();
        const int direction = step < IRSystem::SegmentCount ? -1 : 1;
        for (int tail = 2; tail >= 0; --tail) {
            const int i = lit + direction * tail;
            if (i < 0 || i >= IRSystem::SegmentCount)
                continue;
            drawGlowingSegment(p, segmentRect(i), ScanAmber, 1.0 - tail * 0.35);
        }
    }

    if (model_->dataShown() && model_->dataInstrumentSide()) {
        // Dashes run from the instrument to the computer, one per segment.
        const qreal offset = Slot * model_->dataPhase() / IRSystem::DataPhases;
        const qreal dash = Slot * 0.4;
        p.save();
        p.setClipRect(QRectF(RowLeft, RowY - 4, RowRight - RowLeft, 8));
        for (int i = -1; i <= IRSystem::SegmentCount; ++i) {
            const qreal right = RowRight - i * Slot - offset;
            const QRectF r(right - dash, RowY - 1.3, dash, 2.6);
            drawGlowingSegment(p, r, DataCyan, 1.0);
        }
        p.restore();
    }
}

void IRSystemWidget::drawCaption(
    QPainter& p, const QRectF& band, const QString& text, bool idle) const
{
    QFont font = this->font();
    font.setBold(true);
    font.setLetterSpacing(QFont::PercentageSpacing, 104);
    // As large as the band allows, then smaller until it fits the width.
    qreal pixels = band.height() * 0.55;
    font.setPixelSize(std::max(8, int(pixels)));
    const qreal room = band.width() - 16;
    for (int tries = 0; tries < 12; ++tries) {
        const qreal width = QFontMetricsF(font).horizontalAdvance(text);
        if (width <= room || font.pixelSize() <= 8)
            break;
        pixels = std::max(8.0, pixels * room / width);
        font.setPixelSize(std::max(8, int(pixels)));
    }
    p.setFont(font);
    p.setPen(idle ? QColor(150, 165, 180) : QColor(225, 240, 250));
    p.drawText(band, Qt::AlignCenter, text);
}
