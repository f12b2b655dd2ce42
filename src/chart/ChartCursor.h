#pragma once

#include "CursorReadout.h"

#include <QPointF>
#include <QtGlobal>
#include <optional>

class ChartSurface;
class MainWindowModel;
class MarkerDataModel;
class MarkerDataWindows;
class PinnedPointView;

// The chart's cursor: CURSOR OFF / CURSOR ON on the main window. While it is on, the button is
// yellow, the chart's marker line follows the mouse and the CURSOR DATA window shows the time
// and the temperature under it. The button's caption is the cursor's state; closing the CURSOR
// DATA window switches the cursor off through the same click as the button.
//
// Two-point measurement: while the cursor is on, a click over a reading pins it; the CURSOR DATA
// window then also shows the time and temperature differences and the rate of change per minute
// from the pinned point to the cursor. A second click, Escape or switching the cursor off unpins.
class ChartCursor {
public:
    static constexpr const char* Off = "CURSOR OFF";
    static constexpr const char* On = "CURSOR ON";

    ChartCursor(ChartSurface& chart, MainWindowModel& main, MarkerDataModel& data);

    void setWindows(MarkerDataWindows* windows) { windows_ = windows; }
    void setPinnedPointView(PinnedPointView* view) { pinView_ = view; }
    bool isOn() const;
    const std::optional<QPointF>& pinned() const { return pinned_; }

    void cmdMarkers_Click();
    // The mouse at a pixel of the chart widget.
    void TempChart_MouseMove(const QPointF& pixel);
    // A click on the chart, without dragging: pins the reading under it, or unpins.
    void TempChart_Click(const QPointF& pixel);
    // Escape: drops the pinned point.
    void Unpin();
    // The CURSOR DATA window closed by its own close box.
    void frmMarkerData_Unload();

private:
    // Fills the read-out for the cursor at x; with needPoint, also gives the reading under it.
    CursorPoint showReadout(double x, bool needPoint);
    void showMeasure(double x, const CursorPoint& point);

    ChartSurface& chart_;
    MainWindowModel& main_;
    MarkerDataModel& data_;
    MarkerDataWindows* windows_ = nullptr;
    PinnedPointView* pinView_ = nullptr;
    qint64 savedBackColor_ = -1;
    std::optional<QPointF> pinned_;
};
