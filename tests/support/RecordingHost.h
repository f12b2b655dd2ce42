#pragma once

#include "link/AcquisitionWindows.h"

#include <QStringList>
#include <functional>

// Stands in for the windows: records what the acquisition code asked of them.
class RecordingHost : public AcquisitionWindows {
public:
    void showStoredPointsWindow() override
    {
        calls << QStringLiteral("showStoredPoints");
        if (onShowStoredPoints)
            onShowStoredPoints();
    }
    void unloadStoredPointsWindow() override
    {
        calls << QStringLiteral("unloadStoredPoints");
        if (onUnloadStoredPoints)
            onUnloadStoredPoints();
    }
    void unloadSystemStatusWindow() override { calls << QStringLiteral("unloadSystemStatus"); }
    void statusScanForIrSystem() override { calls << QStringLiteral("scan"); }
    void statusSetToIdle() override { calls << QStringLiteral("idle"); }
    TempBarDisplay* tempBar() override { return bar; }
    void setChartSettingsInputsEnabled(bool enabled) override
    {
        calls << QStringLiteral("chartSettingsInputs %1").arg(enabled);
    }
    void offerToSavePlot() override { calls << QStringLiteral("offerToSavePlot"); }

    QStringList calls;
    TempBarDisplay* bar = nullptr;
    std::function<void()> onShowStoredPoints;
    std::function<void()> onUnloadStoredPoints;
};
