#pragma once

#include "ViewModel.h"

#include <array>
#include <memory>

// The main window's state: its menus, buttons and labels, named as the program names them.
// The acquisition mode is nothing but the check marks of mnuSenseTemperature and mnuDownloadData.
// Captions that never change are the form's; the model holds those that do.
class MainWindowModel : public ViewModel {
    Q_OBJECT
public:
    explicit MainWindowModel(QObject* parent = nullptr);

    Control frmMain { this, "frmMain" };

    // &FILE
    Control mnuFile { this, "mnuFile" };
    Control mnuLoadFile { this, "mnuLoadFile" };
    Control mnuSaveFile { this, "mnuSaveFile" };
    Control mnuCreateExcelFile { this, "mnuCreateExcelFile" };
    // &STOP, a command on the menu bar itself
    Control mnuStop { this, "mnuStop" };
    // CO&MMAND
    Control mnuCommand { this, "mnuCommand" };
    Control mnuTextStamp { this, "mnuTextStamp" };
    Control mnuSenseTemperature { this, "mnuSenseTemperature" };
    Control mnuDownloadData { this, "mnuDownloadData" };
    // &VIEW
    Control mnuView { this, "mnuView" };
    Control mnuViewTempBar { this, "mnuViewTempBar" };
    Control mnuNewAcquiredDataPoints { this, "mnuNewAcquiredDataPoints" };
    Control mnuDownloadedDataPoints { this, "mnuDownloadedDataPoints" };
    Control mnuViewSystemStatus { this, "mnuViewSystemStatus" };
    // &CHART
    Control mnuCharting { this, "mnuCharting" };
    Control mnuRefreshChart { this, "mnuRefreshChart" };
    Control mnuSavePlotToFile { this, "mnuSavePlotToFile" };
    Control mnuLoadPlotFile { this, "mnuLoadPlotFile" };
    Control mnuAutoScaleYAxis { this, "mnuAutoScaleYAxis" };
    Control mnuDispLimits { this, "mnuDispLimits" };
    Control mnuShowAllPts { this, "mnuShowAllPts" };
    Control mnuPlottingMode { this, "mnuPlottingMode" };
    Control mnuRealTimeGraphOn { this, "mnuRealTimeGraphOn" };
    Control mnuAutoCompressed { this, "mnuAutoCompressed" };
    Control mnuChartParameters { this, "mnuChartParameters" };
    Control mnuClearChart { this, "mnuClearChart" };
    Control mnuChartAppSelect { this, "mnuChartAppSelect" };
    Control mnuStandardChart { this, "mnuStandardChart" };
    Control mnuScopeChart { this, "mnuScopeChart" };
    Control mnuPlainChart { this, "mnuPlainChart" };
    Control mnuCopyChart { this, "mnuCopyChart" };
    Control mnuExportChart { this, "mnuExportChart" };
    // SE&TTINGS, a command on the menu bar
    Control mnuSystemSetup { this, "mnuSystemSetup" };
    // &HELP
    Control mnuHelp { this, "mnuHelp" };
    Control mnuOnlineManual { this, "mnuOnlineManual" };
    Control mnuAbout { this, "mnuAbout" };
    // E&XIT, a command on the menu bar
    Control mnuExit { this, "mnuExit" };
    // &DEMO CONTROLS
    Control mnuDemo { this, "mnuDemo" };
    Control mnuTestFunction { this, "mnuTestFunction" };
    Control mnuSearchForIR { this, "mnuSearchForIR" };
    Control mnuControlTester { this, "mnuControlTester" };
    Control mnuSplash { this, "mnuSplash" };
    Control mnuCreateSettingsFile { this, "mnuCreateSettingsFile" };
    Control mnuIniChart { this, "mnuIniChart" };

    // Buttons
    Control cmdMarkers { this, "cmdMarkers", "CURSOR OFF" };
    Control cmdResetChart { this, "cmdResetChart" };
    Control cmdExit { this, "cmdExit" };

    // Labels
    Control lblParametersTitle { this, "lblParametersTitle" };
    Control lblStatCurrentTemp { this, "lblStatCurrentTemp" };
    Control lblCurrentTemp { this, "lblCurrentTemp" };
    // In the status bar while the operator's view is held during a real-time run.
    Control lblViewHeld { this, "lblViewHeld",
        "VIEW HELD - RESET CHART RETURNS TO THE LIVE CHART" };

    // The instrument parameter labels, elements 1 to 9 (element 0 is unused).
    Control& lblSystParameters(int index) { return *systParameters_.at(index); }
    const Control& lblSystParameters(int index) const { return *systParameters_.at(index); }
    static constexpr int SystParameterCount = 10;

private:
    std::array<std::unique_ptr<Control>, SystParameterCount> systParameters_;
};
