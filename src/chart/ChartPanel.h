#pragma once

// The graph settings panel as the chart engine sees it: while the panel is open, every change the
// engine makes to the axes is pushed to it so its text boxes show the chart's real ranges.
class ChartPanel {
public:
    virtual ~ChartPanel() = default;
    virtual void UpdatePanelWithCurrentChartSettings() = 0;
    // The chart menu's check marks mirrored in the panel's check boxes (chkAutoRange,
    // chkDispLimits) while it is open.
    virtual void SetAutoRangeChecked(bool /*checked*/) { }
    virtual void SetDisplayLimitsChecked(bool /*checked*/) { }
};
