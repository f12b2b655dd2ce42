#include "TempBarWindowController.h"

#include "TempBar.h"
#include "TempBarSettingsEntries.h"
#include "TempBarWindows.h"
#include "base/AppState.h"
#include "base/MainWindowModel.h"
#include "base/StringUtils.h"

TempBarWindowController::TempBarWindowController(
    AppState& state, MainWindowModel& main, TempBar& bar, QObject* parent)
    : QObject(parent)
    , state_(state)
    , main_(main)
    , bar_(bar)
{
}

void TempBarWindowController::mnuViewTempBar_Click()
{
    if (state_.TempBarVisible) {
        state_.TempBarVisible = false;
        main_.mnuViewTempBar.setChecked(false);
        if (windows_)
            windows_->unloadTempBarWindow();
        return;
    }
    state_.TempBarVisible = true;
    main_.mnuViewTempBar.setChecked(true);
    Form_Load();
    if (windows_)
        windows_->showTempBarWindow();
}

void TempBarWindowController::Form_Load()
{
    // Units as the last parameter block gave them; before any block the bar keeps its own.
    const QString units = StringUtils::StripControlCharacters(state_.Instrument.ParameterFields[0]);
    if (!units.isEmpty()) {
        if (units == QLatin1String("  DEG F"))
            bar_.SetUnitsDegF();
        else
            bar_.SetUnitsDegC();
    }
    applySettings();
    bar_.ClearTemp();
}

void TempBarWindowController::Form_Unload()
{
    if (state_.TempBarVisible)
        mnuViewTempBar_Click();
}

void TempBarWindowController::mnuConfigure_Click()
{
    if (windows_)
        windows_->showTempBarSettings();
}

void TempBarWindowController::applySettings()
{
    TempBarSettingsEntries::Apply(bar_, state_.SettingsValues, state_.TempBarVisible);
}

void TempBarWindowController::gatherSettings()
{
    TempBarSettingsEntries::Gather(bar_, state_.SettingsValues);
}

TempBarDisplay* TempBarWindowController::display()
{
    return state_.TempBarVisible ? &bar_ : nullptr;
}
