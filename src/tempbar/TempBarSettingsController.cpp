#include "TempBarSettingsController.h"

#include "TempBar.h"
#include "TempBarSettingsEntries.h"
#include "TempBarSettingsModel.h"
#include "base/AppState.h"
#include "base/Numbers.h"
#include "base/Prompter.h"
#include "base/StringUtils.h"

#include <cmath>

namespace Entries = TempBarSettingsEntries;

namespace {
const QString HighTitle = QStringLiteral("HIGH ALARM LIMIT ERROR");
const QString LowTitle = QStringLiteral("LOW ALARM LIMIT ERROR");
const QString MaxTitle = QStringLiteral("RANGE MAX. TEMP. LIMIT ERROR");
const QString MinTitle = QStringLiteral("RANGE MIN. TEMP. LIMIT ERROR");
const QString OrDisable = QStringLiteral(", or") + StringUtils::CrLf
    + QStringLiteral("Disable the Enable Alarms Check Box.");

} // namespace

TempBarSettingsController::TempBarSettingsController(AppState& state, TempBar& bar,
    TempBarSettingsModel& model, Prompter& prompter, std::function<void()> updateLimitLines,
    QObject* parent)
    : QObject(parent)
    , state_(state)
    , bar_(bar)
    , model_(model)
    , prompter_(prompter)
    , updateLimitLines_(std::move(updateLimitLines))
{
}

void TempBarSettingsController::Form_Load()
{
    loaded_ = true;
    const Settings& settings = state_.SettingsValues;
    model_.txtMaxTemp.setCaption(QString::number(bar_.GetMaxTemp()));
    model_.txtMinTemp.setCaption(QString::number(bar_.GetMinTemp()));
    const bool alarms = settings.alarmLimitsOn.valueIsOne();
    model_.chkEnableAlarms.setChecked(alarms);
    bar_.EnableAlarmLimits(alarms);
    model_.chkAudibleAlarms.setChecked(settings.audibleAlarms.valueIsOne());
    model_.txtHighLimit.setCaption(QString::number(bar_.GetHighLimit()));
    model_.txtLowLimit.setCaption(QString::number(bar_.GetLowLimit()));
    model_.setFocus(model_.txtMaxTemp.name());
}

void TempBarSettingsController::chkEnableAlarms_Click()
{
    const bool on = model_.chkEnableAlarms.checked();
    bar_.EnableAlarmLimits(on);
    state_.SettingsValues.alarmLimitsOn.set(on);
}

void TempBarSettingsController::chkAudibleAlarms_Click()
{
    state_.SettingsValues.audibleAlarms.set(model_.chkAudibleAlarms.checked());
}

bool TempBarSettingsController::fail(const QString& title, const QString& text, Control& focus)
{
    prompter_.message(title, text, Prompter::Buttons::Ok);
    model_.setFocus(focus.name());
    return false;
}

