#pragma once

#include "base/Settings.h"

class TempBar;

// The settings entries the temperature bar owns: the range maximum and minimum, the high and low
// alarm limits and the alarm indicators switch (entries 11 to 15).
namespace TempBarSettingsEntries {
// The range and limits set the bar in that order, read as numbers and rounded half to even; an
// entry that does not fit 16 bits leaves that value of the bar as it was. The alarm indicators
// switch acts only when `barShown`.
void Apply(TempBar& bar, const Settings& settings, bool barShown);
// The five entries from the bar.
void Gather(const TempBar& bar, Settings& settings);
} // namespace TempBarSettingsEntries
