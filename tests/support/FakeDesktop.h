#pragma once

#include "FakeBeeper.h"
#include "FakeClock.h"
#include "FakeLauncher.h"
#include "FakePrompter.h"
#include "FakeSerialPort.h"
#include "FakeSystemInfo.h"

#include "app/Application.h"
#include "link/PortMap.h"

#include <QTemporaryDir>

// Fakes of the desktop and the line, and a temporary directory for the program's work files.
struct FakeDesktop {
    QTemporaryDir dir;
    FakePrompter prompter;
    FakeClock clock;
    FakeBeeper beeper;
    FakeLauncher launcher;
    FakeSystemInfo systemInfo;
    FakeSerialPort port;
    PortMap portMap;

    // The application's platform on these fakes, reading `serial` and drawing on `chart`.
    Platform platform(SerialPort& serial, ChartSurface& chart)
    {
        return Platform { prompter, clock, beeper, launcher, systemInfo, serial, chart, portMap };
    }
};
