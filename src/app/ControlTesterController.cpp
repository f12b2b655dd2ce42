#include "ControlTesterController.h"

#include "ControlTesterModel.h"
#include "DemoWindows.h"
#include "base/AppState.h"
#include "link/IRSystem.h"
#include "tempbar/TempBar.h"
#include "tempbar/TempBarWindowController.h"

#include <algorithm>
#include <limits>

namespace {
constexpr int Int16Min = std::numeric_limits<qint16>::min();
constexpr int Int16Max = std::numeric_limits<qint16>::max();
} // namespace

ControlTesterController::ControlTesterController(AppState& state, ControlTesterModel& model,
    TempBar& bar, IRSystem& system, TempBarWindowController& barWindow, QObject* parent)
    : QObject(parent)
    , state_(state)
    , model_(model)
    , bar_(bar)
    , system_(system)
    , barWindow_(barWindow)
{
    connect(&bar_, &ViewModel::changed, this, [this] {
        if (loaded_)
            refresh();
    });
    connect(&system_, &IRSystem::changed, this, [this] {
        if (loaded_)
            refresh();
    });
}

std::pair<int, int> ControlTesterController::SliderRange(int minTemp, int maxTemp)
{
    const int low = std::min(minTemp, maxTemp);
    const int high = std::max(minTemp, maxTemp);
    const int margin = std::max(1, (high - low) / 8);
    return { std::max(Int16Min, low - margin), std::min(Int16Max, high + margin) };
}

QString ControlTesterController::StateName(int state)
{
    switch (state) {
    case IRSystem::Idle:
        return QStringLiteral("0 - IDLE");
    case IRSystem::Sensing:
        return QStringLiteral("1 - SENSING");
    case IRSystem::Scanning:
        return QStringLiteral("2 - SCANNING");
    case IRSystem::Receiving:
        return QStringLiteral("3 - RECEIVING");
    default:
        return QString::number(state);
    }
}

void ControlTesterController::Form_Load()
{
    savedAlarms_ = bar_.IsAlarmOn();
    savedAutoRange_ = bar_.IsAutoRangeOn();
    savedUnits_ = bar_.unitsCode();
    loaded_ = true;
    const auto [low, high] = SliderRange(bar_.GetMinTemp(), bar_.GetMaxTemp());
    model_.setSlider(low, high, std::clamp(int(bar_.GetMinTemp()), low, high));
    refresh();
}

void ControlTesterController::Form_Unload()
{
    if (!loaded_)
        return;
    loaded_ = false;
    if (savedUnits_ == 1)
        bar_.SetUnitsDegF();
    else
        bar_.SetUnitsDegC();
    bar_.EnableAlarmLimits(savedAlarms_);
    bar_.EnableAutoRange(savedAutoRange_);
    bar_.ClearTemp();
    if (state_.SystemStatusVisible)
        system_.SetToIdle();
    else
        system_.reset();
}

void ControlTesterController::ensureBarShown()
{
    if (!state_.TempBarVisible)
        barWindow_.mnuViewTempBar_Click();
}

void ControlTesterController::ensureStatusShown()
{
    if (!state_.SystemStatusVisible && windows_)
        windows_->showSystemStatusWindow();
}

void ControlTesterController::sldReading_Change(int value)
{
    ensureBarShown();
    const int reading = std::clamp(value, model_.readingMin(), model_.readingMax());
    model_.setSlider(model_.readingMin(), model_.readingMax(), reading);
    bar_.SetTemp(qint16(reading));
    refresh();
}

void ControlTesterController::chkAlarmLimits_Click()
{
    ensureBarShown();
    bar_.EnableAlarmLimits(model_.chkAlarmLimits.checked());
    sldReading_Change(model_.reading());
}

void ControlTesterController::chkAutoRange_Click()
{
    ensureBarShown();
    bar_.EnableAutoRange(model_.chkAutoRange.checked());
    sldReading_Change(model_.reading());
}

void ControlTesterController::chkDegC_Click()
{
    ensureBarShown();
    if (model_.chkDegC.checked())
        bar_.SetUnitsDegC();
    else
        bar_.SetUnitsDegF();
    sldReading_Change(model_.reading());
}

void ControlTesterController::cmdClearTemp_Click()
{
    ensureBarShown();
    bar_.ClearTemp();
    model_.setSlider(model_.readingMin(), model_.readingMax(),
        std::clamp(int(bar_.GetMinTemp()), model_.readingMin(), model_.readingMax()));
    refresh();
}

void ControlTesterController::cmdScanForIrSystem_Click()
{
    ensureStatusShown();
    system_.ScanForIrSystem();
}

void ControlTesterController::cmdSenseTemperature_Click()
{
    ensureStatusShown();
    system_.SenseTemperature();
}

void ControlTesterController::cmdDownloadIRData_Click()
{
    ensureStatusShown();
    system_.DownloadIRData();
}

void ControlTesterController::cmdSetToIdle_Click()
{
    ensureStatusShown();
    system_.SetToIdle();
}

void ControlTesterController::cmdResetOldState_Click()
{
    ensureStatusShown();
    system_.ResetOldState();
}

void ControlTesterController::cmdClose_Click() { emit closeRequested(); }

void ControlTesterController::refresh()
{
    // Opening the bar window applies the settings, which may move the scale.
    const auto [low, high] = SliderRange(bar_.GetMinTemp(), bar_.GetMaxTemp());
    model_.setSlider(low, high, std::clamp(model_.reading(), low, high));
    model_.lblReading.setCaption(QStringLiteral("READING: %1").arg(model_.reading()));
    model_.lblBarRange.setCaption(QStringLiteral("SCALE %1 TO %2   LIMITS %3 / %4")
                                      .arg(bar_.GetMinTemp())
                                      .arg(bar_.GetMaxTemp())
                                      .arg(bar_.GetLowLimit())
                                      .arg(bar_.GetHighLimit()));
    model_.chkAlarmLimits.setChecked(bar_.IsAlarmOn());
    model_.chkAutoRange.setChecked(bar_.IsAutoRangeOn());
    model_.chkDegC.setChecked(bar_.unitsCode() == 2);
    model_.lblCurrentState.setCaption(
        QStringLiteral("STATE: ") + StateName(system_.GetCurrentState()));
    model_.lblOldState.setCaption(QStringLiteral("OLD STATE: ") + StateName(system_.OldState)
        + (system_.StateChanged ? QStringLiteral("  (CHANGED)") : QString()));
}
