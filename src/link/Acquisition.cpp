#include "Acquisition.h"

#include "AcquisitionWindows.h"
#include "SerialPort.h"
#include "StoredPointsController.h"
#include "TimingUtils.h"
#include "base/AppState.h"
#include "base/Clock.h"
#include "base/MainWindowModel.h"
#include "base/Prompter.h"
#include "base/Services.h"
#include "base/TempBarDisplay.h"
#include "chart/GraphingFunctions.h"
#include "store/FileHeader.h"
#include "store/PreviousRuns.h"

Acquisition::Acquisition(AppState& state, MainWindowModel& main, SerialPort& port,
    GraphingFunctions& chart, Prompter& prompter, Clock& clock, Beeper& beeper,
    AcquisitionWindows& windows, QObject* parent)
    : QObject(parent)
    , state_(state)
    , main_(main)
    , port_(port)
    , chart_(chart)
    , prompter_(prompter)
    , clock_(clock)
    , beeper_(beeper)
    , windows_(windows)
{
    tmrCheckTransmission_.setInterval(WatchdogIntervalMs);
    tmrBeep_.setInterval(BeepIntervalMs);
    connect(
        &tmrCheckTransmission_, &QTimer::timeout, this, &Acquisition::tmrCheckTransmission_Timer);
    connect(&tmrBeep_, &QTimer::timeout, this, &Acquisition::tmrBeep_Timer);
}

bool Acquisition::realTimeMode() const { return main_.mnuSenseTemperature.checked(); }
bool Acquisition::downloadMode() const { return main_.mnuDownloadData.checked(); }

bool Acquisition::AcquireData(bool start)
{
    if (start) {
        if (port_.isOpen())
            return true;
        port_.resetBufferCounts();
        if (port_.open()) {
            emit portStateChanged(true);
            return true;
        }
        // The start goes back to idle after it: the watchdog already running says nothing.
        showHaltBox({ QStringLiteral("CANNOT OPEN COMM PORT"),
            QStringLiteral("COM %1 (%2) CANNOT BE OPENED.")
                    .arg(port_.portNumber())
                    .arg(port_.deviceName())
                + QStringLiteral("\r\n") + port_.errorString(),
            Prompter::Buttons::Ok, Prompter::Icon::Exclamation });
        return false;
    }
    if (port_.isOpen()) {
        port_.resetBufferCounts();
        port_.close();
        emit portStateChanged(false);
    }
    return true;
}

void Acquisition::reinitializeChart()
{
    ChartBatch batch(chart_.chart());
    chart_.InitializeChart();
    chart_.ResetChartSeries();
}

void Acquisition::mnuSenseTemperature_Click()
{
    if (main_.mnuSenseTemperature.checked()) {
        main_.mnuSenseTemperature.setChecked(false);
        if (state_.SystemStatusVisible)
            windows_.statusSetToIdle();
        AcquireData(false);
        mnuStop_Click();
        return;
    }

    {
        ChartBatch batch(chart_.chart());
        reinitializeChart();
        chart_.StartXRangeAtZero();
    }
    state_.PlotSaved = false;
    main_.mnuSenseTemperature.setChecked(true);
    if (state_.SystemStatusVisible)
        windows_.statusScanForIrSystem();
    tmrCheckTransmission_.start();
    if (!AcquireData(true)) {
        // A port that cannot be opened leaves nothing to watch: back to idle.
        mnuStop_Click();
        return;
    }
    // The files of the run before are kept first; files that cannot be are not overwritten, and
    // this run is not logged.
    QString notKept;
    const bool previousKept = PreviousRuns::Keep(state_.ProgramDirectory, &notKept);
    toldLastObtained_ = toldLiveLog_ = false;
    if (previousKept)
        lastObtained_.open(state_.filePath(QString::fromLatin1(LastObtainedFile::FileName)));
    else
        lastObtained_.fail(notKept);
    lastObtained_.writeLine(BuildFileHeader(state_, clock_));
    // The text stamp marks the run, on a line of its own after the header.
    if (!state_.TextStamp.isEmpty())
        lastObtained_.writeLine(state_.TextStamp);
    if (previousKept)
        liveLog_.open(state_.filePath(QString::fromLatin1(LiveLog::FileName)), clock_.now());
    else
        liveLog_.fail(notKept);

    for (Control* item :
        { &main_.mnuSystemSetup, &main_.mnuFile, &main_.mnuSavePlotToFile, &main_.mnuLoadPlotFile,
            &main_.mnuShowAllPts, &main_.mnuClearChart, &main_.mnuCopyChart, &main_.mnuDownloadData,
            &main_.mnuTextStamp, &main_.mnuNewAcquiredDataPoints, &main_.mnuAbout })
        item->setEnabled(false);
    MarkReceiveTime(state_, clock_);
    if (state_.GraphSettingsOpen)
        windows_.setChartSettingsInputsEnabled(false);
    queueUnwrittenFilesReport();
}

void Acquisition::mnuDownloadData_Click()
{
    if (main_.mnuDownloadData.checked()) {
        unloadingStoredPoints_ = true;
        windows_.unloadStoredPointsWindow();
        unloadingStoredPoints_ = false;
        main_.mnuDownloadData.setChecked(false);
        mnuStop_Click();
        return;
    }
    beginDownloadMode();
    windows_.showStoredPointsWindow();
}

