#include "TempBarSettingsEntries.h"

#include "TempBar.h"

namespace TempBarSettingsEntries {

void Apply(TempBar& bar, const Settings& settings, bool barShown)
{
    auto apply = [&](const SettingsNumber& entry, void (TempBar::*set)(qint16)) {
        if (const auto value = entry.toInt16())
            (bar.*set)(*value);
    };
    apply(settings.tempBarMax, &TempBar::SetMaxTemp);
    apply(settings.tempBarMin, &TempBar::SetMinTemp);
    apply(settings.highAlarmLimit, &TempBar::SetHighLimit);
    apply(settings.lowAlarmLimit, &TempBar::SetLowLimit);
    if (barShown)
        bar.EnableAlarmLimits(settings.alarmLimitsOn.on());
}

void Gather(const TempBar& bar, Settings& settings)
{
    settings.tempBarMax.text = QString::number(bar.GetMaxTemp());
    settings.tempBarMin.text = QString::number(bar.GetMinTemp());
    settings.highAlarmLimit.text = QString::number(bar.GetHighLimit());
    settings.lowAlarmLimit.text = QString::number(bar.GetLowLimit());
    settings.alarmLimitsOn.set(bar.IsAlarmOn());
}

} // namespace TempBarSettingsEntries
