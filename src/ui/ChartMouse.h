#pragma once

#include <QObject>

class ChartCommands;
class QCustomPlot;
class QMouseEvent;
class QWheelEvent;

// The operator's mouse on the chart: a rectangle dragged with the left button zooms into it,
// the same drag with Shift or Ctrl held moves the axes, and the wheel zooms about the pointer.
// Each gesture is one interaction: its start takes the axis snapshot and its end, once the plot
// has applied the new ranges, tells the chart commands, which offer RESET CHART when the view
// changed.
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
};
