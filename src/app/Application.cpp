#include "Application.h"

#include "link/SerialPort.h"

Application::Application(Platform platform_, QObject* parent)
    : QObject(parent)
    , platform(platform_)
    , prompter(platform.prompter)
    , chart(platform.chart, state, main)
    , chartCommands(chart, state, main, prompter)
    , acquisition(
          state, main, platform.port, chart, prompter, platform.clock, platform.beeper, *this)
    , receiver(
          state, main, platform.port, acquisition, chart, store, prompter, platform.clock, *this)
    , storedPoints(state, storedPointsModel, store, acquisition, platform.clock)
    , settings(state, main, platform.chart)
    , controller(
          state, main, platform.port, chart, settings, receiver, prompter, platform.systemInfo)
    , programParameters(state, programParametersModel, platform.port, platform.systemInfo,
          platform.portMap, platform.listSerialDevices, prompter, platform.openForSearch)
    , help(state, platform.launcher, prompter)
    , tempBarWindow(state, main, bar)
    , tempBarSettings(
          state, bar, tempBarSettingsModel, prompter, [this] { chart.UpdateLimitLines(); })
    , graphSettings(state, chart, main, graphSettingsModel, prompter,
          [this] { controller.mnuClearChart_Click(); })
    , textExport(state, store, platform.clock, prompter, storedPointsModel.lblAcquiredPoints)
    , spreadsheet(state, store, platform.clock, prompter)
    , files(state, store, prompter, platform.launcher, textExport, spreadsheet)
    , controlTester(state, controlTesterModel, bar, irSystem, tempBarWindow)
    , demo(state, main, platform.chart, bar, irSystem, tempBarWindow, prompter)
    , appearance(platform.chart, main)
    , cursor(platform.chart, main, markerDataModel)
    , chartExport(state, prompter)
{
    // The appearance scheme of settings entry 18 follows the axes and titles.
    settings.steps.applyChartAxes = [this, axes = settings.steps.applyChartAxes](Settings& s) {
        if (axes)
            axes(s);
        appearance.ApplySettingsEntry(s.appearance.text);
    };
    settings.steps.applyTempBar = [this](Settings&) { tempBarWindow.applySettings(); };
    controller.setLoadOnce([this] {
        if (!graphSettings.loaded()) {
            graphSettings.Form_Load();
            graphSettings.Form_Unload();
        }
        if (!state.TempBarVisible) {
            tempBarWindow.Form_Load();
            tempBarWindow.Form_Unload();
        }
    });
    // A pinned point belongs to the readings it was pinned on.
    chart.setSeriesReplacedListener([this] { cursor.Unpin(); });
    acquisition.setStoredPoints(&storedPoints);
    receiver.setStoredPoints(&storedPoints);
    storedPoints.setFileCommands(&textExport, &spreadsheet);
    spreadsheet.setWriter(platform.workbook);

    platform.port.setReceiveCallback([this] {
        // What arrived before a loss is still handled: no reading already on the line is lost.
        receiver.pump();
        acquisition.queueUnwrittenFilesReport();
        if (wasOpen_ && !platform.port.isOpen()) {
            // The device went away under an open port (a USB adapter pulled out).
            wasOpen_ = false;
            emit portClosed();
            portLostPending_ = true;
        }
        reportPortLost();
    });
    connect(&acquisition, &Acquisition::portStateChanged, this, [this](bool open) {
        wasOpen_ = open;
        if (open)
            emit portOpened(acquisition.realTimeMode());
        else
            emit portClosed();
    });
}

void Application::reportPortLost()
{
    // A loss is told once the handler is done with what arrived before it (one of its boxes may
    // be open); a halt already under way (the watchdog's box, say) has said enough.
    if (!portLostPending_ || receiver.pumping())
        return;
    portLostPending_ = false;
    if (!acquisition.halting())
        acquisition.portLost();
}

void Application::showStoredPointsWindow()
{
    if (host_)
        host_->showStoredPointsWindow();
}

void Application::unloadStoredPointsWindow()
{
    if (host_)
        host_->unloadStoredPointsWindow();
}

void Application::unloadSystemStatusWindow()
{
    if (host_)
        host_->unloadSystemStatusWindow();
    state.SystemStatusVisible = false;
}

void Application::statusScanForIrSystem() { irSystem.ScanForIrSystem(); }

void Application::statusSetToIdle() { irSystem.SetToIdle(); }

TempBarDisplay* Application::tempBar() { return tempBarWindow.display(); }

void Application::setChartSettingsInputsEnabled(bool enabled)
{
    graphSettings.SetInputsEnabled(enabled);
    if (host_)
        host_->setChartSettingsInputsEnabled(enabled);
}

void Application::offerToSavePlot() { chartCommands.OfferToSavePlot(); }