bool TempBarSettingsController::validate()
{
    const QString high = model_.txtHighLimit.caption();
    const QString low = model_.txtLowLimit.caption();
    const QString max = model_.txtMaxTemp.caption();
    const QString min = model_.txtMinTemp.caption();
    const QString enter = QStringLiteral("Please Enter Value for The ");
    const QString enterNumeric = QStringLiteral("Please Enter Numeric Value for The ");
    const QString correct = QStringLiteral(" Please Correct.");

    if (high.isEmpty())
        return fail(
            HighTitle, enter + QStringLiteral("High Alarm Limit") + OrDisable, model_.txtHighLimit);
    if (!Numbers::IsNumeric(high))
        return fail(HighTitle, enterNumeric + QStringLiteral("High Alarm Limit") + OrDisable,
            model_.txtHighLimit);
    if (low.isEmpty())
        return fail(
            LowTitle, enter + QStringLiteral("Low Alarm Limit") + OrDisable, model_.txtLowLimit);
    // The high-limit title over the low-limit text is the dialog's own.
    if (!Numbers::IsNumeric(low))
        return fail(HighTitle, enterNumeric + QStringLiteral("Low Alarm Limit") + OrDisable,
            model_.txtLowLimit);
    if (Numbers::Val(high) < Numbers::Val(low))
        return fail(QStringLiteral("ALARM LIMITS ERROR"),
            QStringLiteral("Your Low Alarm Limit is Greater Than Your High Alarm Limit.") + correct,
            model_.txtHighLimit);
    if (max.isEmpty())
        return fail(
            MaxTitle, enter + QStringLiteral("Range Max. Temp.") + OrDisable, model_.txtMaxTemp);
    if (!Numbers::IsNumeric(max))
        return fail(MaxTitle, enterNumeric + QStringLiteral("Range Max. Temp.") + OrDisable,
            model_.txtMaxTemp);
    if (min.isEmpty())
        return fail(
            MinTitle, enter + QStringLiteral("Range Min. Temp. ") + OrDisable, model_.txtMinTemp);
    if (!Numbers::IsNumeric(min))
        return fail(MinTitle, enterNumeric + QStringLiteral("Range Min. Temp. ") + OrDisable,
            model_.txtMinTemp);
    if (Numbers::Val(max) < Numbers::Val(min))
        return fail(QStringLiteral("RANGE LIMITS ERROR"),
            QStringLiteral("Your Range Min. Temp. is Greater Than Your Max. Temp.") + correct,
            model_.txtMaxTemp);
    if (std::abs(Numbers::Val(max) - Numbers::Val(min)) < 30.0)
        return fail(QStringLiteral("RANGE LIMITS ERROR - GRAPH RESOLUTION"),
            QStringLiteral("Difference Between Max. Temp. and Min. Temp. Cannot")
                + StringUtils::CrLf
                + QStringLiteral(" Be Less Than 30, Due To Accuracy Of The IR-System And")
                + StringUtils::CrLf + QStringLiteral(" Graphical Scaling of Temp. Bar Graph."),
            model_.txtMaxTemp);

    // Every value must fit the bar's whole degrees before any of them is set, so a value
    // such as 40000 is refused here instead of leaving the bar half written.
    struct Field {
        const QString& text;
        const QString& title;
        const char* name;
        Control& box;
    };
    const Field fields[] = {
        { max, MaxTitle, "Range Max. Temp.", model_.txtMaxTemp },
        { min, MinTitle, "Range Min. Temp.", model_.txtMinTemp },
        { high, HighTitle, "High Alarm Limit", model_.txtHighLimit },
        { low, LowTitle, "Low Alarm Limit", model_.txtLowLimit },
    };
    for (const Field& f : fields) {
        if (!Numbers::TextToInt16(f.text))
            return fail(f.title,
                QStringLiteral("Please Enter a Value Between -32768 and 32767 for The ")
                    + QLatin1String(f.name),
                f.box);
    }
    return true;
}

void TempBarSettingsController::cmdAccept_Click()
{
    if (!validate())
        return;
    bar_.SetMaxTemp(*Numbers::TextToInt16(model_.txtMaxTemp.caption()));
    bar_.SetMinTemp(*Numbers::TextToInt16(model_.txtMinTemp.caption()));
    bar_.SetHighLimit(*Numbers::TextToInt16(model_.txtHighLimit.caption()));
    bar_.SetLowLimit(*Numbers::TextToInt16(model_.txtLowLimit.caption()));
    // The two limit setters show their markers; switched-off indicators stay hidden.
    bar_.EnableAlarmLimits(bar_.IsAlarmOn());
    state_.SettingsValues.highAlarmLimit.text = model_.txtHighLimit.caption();
    state_.SettingsValues.lowAlarmLimit.text = model_.txtLowLimit.caption();
    if (updateLimitLines_)
        updateLimitLines_();
    unload();
}

void TempBarSettingsController::cmdCancel_Click() { unload(); }

void TempBarSettingsController::keyPress(int keyAscii, SettingsNumber& entry, qint16 barValue)
{
    if (keyAscii != KeyEnter)
        return;
    entry.text = QString::number(barValue);
    cmdAccept_Click();
}

void TempBarSettingsController::txtMaxTemp_KeyPress(int keyAscii)
{
    keyPress(keyAscii, state_.SettingsValues.tempBarMax, bar_.GetMaxTemp());
}

void TempBarSettingsController::txtMinTemp_KeyPress(int keyAscii)
{
    keyPress(keyAscii, state_.SettingsValues.tempBarMin, bar_.GetMinTemp());
}

void TempBarSettingsController::txtHighLimit_KeyPress(int keyAscii)
{
    keyPress(keyAscii, state_.SettingsValues.highAlarmLimit, bar_.GetHighLimit());
}

void TempBarSettingsController::txtLowLimit_KeyPress(int keyAscii)
{
    keyPress(keyAscii, state_.SettingsValues.lowAlarmLimit, bar_.GetLowLimit());
}

void TempBarSettingsController::Form_Unload()
{
    if (!loaded_)
        return;
    loaded_ = false;
    Entries::Gather(bar_, state_.SettingsValues);
}

void TempBarSettingsController::unload()
{
    Form_Unload();
    emit closeRequested();
}
