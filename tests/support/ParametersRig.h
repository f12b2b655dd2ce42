#pragma once

#include "FakePrompter.h"
#include "FakeSerialPort.h"
#include "FakeSystemInfo.h"

#include "base/AppState.h"
#include "link/PortMap.h"
#include "link/ProgramParametersController.h"
#include "link/ProgramParametersModel.h"

#include <QFile>
#include <QTemporaryDir>

// Everything the program parameters controller works on, wired as the program wires it, with
// the instrument search opening its ports through `openForSearch`.
struct ParametersRig {
    explicit ParametersRig(InstrumentSearch::PortFactory openForSearch)
        : controller(
            state, model, port, info, ports, [this] { return devices; }, prompter,
            std::move(openForSearch))
    {
        state.ProgramDirectory = dir.path();
    }
    QByteArray portFile() const
    {
        QFile file(dir.filePath(PortMap::fileName()));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir dir;
    AppState state;
    ProgramParametersModel model;
    FakeSerialPort port;
    FakeSystemInfo info;
    PortMap ports;
    QStringList devices { QStringLiteral("/dev/ttyS0"), QStringLiteral("/dev/ttyUSB0") };
    FakePrompter prompter;
    ProgramParametersController controller;
};
