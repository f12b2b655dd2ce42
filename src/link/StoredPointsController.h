#pragma once

#include "StoredPointsModel.h"

#include <QObject>
#include <QTimer>

struct AppState;
class Acquisition;
class Clock;
class DataPointStore;
class SpreadsheetExport;
class TextExport;

// The stored points window's handlers: the start/stop button of the transfer, the blinking
// label while records arrive, and the clear button.
class StoredPointsController : public QObject {
    Q_OBJECT
public:
    StoredPointsController(AppState& state, StoredPointsModel& model, DataPointStore& store,
        Acquisition& acquisition, Clock& clock, QObject* parent = nullptr);

    void Form_Load();
    void Form_Unload();
    void cmdStartDownload_Click();
    void cmdClearAcqPts_Click();
    void cmdSaveToTxtFile_Click();
    void cmdSaveToExcel_Click();
    void BlinkTimer_Timer();
    // A record was stored: the label says so and starts blinking, and the counts grow.
    void showReceiving(const QString& record);

    bool isReceiving() const;
    // The exports behind the two save buttons.
    void setFileCommands(TextExport* text, SpreadsheetExport* spreadsheet)
    {
        text_ = text;
        spreadsheet_ = spreadsheet;
    }
    QTimer& BlinkTimer() { return blinkTimer_; }

    static constexpr int BlinkIntervalMs = 500;

private:
    void showCounts();

    AppState& state_;
    StoredPointsModel& model_;
    DataPointStore& store_;
    Acquisition& acquisition_;
    Clock& clock_;
    QTimer blinkTimer_;
    TextExport* text_ = nullptr;
    SpreadsheetExport* spreadsheet_ = nullptr;
    int readings_ = 0;
    int emptyLocations_ = 0;
};
