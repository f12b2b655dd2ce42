#pragma once

#include <QString>

struct AppState;
class Clock;

// The tab-indented header of exported text files: the title line, the date and time line,
// and, once the instrument has sent its parameters, the nine parameter lines and an empty line.
QString BuildFileHeader(const AppState& state, const Clock& clock);
