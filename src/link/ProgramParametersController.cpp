#include "ProgramParametersController.h"

#include "PortMap.h"
#include "SerialPort.h"
#include "TimingUtils.h"
#include "base/AppState.h"
#include "base/Numbers.h"
#include "base/Services.h"

ProgramParametersController::ProgramParametersController(AppState& state,
    ProgramParametersModel& model, SerialPort& port, const SystemInfo& systemInfo, PortMap& ports,
    DeviceLister listDevices, QObject* parent)
    : QObject(parent)
    , state_(state)
    , model_(model)
    , port_(port)
    , systemInfo_(systemInfo)
    , ports_(ports)
    , listDevices_(std::move(listDevices))
{
}

QString ProgramParametersController::MegaBytes(quint64 bytes)
{
    // The program has always counted a megabyte as 1,024,000 bytes here.
    return Numbers::Format(double(bytes) / 1024000.0, QStringLiteral(".0"))
        + QStringLiteral(" M-BYTES");
}

void ProgramParametersController::Form_Load()
{
    model_.lblProcessor.setCaption(QString::number(systemInfo_.processorType()));
    model_.lblRamSize.setCaption(MegaBytes(systemInfo_.totalPhysicalMemory()));
    model_.lblAvailiableRam.setCaption(MegaBytes(systemInfo_.availablePhysicalMemory()));
    // Only shows the stored number; a number other than 2 is left alone until a pick.
    model_.setCommPortListIndex(state_.CommPortNumber == 2 ? 1 : 0);
    model_.txtDataPoints.setCaption(QString::number(MaxViewableDataPoints));
    model_.setDeviceItems(listDevices_ ? listDevices_() : QStringList());
    showDevice();
}

void ProgramParametersController::comCommPort_Click()
{
    switch (model_.commPortListIndex()) {
    case 0:
        state_.CommPortNumber = 1;
        break;
    case 1:
        state_.CommPortNumber = 2;
        break;
    default:
        break;
    }
    if (state_.CommPortNumber != 0)
        SetCommPort(port_, state_.CommPortNumber);
    showDevice();
}

bool ProgramParametersController::comDevice_Click()
{
    const int number = shownPortNumber();
    const QString typed = PortMap::normalizedDevice(model_.comDevice.caption());
    const QString wanted = typed.isEmpty() ? PortMap::defaultDevice(number) : typed;
    // Leaving the box untouched binds nothing: a device given with --port for this run is not
    // made permanent just because the dialog showed it.
    if (wanted == ports_.device(number)) {
        showDevice();
        return true;
    }
    ports_.setDevice(number, typed);
    // The port takes the new device when it is next opened; an open one is closed now.
    if (number == state_.CommPortNumber)
        SetCommPort(port_, state_.CommPortNumber);
    showDevice();
    return ports_.save(state_.ProgramDirectory);
}

int ProgramParametersController::shownPortNumber() const
{
    return model_.commPortListIndex() == 1 ? 2 : 1;
}

void ProgramParametersController::showDevice()
{
    model_.comDevice.setCaption(ports_.device(shownPortNumber()));
}
