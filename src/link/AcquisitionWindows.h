#pragma once

class TempBarDisplay;

// The windows the acquisition code reaches while they are open. The application implements it;
// tests use a recording fake.
class AcquisitionWindows {
public:
    virtual ~AcquisitionWindows() = default;

    // The stored points window: brought up by a download, unloaded when it ends.
    virtual void showStoredPointsWindow() = 0;
    virtual void unloadStoredPointsWindow() = 0;
    // The link status window: closed once data flows, and its control driven meanwhile.
    virtual void unloadSystemStatusWindow() = 0;
    virtual void statusScanForIrSystem() = 0;
    virtual void statusSetToIdle() = 0;
    // The temperature bar, or null while its window is not shown.
    virtual TempBarDisplay* tempBar() = 0;
    // The chart settings window's four range boxes and its button.
    virtual void setChartSettingsInputsEnabled(bool enabled) = 0;
    // Offers to save the plot when acquisition stops.
    virtual void offerToSavePlot() = 0;
};
