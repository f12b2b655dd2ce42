#pragma once

#include <QString>

// A real-time run writes "LAST_OBTAINED_DATA_PTS.dat" and "datatemp.dat" afresh. So that a run
// cut short (a lost port, say) is not overwritten by the next, the files of the run before are
// first kept under the time that run began: "LAST_OBTAINED_DATA_PTS.2026-11-23T14-05-09.dat"
// and "datatemp.2026-11-23T14-05-09.dat", for the last ten runs. The time is the one in the
// header of the last-obtained file (written from the clock as the run began), else that file's
// modification time, else the live log's.
namespace PreviousRuns {

constexpr int Kept = 10;

// Renames the two files in `directory` to their kept names when either holds a reading (a run
// that logged nothing would only push an older one out), then removes the kept files of all
// but the last `Kept` runs. Another run kept in the same second gets "-2", "-3"... after its
// time. False when a file could not be renamed: it is where it was, and must not be
// overwritten; `why` then gets the system's reason.
bool Keep(const QString& directory, QString* why = nullptr);

} // namespace PreviousRuns
