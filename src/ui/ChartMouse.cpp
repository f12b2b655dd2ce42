#include "ChartMouse.h"

#include "chart/ChartCommands.h"
#include "chart/ChartCursor.h"

#include <QLineF>
#include <QMetaObject>
#include <QShortcut>
#include <qcustomplot.h>

ChartMouse::ChartMouse(QCustomPlot& plot, ChartCommands& commands, QObject* parent)
    : QObject(parent)
    , plot_(plot)
    , commands_(commands)
{
    plot_.setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
    plot_.setSelectionRectMode(QCP::srmZoom);
    plot_.selectionRect()->setPen(QPen(Qt::black, 1, Qt::DashLine));
    plot_.selectionRect()->setBrush(QColor(0, 0, 160, 30));
    connect(&plot_, &QCustomPlot::mousePress, this, &ChartMouse::onPress);
    connect(&plot_, &QCustomPlot::mouseRelease, this, &ChartMouse::onRelease);
    connect(&plot_, &QCustomPlot::mouseWheel, this, &ChartMouse::onWheel);
    // The limit lines follow a drag or a wheel step as it happens, before the plot draws it.
    connect(plot_.xAxis, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), this, [this] {
        if (inGesture_)
            commands_.TempChart_InteractionMove();
    });
}

// The plot emits its press signal before it decides between a zoom rectangle and a drag, so the
// modifiers chosen here take effect for this very gesture.
void ChartMouse::onPress(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const bool move = event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier);
    plot_.setSelectionRectMode(move ? QCP::srmNone : QCP::srmZoom);
    pressed_ = true;
    inGesture_ = true;
    commands_.TempChart_InteractionStart();
}

void ChartMouse::onRelease(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !pressed_)
        return;
    pressed_ = false;
    endLater();
}

void ChartMouse::onWheel(QWheelEvent*)
{
    if (pressed_)
        return;
    inGesture_ = true;
    commands_.TempChart_InteractionStart();
    endLater();
}

// The plot applies a zoom rectangle and a wheel step after emitting its signal: look at the
// axes once it has.
void ChartMouse::endLater()
{
    QMetaObject::invokeMethod(
        this,
        [this] {
            inGesture_ = pressed_;
            commands_.TempChart_InteractionEnd();
        },
        Qt::QueuedConnection);
}

namespace {
// Orange reads on the light schemes and on the oscilloscope's black alike.
const QColor PinColor(255, 128, 0);
} // namespace

CursorMouse::CursorMouse(QCustomPlot& plot, ChartCursor& cursor, QObject* parent)
    : QObject(parent)
    , plot_(plot)
    , cursor_(cursor)
{
    pinLine_ = new QCPItemStraightLine(&plot_);
    pinLine_->setPen(QPen(PinColor, 1, Qt::DashLine));
    pinLine_->point1->setCoords(0.0, 0.0);
    pinLine_->point2->setCoords(0.0, 1.0);
    span_ = new QCPItemLine(&plot_);
    span_->setPen(QPen(PinColor, 2, Qt::DashLine));
    pin_ = new QCPItemTracer(&plot_);
    pin_->setStyle(QCPItemTracer::tsCircle);
    pin_->setSize(12);
    pin_->setPen(QPen(PinColor, 2.5));
    pin_->setBrush(QColor(255, 128, 0, 70));
    pinLabel_ = new QCPItemText(&plot_);
    pinLabel_->setText(QStringLiteral("PINNED"));
    pinLabel_->setColor(PinColor);
    QFont bold = plot_.font();
    bold.setBold(true);
    pinLabel_->setFont(bold);
    pinLabel_->setPositionAlignment(Qt::AlignRight | Qt::AlignBottom);
    // A few pixels up and left of the ring, clear of a rising trace.
    pinLabel_->position->setType(QCPItemPosition::ptAbsolute);
    pinLabel_->position->setParentAnchor(pin_->position);
    pinLabel_->position->setCoords(-8, -8);
    for (QCPAbstractItem* item :
        { static_cast<QCPAbstractItem*>(pinLine_), static_cast<QCPAbstractItem*>(span_),
            static_cast<QCPAbstractItem*>(pin_), static_cast<QCPAbstractItem*>(pinLabel_) }) {
        item->setVisible(false);
        item->setSelectable(false);
    }

    plot_.setMouseTracking(true);
    connect(&plot_, &QCustomPlot::mouseMove, this,
        [this](QMouseEvent* event) { cursor_.TempChart_MouseMove(event->position()); });
    connect(&plot_, &QCustomPlot::mousePress, this, &CursorMouse::onPress);
    connect(&plot_, &QCustomPlot::mouseRelease, this, &CursorMouse::onRelease);
    auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), &plot_);
    escape->setContext(Qt::WindowShortcut);
    connect(escape, &QShortcut::activated, this, [this] { cursor_.Unpin(); });
    cursor_.setPinnedPointView(this);
}

CursorMouse::~CursorMouse() { cursor_.setPinnedPointView(nullptr); }

void CursorMouse::onPress(QMouseEvent* event)
{
    pressed_ = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier;
    pressedAt_ = event->position();
}

void CursorMouse::onRelease(QMouseEvent* event)
{
    if (!pressed_ || event->button() != Qt::LeftButton)
        return;
    pressed_ = false;
    if (QLineF(pressedAt_, event->position()).length() <= ClickSlop)
        cursor_.TempChart_Click(event->position());
}

void CursorMouse::showPinnedPoint(const QPointF& pinned, const std::optional<QPointF>& current)
{
    const bool appearing = !pin_->visible();
    pin_->position->setCoords(pinned);
    pinLine_->point1->setCoords(pinned.x(), 0.0);
    pinLine_->point2->setCoords(pinned.x(), 1.0);
    span_->start->setCoords(pinned);
    if (current)
        span_->end->setCoords(*current);
    span_->setVisible(current.has_value());
    pin_->setVisible(true);
    pinLine_->setVisible(true);
    pinLabel_->setVisible(true);
    // Moves redraw with the cursor's marker; only the pin's appearing needs a redraw of its own.
    if (appearing)
        plot_.replot(QCustomPlot::rpQueuedReplot);
}

void CursorMouse::hidePinnedPoint()
{
    for (QCPAbstractItem* item :
        { static_cast<QCPAbstractItem*>(pinLine_), static_cast<QCPAbstractItem*>(span_),
            static_cast<QCPAbstractItem*>(pin_), static_cast<QCPAbstractItem*>(pinLabel_) })
        item->setVisible(false);
    plot_.replot(QCustomPlot::rpQueuedReplot);
}
