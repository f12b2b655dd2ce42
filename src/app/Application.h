#pragma once

#include "ControlTesterController.h"
#include "ControlTesterModel.h"
#include "DataFilesController.h"
#include "DemoController.h"
#include "MainController.h"
#include "SettingsFileIO.h"
#include "base/AppState.h"
#include "base/MainWindowModel.h"
#include "chart/ChartAppearance.h"
#include "chart/ChartCommands.h"
#include "chart/ChartCursor.h"
#include "chart/ChartExport.h"
#include "chart/GraphSettingsController.h"
#include "chart/GraphSettingsModel.h"
#include "chart/GraphingFunctions.h"
#include "chart/MarkerDataModel.h"
#include "link/Acquisition.h"
#include "link/AcquisitionWindows.h"
#include "link/IRSystem.h"
#include "link/InstrumentSearch.h"
#include "link/ProgramParametersController.h"
#include "link/ProgramParametersModel.h"
#include "link/ReceiveHandler.h"
#include "link/StoredPointsController.h"
#include "link/StoredPointsModel.h"
#include "store/DataPointStore.h"
#include "store/HelpServices.h"
#include "store/SpreadsheetExport.h"
#include "store/TextExport.h"
#include "tempbar/TempBar.h"
#include "tempbar/TempBarSettingsController.h"
#include "tempbar/TempBarSettingsModel.h"
#include "tempbar/TempBarWindowController.h"
#include "tempbar/TempBarWindowModel.h"

#include <QObject>
#include <QStringList>
#include <functional>

class Beeper;
class ChartSurface;
class Clock;
class Launcher;
class PortMap;
class Prompter;
class SerialPort;
class SystemInfo;

// The services the core reaches the outside world through.
struct Platform {
    Prompter& prompter;
    Clock& clock;
    Beeper& beeper;
    Launcher& launcher;
    SystemInfo& systemInfo;
    SerialPort& port;
    ChartSurface& chart;
    PortMap& portMap;
    // The serial devices the system reports, for binding a COM number to one.
    std::function<QStringList()> listSerialDevices = [] { return QStringList(); };
    // Opens a receive-only port on one device, for the instrument search.
    InstrumentSearch::PortFactory openForSearch = nullptr;
    // Writes the spreadsheet workbooks; without one the export says it could not write.
    WorkbookWriter* workbook = nullptr;
};

// Owns the shared state and every controller, and wires them together. The windows register
// themselves through setWindowHost once they exist.
class Application : public QObject, private AcquisitionWindows {
    Q_OBJECT
public:
    explicit Application(Platform platform, QObject* parent = nullptr);

    // The windows the acquisition code opens and closes; set by the user interface.
    void setWindowHost(AcquisitionWindows* host) { host_ = host; }

    Platform platform;
    AppState state;
    MainWindowModel main;
    Prompter& prompter;
    DataPointStore store;
    StoredPointsModel storedPointsModel;
    IRSystem irSystem;
    GraphingFunctions chart;
    ChartCommands chartCommands;
    Acquisition acquisition;
    ReceiveHandler receiver;
    StoredPointsController storedPoints;
    SettingsFileIO settings;
    MainController controller;
    ProgramParametersModel programParametersModel;
    ProgramParametersController programParameters;
    HelpServices help;

    // The temperature bar, its window and its settings dialog.
    TempBar bar;
    TempBarWindowModel tempBarWindowModel;
    TempBarWindowController tempBarWindow;
    TempBarSettingsModel tempBarSettingsModel;
    TempBarSettingsController tempBarSettings;
    // The graph settings panel.
    GraphSettingsModel graphSettingsModel;
    GraphSettingsController graphSettings;
    // Data files: text export, spreadsheets, the text editor, the text stamp.
    TextExport textExport;
    SpreadsheetExport spreadsheet;
    DataFilesController files;

    // The demo menu and the control tester.
    ControlTesterModel controlTesterModel;
    ControlTesterController controlTester;
    DemoController demo;

    // The chart's colour schemes.
    ChartAppearance appearance;
    // The chart's cursor and its CURSOR DATA window.
    MarkerDataModel markerDataModel;
    ChartCursor cursor;
    // The chart saved as a picture, a PDF page or an SVG drawing.
    ChartExport chartExport;

signals:
    // The port was opened for real-time sensing (true) or a download (false), or closed.
    void portOpened(bool realTime);
    void portClosed();

private:
    void showStoredPointsWindow() override;
    void unloadStoredPointsWindow() override;
    void unloadSystemStatusWindow() override;
    void statusScanForIrSystem() override;
    void statusSetToIdle() override;
    TempBarDisplay* tempBar() override;
    void setChartSettingsInputsEnabled(bool enabled) override;
    void offerToSavePlot() override;
    void reportPortLost();

    AcquisitionWindows* host_ = nullptr;
    bool wasOpen_ = false;
    bool portLostPending_ = false;
};
