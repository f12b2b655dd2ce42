#pragma once

#include "InstrumentSearch.h"
#include "ProgramParametersModel.h"

#include <QObject>
#include <QString>
#include <functional>

struct AppState;
class PortMap;
class Prompter;
class SerialPort;
class SystemInfo;

// The program parameters dialog's handlers: the port choice and the facts about this PC, plus
// binding the chosen port number to a serial device.
class ProgramParametersController : public QObject {
    Q_OBJECT
public:
    // Lists the serial devices the system reports, as paths.
    using DeviceLister = std::function<QStringList()>;

    ProgramParametersController(AppState& state, ProgramParametersModel& model, SerialPort& port,
        const SystemInfo& systemInfo, PortMap& ports, DeviceLister listDevices, Prompter& prompter,
        InstrumentSearch::PortFactory openForSearch, QObject* parent = nullptr);

    void Form_Load();
    // The operator picked an item of comCommPort (already set as the model's list index).
    void comCommPort_Click();
    // The operator picked a device from comDevice's list or finished typing one (the text is
    // comDevice's caption). Binds it to the shown port number and saves the port file; false
    // when the file could not be written, which the operator is told (the binding still holds
    // for this run).
    bool comDevice_Click();
    // Listens on every serial device the system reports and offers to bind the shown port
    // number to the one where instrument records arrive. Never transmits.
    void cmdSearchForIr_Click();
    InstrumentSearch& search() { return search_; }

    // Memory as the dialog shows it: bytes / 1,024,000 with one decimal, then " M-BYTES".
    static QString MegaBytes(quint64 bytes);

    static constexpr int MaxViewableDataPoints = 300;

private:
    // The port number the dialog's list shows: 1 or 2.
    int shownPortNumber() const;
    void showDevice();
    void searchFinished();

    AppState& state_;
    ProgramParametersModel& model_;
    SerialPort& port_;
    const SystemInfo& systemInfo_;
    PortMap& ports_;
    DeviceLister listDevices_;
    Prompter& prompter_;
    InstrumentSearch search_;
};
