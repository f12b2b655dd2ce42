#include "ProgramParametersController.h"

#include "PortMap.h"
#include "SerialPort.h"
#include "TimingUtils.h"
#include "base/AppState.h"
#include "base/Numbers.h"
#include "base/Prompter.h"
#include "base/Services.h"

#include <algorithm>

ProgramParametersController::ProgramParametersController(AppState& state,
    ProgramParametersModel& model, SerialPort& port, const SystemInfo& systemInfo, PortMap& ports,
    DeviceLister listDevices, Prompter& prompter, InstrumentSearch::PortFactory openForSearch,
    QObject* parent)
    : QObject(parent)
    , state_(state)
    , model_(model)
    , port_(port)
    , systemInfo_(systemInfo)
    , ports_(ports)
    , listDevices_(std::move(listDevices))
    , prompter_(prompter)
    , search_(std::move(openForSearch))
{
    connect(
        &search_, &InstrumentSearch::finished, this, &ProgramParametersController::searchFinished);
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
    const WholeFile::Result saved = ports_.save(state_.ProgramDirectory);
    if (!saved) {
        prompter_.message(QStringLiteral("SERIAL PORTS NOT SAVED"),
            QStringLiteral("THE SERIAL PORT DEVICES COULD NOT BE WRITTEN TO\r\n")
                + state_.filePath(PortMap::fileName()) + QStringLiteral("\r\n") + saved.reason
                + QStringLiteral("\r\nCOM %1 USES %2 UNTIL THE PROGRAM ENDS.")
                      .arg(number)
                      .arg(ports_.device(number)),
            Prompter::Buttons::Ok, Prompter::Icon::Exclamation);
    }
    return saved.ok;
}

int ProgramParametersController::shownPortNumber() const
{
    return model_.commPortListIndex() == 1 ? 2 : 1;
}

void ProgramParametersController::showDevice()
{
    model_.comDevice.setCaption(ports_.device(shownPortNumber()));
}

namespace {
QString searchTitle() { return QStringLiteral("SEARCH FOR INSTRUMENT"); }
} // namespace

void ProgramParametersController::cmdSearchForIr_Click()
{
    if (search_.running())
        return;
    if (port_.isOpen()) {
        prompter_.message(searchTitle(),
            QStringLiteral("THE PROGRAM IS RECEIVING ON %1.\r\nSTOP ACQUISITION BEFORE SEARCHING.")
                .arg(port_.deviceName()));
        return;
    }
    const QStringList devices = listDevices_ ? listDevices_() : QStringList();
    if (devices.isEmpty()) {
        prompter_.message(searchTitle(), QStringLiteral("THIS COMPUTER REPORTS NO SERIAL PORTS."));
        return;
    }
    model_.cmdSearchForIr.setEnabled(false);
    model_.cmdSearchForIr.setCaption(QStringLiteral("LISTENING..."));
    model_.lblSearchStatus.setCaption(
        QStringLiteral("LISTENING ON %1 SERIAL PORT%2 FOR %3 SECONDS...")
            .arg(devices.size())
            .arg(devices.size() == 1 ? QString() : QStringLiteral("S"))
            .arg(InstrumentSearch::ListenMilliseconds / 1000));
    search_.start(devices);
}

void ProgramParametersController::searchFinished()
{
    model_.cmdSearchForIr.setEnabled(true);
    model_.cmdSearchForIr.setCaption(ProgramParametersModel::SearchCaption());
    const QString found = search_.bestDevice();
    if (found.isEmpty()) {
        const auto& findings = search_.findings();
        const auto closed = std::count_if(findings.begin(), findings.end(),
            [](const InstrumentSearch::Finding& f) { return !f.opened; });
        model_.lblSearchStatus.setCaption(QStringLiteral("NO INSTRUMENT FOUND."));
        QString text = QStringLiteral("NO INSTRUMENT RECORDS ARRIVED ON THE %1 SERIAL PORT%2.")
                           .arg(findings.size())
                           .arg(findings.size() == 1 ? QString() : QStringLiteral("S"));
        if (closed > 0)
            text += QStringLiteral("\r\n%1 OF THEM COULD NOT BE OPENED.").arg(closed);
        text += QStringLiteral("\r\nCHECK THE CABLE, SWITCH THE INSTRUMENT ON, START IT SENDING "
                               "AND SEARCH AGAIN.");
        prompter_.message(QStringLiteral("NO INSTRUMENT FOUND"), text);
        return;
    }
    const int number = shownPortNumber();
    model_.lblSearchStatus.setCaption(QStringLiteral("INSTRUMENT RECORDS ON %1.").arg(found));
    const auto answer = prompter_.message(QStringLiteral("INSTRUMENT FOUND"),
        QStringLiteral("INSTRUMENT RECORDS ARRIVE ON %1.\r\nUSE THIS DEVICE FOR COM %2?")
            .arg(found)
            .arg(number),
        Prompter::Buttons::YesNo, Prompter::Icon::Question, Prompter::Answer::Yes);
    if (answer != Prompter::Answer::Yes)
        return;
    model_.comDevice.setCaption(found);
    comDevice_Click();
}
