#pragma once

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

// A real-time reading as the instrument sends it: "  1234   DEG F" or the short "  75".
struct RealTimeReading {
    bool valid = false;
    double value = 0.0;
};
RealTimeReading ParseRealTimeReading(const QString& line);
// The value part of a parameter line: the text after the last run of two or more blanks,
// trimmed; the whole line trimmed when there is no such run.
QString ParameterValuePart(const QString& field);
// How a downloaded record is laid out in the store: "#001   75   DEG F" becomes
// "<tab>#001<tab>75<tab>DEG F", one line per record.
QString FormatStoredRecord(const QString& record);

// Assembles the characters from the instrument into records (ended by BEL), classifies each
// record against the acquisition mode and hands it on: parameter block, real-time reading,
// stored reading, blank record.
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

    void LoadParameterBlock(const QString& block);
    // Empties the record being assembled and the blank-line guard.
    void clearReceiveMembers();

    // Characters beyond this in one record are dropped until the next BEL: a line that never
    // ends cannot take all memory. Real records are under 200 characters.
    static constexpr int MaxRecordLength = 64 * 1024;

    QString ReceiveLine;
    bool ParameterBlockFlag = false;
    bool BlankLineArmed = false;
    qint16 BlankLineCount = 0;
    QString ParameterBlockText;
    QString PendingPrefix;
    qint16 PointCounter = 0;

private:
    void finishRecord();
    bool haltOnModeError(const QString& title, const QString& cause);
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
    bool pumping_ = false;
};
