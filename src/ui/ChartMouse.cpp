#include "ChartMouse.h"

#include "chart/ChartCommands.h"

#include <QMetaObject>
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
    commands_.TempChart_InteractionStart();
    endLater();
}

// The plot applies a zoom rectangle and a wheel step after emitting its signal: look at the
// axes once it has.
void ChartMouse::endLater()
{
    QMetaObject::invokeMethod(
        this, [this] { commands_.TempChart_InteractionEnd(); }, Qt::QueuedConnection);
}
