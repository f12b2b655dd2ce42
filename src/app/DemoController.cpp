#include "DemoController.h"

#include "ControlTesterController.h"
#include "DemoWindows.h"
#include "base/AppState.h"
#include "base/MainWindowModel.h"
#include "base/Prompter.h"
#include "chart/ChartSummary.h"
#include "chart/GraphingFunctions.h"
#include "tempbar/TempBar.h"
#include "tempbar/TempBarWindowController.h"

#include <cmath>

DemoController::DemoController(AppState& state, MainWindowModel& main, ChartSurface& chart,
    TempBar& bar, IRSystem& system, TempBarWindowController& barWindow, Prompter& prompter,
    QObject* parent)
    : QObject(parent)
    , state_(state)
    , main_(main)
    , chart_(chart)
    , bar_(bar)
    , system_(system)
    , barWindow_(barWindow)
    , prompter_(prompter)
{
    tmrSweep_.setInterval(SweepIntervalMs);
    connect(&tmrSweep_, &QTimer::timeout, this, &DemoController::tmrSweep_Timer);
    connect(&main_, &ViewModel::changed, this, &DemoController::followAcquisition);
}

int DemoController::SweepReading(int step, int steps, int low, int high)
{
    if (steps <= 0)
        return low;
    const int half = steps / 2;
    const double span = double(high) - double(low);
    double f;
    if (step <= 0)
        f = 0.0;
    else if (step >= steps)
        f = 0.0;
    else if (step <= half)
        f = double(step) / half;
    else
        f = double(steps - step) / (steps - half);
    return low + int(std::lround(f * span));
}

IRSystem::State DemoController::SweepState(int step, int steps)
{
    if (4 * step < steps)
        return IRSystem::Scanning;
    if (4 * step < 3 * steps)
        return IRSystem::Sensing;
    return IRSystem::Receiving;
}

bool DemoController::acquisitionRunning() const
{
    return main_.mnuSenseTemperature.checked() || main_.mnuDownloadData.checked();
}

bool DemoController::refuseWhileAcquiring(const QString& what)
{
    if (!acquisitionRunning())
        return false;
    prompter_.message(refusedTitle(),
        QStringLiteral("%1 IS NOT AVAILABLE WHILE DATA IS BEING ACQUIRED.\r\n"
                       "PLEASE STOP THE ACQUISITION FIRST.")
            .arg(what),
        Prompter::Buttons::Ok, Prompter::Icon::Exclamation);
    return true;
}

void DemoController::followAcquisition()
{
    const bool running = acquisitionRunning();
    main_.mnuTestFunction.setEnabled(!running);
    main_.mnuControlTester.setEnabled(!running);
    if (running && sweeping())
        stopSweep(false);
}

void DemoController::mnuTestFunction_Click()
{
    if (sweeping()) {
        stopSweep(true);
        return;
    }
    if (refuseWhileAcquiring(QStringLiteral("THE TEST FUNCTION")))
        return;
    startSweep();
}

void DemoController::startSweep()
{
    if (!state_.TempBarVisible)
        barWindow_.mnuViewTempBar_Click();
    if (!state_.SystemStatusVisible && windows_)
        windows_->showSystemStatusWindow();
    const auto range = ControlTesterController::SliderRange(bar_.GetMinTemp(), bar_.GetMaxTemp());
    low_ = range.first;
    high_ = range.second;
    step_ = 0;
    shownState_ = -1;
    showSweepStep();
    tmrSweep_.start();
}

void DemoController::showSweepStep()
{
    bar_.SetTemp(qint16(SweepReading(step_, SweepSteps, low_, high_)));
    if (!state_.SystemStatusVisible)
        return;
    const IRSystem::State wanted = SweepState(step_, SweepSteps);
    if (wanted == shownState_)
        return;
    shownState_ = wanted;
    switch (wanted) {
    case IRSystem::Scanning:
        system_.ScanForIrSystem();
        break;
    case IRSystem::Sensing:
        system_.SenseTemperature();
        break;
    default:
        system_.DownloadIRData();
        break;
    }
}

void DemoController::tmrSweep_Timer()
{
    if (!sweeping())
        return;
    if (acquisitionRunning()) {
        // Acquisition owns the bar and the display now.
        stopSweep(false);
        return;
    }
    if (!state_.TempBarVisible) {
        // The operator closed the bar window: the sweep ends with it.
        stopSweep(false);
        return;
    }
    if (++step_ > SweepSteps) {
        stopSweep(true);
        return;
    }
    showSweepStep();
}

void DemoController::stopSweep(bool tidy)
{
    tmrSweep_.stop();
    if (!tidy)
        return;
    if (state_.TempBarVisible)
        bar_.ClearTemp();
    if (state_.SystemStatusVisible && shownState_ >= 0)
        system_.SetToIdle();
}

void DemoController::mnuSearchForIR_Click()
{
    if (main_.mnuSearchForIR.checked()) {
        main_.mnuSearchForIR.setChecked(false);
        return;
    }
    main_.mnuSearchForIR.setChecked(true);
    const ChartSummary summary = ChartSummary::of(chart_, GraphingFunctions::ReadingSeries);
    prompter_.message(summaryTitle(), summary.text(chart_.axisTitle(ChartSurface::Axis::X)),
        Prompter::Buttons::Ok, Prompter::Icon::Information);
}

void DemoController::mnuControlTester_Click()
{
    if (refuseWhileAcquiring(QStringLiteral("THE CONTROL TESTER")))
        return;
    if (sweeping())
        stopSweep(true);
    if (!state_.TempBarVisible)
        barWindow_.mnuViewTempBar_Click();
    if (windows_) {
        if (!state_.SystemStatusVisible)
            windows_->showSystemStatusWindow();
        windows_->showControlTester();
    }
}

void DemoController::mnuSplash_Click()
{
    if (windows_)
        windows_->showSplash();
}
