#pragma once

#include "chart/MarkerDataModel.h"

#include <QObject>
#include <QPointF>

class ChartCommands;
class ChartCursor;
class QCPItemLine;
class QCPItemStraightLine;
class QCPItemText;
class QCPItemTracer;
class QCustomPlot;
class QMouseEvent;
class QWheelEvent;

// The operator's mouse on the chart: a rectangle dragged with the left button zooms into it,
// the same drag with Shift or Ctrl held moves the axes, and the wheel zooms about the pointer.
// Each gesture is one interaction: its start takes the axis snapshot and its end, once the plot
// has applied the new ranges, tells the chart commands, which offer RESET CHART when the view
// changed; the axes moved in between take the limit lines along.
class ChartMouse : public QObject {
    Q_OBJECT
public:
    ChartMouse(QCustomPlot& plot, ChartCommands& commands, QObject* parent = nullptr);

private:
    void onPress(QMouseEvent* event);
    void onRelease(QMouseEvent* event);
    void onWheel(QWheelEvent* event);
    void endLater();

    QCustomPlot& plot_;
    ChartCommands& commands_;
    bool pressed_ = false;
    // From a press or wheel step until its end has been told.
    bool inGesture_ = false;
};

// The cursor's side of the mouse on the chart: the marker follows the pointer, a click (a press
// and release without dragging) pins the reading under it or unpins, and Escape unpins. The
// pinned point is drawn as a ring on its reading with a dashed line down the chart and a dashed
// span to the reading under the cursor.
class CursorMouse : public QObject, public PinnedPointView {
    Q_OBJECT
public:
    // A press and release this many pixels apart or closer is a click.
    static constexpr double ClickSlop = 3.0;

    CursorMouse(QCustomPlot& plot, ChartCursor& cursor, QObject* parent = nullptr);
    ~CursorMouse() override;

    void showPinnedPoint(const QPointF& pinned, const std::optional<QPointF>& current) override;
    void hidePinnedPoint() override;

    QCPItemTracer* pin() const { return pin_; }
    QCPItemLine* span() const { return span_; }

private:
    void onPress(QMouseEvent* event);
    void onRelease(QMouseEvent* event);

    QCustomPlot& plot_;
    ChartCursor& cursor_;
    QCPItemTracer* pin_ = nullptr;
    QCPItemStraightLine* pinLine_ = nullptr;
    QCPItemLine* span_ = nullptr;
    QCPItemText* pinLabel_ = nullptr;
    QPointF pressedAt_;
    bool pressed_ = false;
};
