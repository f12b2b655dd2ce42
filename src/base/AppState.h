#pragma once

#include "InstrumentParameters.h"
#include "Settings.h"

#include <QString>
#include <QStringList>

// The state every window shares. One instance, owned by the application object and handed to
// whoever needs it.
struct AppState {
    QString ProgramDirectory;
    qint16 CommPortNumber = 1;
    // The live copy of "Settings.dat": dialogs write their entries into it as they change.
    Settings SettingsValues;
    qint32 LastReceiveTime = 0;
    // The monotonic clock, in whole seconds, when LastReceiveTime was last set: the watchdog
    // measures silence with it, so neither midnight nor a change of the clock can stop it.
    qint64 LastReceiveMonotonic = 0;
    // The sampling interval in seconds, taken from `Instrument` by the receive path's interval
    // check while sensing; the chart steps by it converted to the time unit.
    float TimeInterval = 0.0f;
    // What the instrument's last parameter block said.
    InstrumentParameters Instrument;

    bool TempBarVisible = false;
    bool SystemStatusVisible = false;
    bool DownloadFromWindow = false;
    bool PlotSaved = false;

    // The last text stamp entered, led by BEL; empty when there is none.
    QString TextStamp;

    // Chart engine state shared with the settings and the graph settings panel.
    qint16 TimeUnitIndex = 0;
    double RunningYMax = 0.0;
    double RunningYMin = 0.0;
    bool GraphSettingsOpen = false;

    // A work file directly in the program directory, "Settings.dat" for example.
    QString filePath(const QString& name) const
    {
        return ProgramDirectory + QLatin1Char('/') + name;
    }
};
