#pragma once

#include <QPointF>
#include <QtGlobal>

class ChartSurface;
class MainWindowModel;
class MarkerDataModel;
class MarkerDataWindows;

// The chart's cursor: CURSOR OFF / CURSOR ON on the main window. While it is on, the button is
// yellow, the chart's marker line follows the mouse and the CURSOR DATA window shows the time
// and the temperature under it. The button's caption is the cursor's state; closing the CURSOR
// DATA window switches the cursor off through the same click as the button.
class ChartCursor {
public:
    static constexpr const char* Off = "CURSOR OFF";
    static constexpr const char* On = "CURSOR ON";

    ChartCursor(ChartSurface& chart, MainWindowModel& main, MarkerDataModel& data);

    void setWindows(MarkerDataWindows* windows) { windows_ = windows; }
    bool isOn() const;

    void cmdMarkers_Click();
    // The mouse at a pixel of the chart widget.
    void TempChart_MouseMove(const QPointF& pixel);
    // The CURSOR DATA window closed by its own close box.
    void frmMarkerData_Unload();

private:
    ChartSurface& chart_;
    MainWindowModel& main_;
    MarkerDataModel& data_;
    MarkerDataWindows* windows_ = nullptr;
    qint64 savedBackColor_ = -1;
};
