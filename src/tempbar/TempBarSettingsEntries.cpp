#include "TempBarSettingsEntries.h"

#include "TempBar.h"
#include "base/Numbers.h"

namespace TempBarSettingsEntries {

void Apply(TempBar& bar, const Values& values, bool barShown)
{
    auto apply = [&](int entry, void (TempBar::*set)(qint16)) {
        if (const auto value = Numbers::ToInt16(Numbers::Val(values[entry])))
            (bar.*set)(*value);
    };
    apply(MaxTemp, &TempBar::SetMaxTemp);
    apply(MinTemp, &TempBar::SetMinTemp);
    apply(HighLimit, &TempBar::SetHighLimit);
    apply(LowLimit, &TempBar::SetLowLimit);
    if (barShown)
        bar.EnableAlarmLimits(values[AlarmsOn] == QLatin1String("1"));
}

void Gather(const TempBar& bar, Values& values)
{
    values[MaxTemp] = QString::number(bar.GetMaxTemp());
    values[MinTemp] = QString::number(bar.GetMinTemp());
    values[HighLimit] = QString::number(bar.GetHighLimit());
    values[LowLimit] = QString::number(bar.GetLowLimit());
    values[AlarmsOn] = bar.IsAlarmOn() ? QStringLiteral("1") : QStringLiteral("0");
}

} // namespace TempBarSettingsEntries
