#pragma once

#include "base/Prompter.h"
#include "store/LastObtainedFile.h"
#include "store/LiveLog.h"

#include <QObject>
#include <QTimer>

struct AppState;
class AcquisitionWindows;
class Beeper;
class Clock;
class GraphingFunctions;
class MainWindowModel;
class SerialPort;
class StoredPointsController;

// The acquisition commands of the main window: real-time sensing, download of stored readings
// and Stop, with the transmission watchdog and the alarm beep. The mode is nothing but the check
// marks of mnuSenseTemperature and mnuDownloadData.
class Acquisition : public QObject {
    Q_OBJECT
public:
    Acquisition(AppState& state, MainWindowModel& main, SerialPort& port, GraphingFunctions& chart,
        Prompter& prompter, Clock& clock, Beeper& beeper, AcquisitionWindows& windows,
        QObject* parent = nullptr);

    void setStoredPoints(StoredPointsController* storedPoints) { storedPoints_ = storedPoints; }

    // Opens (start) or closes the port, dropping whatever waited in its buffers. False when the
    // port could not be opened; the reason is told to the operator.
    bool AcquireData(bool start);

    void mnuSenseTemperature_Click();
    void mnuDownloadData_Click();
    // The download mode's menus, without bringing up the stored points window.
    void beginDownloadMode();
    void mnuStop_Click();

    // The port closed under an open acquisition: the operator is told, and it stops.
    void portLost();
    // After the receive path has handled what arrived: a file of the run that has stopped being
    // written is told to the operator, once per run and file, from the event loop and not from
    // inside the receive path, so readings go on arriving while the box is open.
    void queueUnwrittenFilesReport();
    void reportUnwrittenFiles();
    // Shows a box that halts the acquisition, then runs Stop. While it is open the watchdog shows
    // no box of its own and the receive path takes nothing: what arrives meanwhile is dropped
    // with the port when Stop closes it.
    void halt(
        const QString& title, const QString& text, Prompter::Icon icon = Prompter::Icon::None);
    bool halting() const { return haltBoxes_ > 0; }

    void tmrCheckTransmission_Timer();
    void tmrBeep_Timer();

    QTimer& tmrCheckTransmission() { return tmrCheckTransmission_; }
    QTimer& tmrBeep() { return tmrBeep_; }
    LastObtainedFile& lastObtainedFile() { return lastObtained_; }
    LiveLog& liveLog() { return liveLog_; }
    bool TransmissionLost = false;

    bool realTimeMode() const;
    bool downloadMode() const;
    bool isUnloadingStoredPoints() const { return unloadingStoredPoints_; }

    // How often the watchdog looks; it compares whole seconds, so a finer tick buys nothing.
    static constexpr int WatchdogIntervalMs = 200;
    static constexpr int BeepIntervalMs = 250;

signals:
    // The port was opened or closed by the acquisition commands.
    void portStateChanged(bool open);

private:
    void reinitializeChart();
    bool audibleAlarmOn() const;
    void showHaltBox(const Prompter::Message& box);

    AppState& state_;
    MainWindowModel& main_;
    SerialPort& port_;
    GraphingFunctions& chart_;
    Prompter& prompter_;
    Clock& clock_;
    Beeper& beeper_;
    AcquisitionWindows& windows_;
    StoredPointsController* storedPoints_ = nullptr;
    LastObtainedFile lastObtained_;
    LiveLog liveLog_;
    QTimer tmrCheckTransmission_;
    QTimer tmrBeep_;
    int haltBoxes_ = 0;
    // This run's files already told as not written, and whether a report waits in the queue.
    bool toldLastObtained_ = false;
    bool toldLiveLog_ = false;
    bool unwrittenReportQueued_ = false;
    bool unloadingStoredPoints_ = false;
};
