#pragma once

#include "link/sim/InstrumentSimulator.h"

#include <QByteArray>

// The first `count` records a simulator with these options sends, fewer if its stream ends.
inline QByteArray simRecords(const SimulatorOptions& options, int count)
{
    InstrumentSimulator sim(options);
    QByteArray bytes;
    for (int i = 0; i < count && !sim.finished(); ++i)
        bytes += sim.nextRecord();
    return bytes;
}
