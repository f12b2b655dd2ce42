#pragma once

#include "RecordParser.h"
#include "RecordReader.h"

#include <QString>

struct AppState;
class Acquisition;
class AcquisitionWindows;
class Clock;
class DataPointStore;
class GraphingFunctions;
class MainWindowModel;
class Prompter;
class SerialPort;
class StoredPointsController;

// Applies the instrument's records to the program: RecordReader assembles them, ParseRecord says
// what each is against the acquisition mode, and this hands it on: a mode error or blank lines
// halt the acquisition; a parameter block is loaded; a reading goes to the bar, the readout with
// its alarm colours and beep, the chart and the files; a stored point goes to the store.
class ReceiveHandler {
public:
    ReceiveHandler(AppState& state, MainWindowModel& main, SerialPort& port,
        Acquisition& acquisition, GraphingFunctions& chart, DataPointStore& store,
        Prompter& prompter, Clock& clock, AcquisitionWindows& windows);

    void setStoredPoints(StoredPointsController* storedPoints) { storedPoints_ = storedPoints; }

    // One received character.
    void IR_Comm_OnComm(char c);
    // Takes every character waiting at the port. The handler is never re-entered: what arrives
    // while one of its own boxes is open waits for the box and is taken in order after it. While
    // a box that halts the acquisition is open nothing is taken (Stop then drops it); any other
    // box or dialog leaves the characters flowing.
    void pump();
    bool pumping() const { return pumping_; }

    // Applies a whole block (all 11 fields) to the parameters, their labels, the last-obtained
    // file and the chart; a block cut short changes nothing and gives false.
    bool LoadParameterBlock(const QString& block);
    // Empties the record being assembled and the blank-line guard.
    void clearReceiveMembers();

    // The record being assembled.
    const RecordReader& reader() const { return reader_; }

private:
    void finishRecord(Record record);
    void haltOnModeError(ModeError error);
    void showReading(qint16 temperature);
    void refreshParameterLabels();

    AppState& state_;
    MainWindowModel& main_;
    SerialPort& port_;
    Acquisition& acquisition_;
    GraphingFunctions& chart_;
    DataPointStore& store_;
    Prompter& prompter_;
    Clock& clock_;
    AcquisitionWindows& windows_;
    StoredPointsController* storedPoints_ = nullptr;
    RecordReader reader_;
    BlankLineGuard blankLines_;
    bool pumping_ = false;
};
