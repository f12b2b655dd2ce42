#include "MainController.h"

#include "SettingsFileIO.h"
#include "base/AppState.h"
#include "base/MainWindowModel.h"
#include "base/Prompter.h"
#include "base/Services.h"
#include "chart/ChartPanel.h"
#include "chart/GraphingFunctions.h"
#include "link/ReceiveHandler.h"
#include "link/SerialPort.h"
#include "link/TimingUtils.h"

#include <QDir>

MainController::MainController(AppState& state, MainWindowModel& main, SerialPort& port,
    GraphingFunctions& chart, SettingsFileIO& settings, ReceiveHandler& receiver,
    Prompter& prompter, SystemInfo& systemInfo, QObject* parent)
    : QObject(parent)
    , state_(state)
    , main_(main)
    , port_(port)
    , chart_(chart)
    , settings_(settings)
    , receiver_(receiver)
    , prompter_(prompter)
    , systemInfo_(systemInfo)
{
}

void MainController::Form_Load()
{
    settings_.LoadSettings(false);
    {
        ChartBatch batch(chart_.chart());
        chart_.InitializeChart();
        chart_.ResetChartSeries();
    }
    CheckMemory();
    port_.resetBufferCounts();
    // The directory recorded at start is the current one; it is only taken afresh when unset.
    if (state_.ProgramDirectory.isEmpty())
        state_.ProgramDirectory = QDir::currentPath();
    receiver_.clearReceiveMembers();
    if (const auto number = state_.SettingsValues.commPort.strictInt16()) {
        state_.CommPortNumber = *number;
        SetCommPort(port_, state_.CommPortNumber);
    }
    chart_.chart().redraw();
    if (loadOnce_)
        loadOnce_();
}

void MainController::CheckMemory()
{
    // Whole megabytes of 1,024,000 bytes, the fraction dropped: 16,000,000 bytes count as 15.
    const quint64 megabytes = systemInfo_.totalPhysicalMemory() / 1024000;
    if (megabytes >= 15)
        return;
    prompter_.message(QStringLiteral("WARNING - SYSTEM'S RAM BELOW REQUIREMENTS"),
        QStringLiteral("YOUR SYSTEM IS BELOW THE MINIMUM MEMORY REQUIREMENTS OF "
                       "16M BYTES,\nPROGRAM MAY NOT RUN PROPERLY."),
        Prompter::Buttons::Ok, Prompter::Icon::Exclamation);
}

void MainController::Shutdown()
{
    if (shutDown_)
        return;
    shutDown_ = true;
    if (port_.isOpen())
        port_.close();
    SaveSettings();
    emit quitRequested();
}

void MainController::mnuRealTimeGraphOn_Click()
{
    if (main_.mnuRealTimeGraphOn.checked()) {
        main_.mnuRealTimeGraphOn.setChecked(false);
        return;
    }
    main_.mnuRealTimeGraphOn.setChecked(true);
    main_.mnuAutoCompressed.setChecked(false);
}

void MainController::mnuAutoCompressed_Click()
{
    if (main_.mnuAutoCompressed.checked()) {
        main_.mnuAutoCompressed.setChecked(false);
        return;
    }
    main_.mnuAutoCompressed.setChecked(true);
    main_.mnuRealTimeGraphOn.setChecked(false);
}

void MainController::mnuAutoScaleYAxis_Click()
{
    const bool on = !main_.mnuAutoScaleYAxis.checked();
    main_.mnuAutoScaleYAxis.setChecked(on);
    if (state_.GraphSettingsOpen && chart_.panel())
        chart_.panel()->SetAutoRangeChecked(on);
    state_.SettingsValues.autoScaleY.set(on);
}

void MainController::mnuRefreshChart_Click() { chart_.chart().redraw(); }

void MainController::mnuCopyChart_Click() { chart_.chart().copyToClipboard(); }

void MainController::mnuIniChart_Click() { chart_.InitializeChart(); }

void MainController::mnuClearChart_Click()
{
    ChartBatch batch(chart_.chart());
    chart_.InitializeChart();
    chart_.ResetChartSeries();
}

void MainController::mnuCreateSettingsFile_Click() { SaveSettings(); }

void MainController::SaveSettings()
{
    const WholeFile::Result saved = settings_.SaveSettings();
    if (saved)
        return;
    prompter_.message(QStringLiteral("SETTINGS NOT SAVED"),
        QStringLiteral("THE SETTINGS COULD NOT BE WRITTEN TO\r\n")
            + state_.filePath(QString::fromLatin1(SettingsFileIO::FileName))
            + QStringLiteral("\r\n") + saved.reason,
        Prompter::Buttons::Ok, Prompter::Icon::Exclamation);
}
