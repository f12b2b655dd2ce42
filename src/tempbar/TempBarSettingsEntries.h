#pragma once

#include "base/AppState.h"

class TempBar;

// The settings entries the temperature bar owns: 11 range maximum, 12 range minimum, 13 high
// alarm limit, 14 low alarm limit, 15 alarm indicators on ("1"/"0").
namespace TempBarSettingsEntries {
constexpr int MaxTemp = 11;
constexpr int MinTemp = 12;
constexpr int HighLimit = 13;
constexpr int LowLimit = 14;
constexpr int AlarmsOn = 15;
// The audible alarm, read by the main window's beep timer.
constexpr int AudibleAlarms = 22;

using Values = std::array<QString, AppState::SettingsCount>;

// Entries 11 to 14 set the bar's range and limits, in that order, read as numbers and rounded
// half to even; an entry that does not fit 16 bits leaves that value of the bar as it was.
// Entry 15 switches the alarm indicators only when `barShown`.
void Apply(TempBar& bar, const Values& values, bool barShown);
// Entries 11 to 15 from the bar.
void Gather(const TempBar& bar, Values& values);
} // namespace TempBarSettingsEntries