void Acquisition::beginDownloadMode()
{
    main_.mnuDownloadData.setChecked(true);
    main_.mnuSenseTemperature.setChecked(false);
    main_.mnuSenseTemperature.setEnabled(false);
    main_.mnuFile.setEnabled(false);
    main_.mnuTextStamp.setEnabled(false);
    main_.mnuSearchForIR.setChecked(false);
    main_.mnuAbout.setEnabled(false);
    if (chart_.ChartHasPoints())
        reinitializeChart();
    main_.mnuCharting.setEnabled(false);
}

void Acquisition::mnuStop_Click()
{
    // The beep and the status display stop.
    tmrBeep_.stop();
    if (state_.SystemStatusVisible)
        windows_.statusSetToIdle();
    // The readout goes and the run's files close.
    main_.lblStatCurrentTemp.setVisible(false);
    lastObtained_.close();
    liveLog_.close();
    main_.lblCurrentTemp.setCaption(QString());
    // The watchdog stops and the port closes.
    tmrCheckTransmission_.stop();
    AcquireData(false);
    // Back to idle: a download under way in the stored points window ends.
    main_.mnuSystemSetup.setEnabled(true);
    main_.mnuSearchForIR.setChecked(false);
    if (state_.DownloadFromWindow && storedPoints_ && storedPoints_->isReceiving())
        storedPoints_->cmdStartDownload_Click();
    main_.mnuDownloadData.setChecked(false);
    // The menus come back.
    for (Control* item : { &main_.mnuSavePlotToFile, &main_.mnuLoadPlotFile, &main_.mnuShowAllPts,
             &main_.mnuClearChart, &main_.mnuCopyChart, &main_.mnuDownloadData })
        item->setEnabled(true);
    main_.mnuSenseTemperature.setChecked(false);
    main_.mnuSenseTemperature.setEnabled(true);
    for (Control* item : { &main_.mnuTextStamp, &main_.mnuNewAcquiredDataPoints, &main_.mnuFile,
             &main_.mnuAbout, &main_.mnuCharting })
        item->setEnabled(true);
    // The port is closed whatever happened above, and the bar empties.
    if (port_.isOpen())
        port_.close();
    if (state_.TempBarVisible) {
        if (TempBarDisplay* bar = windows_.tempBar())
            bar->ClearTemp();
    }
    // The plot not yet saved is offered for saving.
    if (chart_.ChartHasPoints() && !state_.PlotSaved)
        windows_.offerToSavePlot();
    // The graph settings panel can be used again.
    if (state_.GraphSettingsOpen)
        windows_.setChartSettingsInputsEnabled(true);
}

void Acquisition::showHaltBox(const Prompter::Message& box)
{
    // The lines taken so far are in the file before the box can sit on the screen for long.
    lastObtained_.flush();
    ++haltBoxes_;
    prompter_.message(box);
    --haltBoxes_;
}

void Acquisition::halt(const QString& title, const QString& text, Prompter::Icon icon)
{
    ++haltBoxes_;
    showHaltBox({ title, text, Prompter::Buttons::Ok, icon });
    mnuStop_Click();
    --haltBoxes_;
}

void Acquisition::portLost()
{
    if (!realTimeMode() && !downloadMode())
        return;
    halt(QStringLiteral("COMM PORT LOST"),
        QStringLiteral("THE CONNECTION TO COM %1 (%2) WAS LOST.")
                .arg(port_.portNumber())
                .arg(port_.deviceName())
            + QStringLiteral("\r\n") + port_.errorString()
            + QStringLiteral("\r\nDATA LOGGING HAS BEEN HALTED."),
        Prompter::Icon::Exclamation);
}

void Acquisition::tmrCheckTransmission_Timer()
{
    // A halt under way (a box of the receive path, or this one's own) is not told twice.
    if (halting())
        return;
    // Silence is measured on the monotonic clock: a run across midnight still halts.
    const qint64 now = clock_.monotonicSeconds();
    const SamplingInterval& interval = state_.Instrument.interval;
    double limit = interval.isNumeric() ? interval.seconds() : 1999.0;
    if (downloadMode())
        limit = 15.0;
    if (double(now - state_.LastReceiveMonotonic) <= limit + 2.0)
        return;

    TransmissionLost = true;
    if (state_.TempBarVisible) {
        if (TempBarDisplay* bar = windows_.tempBar())
            bar->ClearTemp();
    }
    halt(QStringLiteral("IR SYSTEM HAS HALTED DATA TRANSMISSION"),
        QStringLiteral("IR SYSTEM IS NOT TRANSMITTING!\r\nDATA LOGGING HAS BEEN HALTED."),
        Prompter::Icon::Exclamation);
    if (state_.SystemStatusVisible)
        windows_.statusSetToIdle();
}

bool Acquisition::audibleAlarmOn() const { return state_.SettingsValues.audibleAlarms.beepOn(); }

void Acquisition::tmrBeep_Timer()
{
    if (audibleAlarmOn())
        beeper_.beep();
}
