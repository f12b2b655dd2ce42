#pragma once

#include "ViewModel.h"

#include <array>
#include <memory>

// The main window's state: its menus, buttons and labels, named as the program names them.
// The acquisition mode is nothing but the check marks of mnuSenseTemperature and mnuDownloadData.
class MainWindowModel : public ViewModel {
    Q_OBJECT
public:
    explicit MainWindowModel(QObject* parent = nullptr);

    Control frmMain { this, "frmMain", "TALAVEX" };

    // &FILE
    Control mnuFile { this, "mnuFile", "&FILE" };
    Control mnuLoadFile { this, "mnuLoadFile", "&LOAD FILE (In NotePad)" };
    Control mnuSaveFile { this, "mnuSaveFile", "&SAVE FILE (TEXT FILE)" };
    Control mnuCreateExcelFile { this, "mnuCreateExcelFile",
        "&CREATE EXCEL FILE WITH ACQUIRED POINTS" };
    // &STOP, a command on the menu bar itself
    Control mnuStop { this, "mnuStop", "&STOP" };
    // CO&MMAND
    Control mnuCommand { this, "mnuCommand", "CO&MMAND" };
    Control mnuTextStamp { this, "mnuTextStamp", "&TEXT STAMP" };
    Control mnuSenseTemperature { this, "mnuSenseTemperature", "&SEND DATA IN REALTIME" };
    Control mnuDownloadData { this, "mnuDownloadData", "&DOWNLOAD STORED DATA" };
    // &VIEW
    Control mnuView { this, "mnuView", "&VIEW" };
    Control mnuViewTempBar { this, "mnuViewTempBar", "&TEMP BAR" };
    Control mnuNewAcquiredDataPoints { this, "mnuNewAcquiredDataPoints",
        "&LAST OBTAINED DATA POINTS" };
    Control mnuDownloadedDataPoints { this, "mnuDownloadedDataPoints", "&DOWNLOADED DATA POINTS" };
    Control mnuViewSystemStatus { this, "mnuViewSystemStatus", "&SYSTEM STATUS" };
    // &CHART
    Control mnuCharting { this, "mnuCharting", "&CHART" };
    Control mnuRefreshChart { this, "mnuRefreshChart", "&REFRESH CHART" };
    Control mnuSavePlotToFile { this, "mnuSavePlotToFile", "&SAVE PLOT TO FILE" };
    Control mnuLoadPlotFile { this, "mnuLoadPlotFile", "&LOAD PLOT FILE" };
    Control mnuAutoScaleYAxis { this, "mnuAutoScaleYAxis", "&AUTO SCALE Y AXIS" };
    Control mnuDispLimits { this, "mnuDispLimits", "&DISPLAY LIMIT MARKERS" };
    Control mnuShowAllPts { this, "mnuShowAllPts", "S&HOW ALL POINTS" };
    Control mnuPlottingMode { this, "mnuPlottingMode", "&PLOTTING MODE" };
    Control mnuRealTimeGraphOn { this, "mnuRealTimeGraphOn", "&REAL TIME STRIP CHART" };
    Control mnuAutoCompressed { this, "mnuAutoCompressed", "&AUTO COMPRESSED REAL TIME" };
    Control mnuChartParameters { this, "mnuChartParameters", "PARA&METERS " };
    Control mnuClearChart { this, "mnuClearChart", "&CLEAR CHART" };
    Control mnuChartAppSelect { this, "mnuChartAppSelect", "&APPEARANCE SELECT" };
    Control mnuStandardChart { this, "mnuStandardChart", "&STANDARD" };
    Control mnuScopeChart { this, "mnuScopeChart", "&OSCILLISCOPE" };
    Control mnuPlainChart { this, "mnuPlainChart", "&PLAIN" };
    Control mnuCopyChart { this, "mnuCopyChart", "C&OPY CHART TO CLIPBOARD" };
    Control mnuExportChart { this, "mnuExportChart", "&EXPORT CHART..." };
    // SE&TTINGS, a command on the menu bar
    Control mnuSystemSetup { this, "mnuSystemSetup", "SE&TTINGS" };
    // &HELP
    Control mnuHelp { this, "mnuHelp", "&HELP" };
    Control mnuOnlineManual { this, "mnuOnlineManual", "&ONLINE MANUAL" };
    Control mnuAbout { this, "mnuAbout", "&ABOUT" };
    // E&XIT, a command on the menu bar
    Control mnuExit { this, "mnuExit", "E&XIT" };
    // &DEMO CONTROLS
    Control mnuDemo { this, "mnuDemo", "&DEMO CONTROLS" };
    Control mnuTestFunction { this, "mnuTestFunction", "TEST FUNCTION" };
    Control mnuSearchForIR { this, "mnuSearchForIR", "SEARCH FOR IR" };
    Control mnuControlTester { this, "mnuControlTester", "Control Tester" };
    Control mnuSplash { this, "mnuSplash", "SPLASH" };
    Control mnuCreateSettingsFile { this, "mnuCreateSettingsFile", "CREATE SETTINGS FILE" };
    Control mnuIniChart { this, "mnuIniChart", "INITIALIZE CHART" };

    // Buttons
    Control cmdMarkers { this, "cmdMarkers", "CURSOR OFF" };
    Control cmdResetChart { this, "cmdResetChart", "RESET CHART" };
    Control cmdExit { this, "cmdExit", "EXIT PROGRAM" };

    // Labels
    Control lblParametersTitle { this, "lblParametersTitle",
        "DOWNLOADED         IR - SYSTEM PARAMETERS..." };
    Control lblStatCurrentTemp { this, "lblStatCurrentTemp", "CURRENT TEMP:" };
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
