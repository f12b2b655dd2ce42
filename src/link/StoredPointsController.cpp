#include "StoredPointsController.h"

#include "Acquisition.h"
#include "TimingUtils.h"
#include "base/AppState.h"
#include "base/Clock.h"
#include "base/StringUtils.h"
#include "store/DataPointFiles.h"
#include "store/DataPointStore.h"
#include "store/SpreadsheetExport.h"
#include "store/TextExport.h"

namespace {
const QString StartCaption = QStringLiteral("START RECEIVING");
const QString StopCaption = QStringLiteral("STOP RECEIVING");
const QString IdleCaption = QStringLiteral("STORED DATA POINTS...");
const QString EmptyLocation = QStringLiteral("EMPTY LOCATION - NO DATA.");

// A line that came from the instrument's memory, not a text stamp.
bool holdsDownloadedPoints(const QString& text)
{
    for (const QString& line : text.split(StringUtils::CrLf)) {
        if (!line.startsWith(StringUtils::Bel)
            && (IsStoredDataPoint(line) || line == EmptyLocation))
            return true;
    }
    return false;
}
} // namespace

StoredPointsController::StoredPointsController(AppState& state, StoredPointsModel& model,
    DataPointStore& store, Acquisition& acquisition, Clock& clock, QObject* parent)
    : QObject(parent)
    , state_(state)
    , model_(model)
    , store_(store)
    , acquisition_(acquisition)
    , clock_(clock)
{
    blinkTimer_.setInterval(BlinkIntervalMs);
    connect(&blinkTimer_, &QTimer::timeout, this, &StoredPointsController::BlinkTimer_Timer);
}

void StoredPointsController::Form_Load()
{
    state_.DownloadFromWindow = true;
    store_.clear();
    // A download begins with the text stamp in force, on a line of its own.
    if (!state_.TextStamp.isEmpty())
        store_.append(state_.TextStamp + StringUtils::CrLf);
    model_.lblAcquiredPoints.setCaption(IdleCaption);
    model_.lblReceivedCounts.setCaption(QString());
    model_.cmdStartDownload.setCaption(StartCaption);
}

void StoredPointsController::Form_Unload()
{
    if (!state_.DownloadFromWindow)
        return;
    // A transfer still running ends with the window, which comes back idle.
    if (isReceiving())
        cmdStartDownload_Click();
    blinkTimer_.stop();
    state_.DownloadFromWindow = false;
    // The downloaded points are kept when the window closes, for the downloaded points view;
    // a window closed without any keeps the points kept before.
    if (holdsDownloadedPoints(store_.text()) && text_)
        text_->KeepDownload();
    // Closing the window ends the download mode, unless that command is what closes it or the
    // download has already ended (a halt or STOP leaves the window open).
    if (acquisition_.downloadMode() && !acquisition_.isUnloadingStoredPoints())
        acquisition_.mnuDownloadData_Click();
}

bool StoredPointsController::isReceiving() const
{
    return model_.cmdStartDownload.caption() != StartCaption;
}

void StoredPointsController::cmdStartDownload_Click()
{
    if (!isReceiving()) {
        // A real-time run holds the line.
        if (acquisition_.realTimeMode())
            return;
        // A window left open after a halt or STOP: back into the download mode first, so that
        // every record is stored.
        if (!acquisition_.downloadMode())
            acquisition_.beginDownloadMode();
        readings_ = 0;
        emptyLocations_ = 0;
        showCounts();
        model_.lblAcquiredPoints.setForeColor(Colors::Red);
        model_.lblAcquiredPoints.setCaption(QStringLiteral("WAITING..."));
        model_.cmdStartDownload.setCaption(StopCaption);
        model_.cmdStartDownload.setBackColor(Colors::Red);
        if (!acquisition_.AcquireData(true)) {
            // Nothing can arrive on a port that did not open: straight back to idle.
            cmdStartDownload_Click();
            return;
        }
        MarkReceiveTime(state_, clock_);
        acquisition_.tmrCheckTransmission().start();
        model_.cmdSaveToTxtFile.setEnabled(false);
        model_.cmdSaveToExcel.setEnabled(false);
        model_.cmdClearAcqPts.setEnabled(false);
        return;
    }
    acquisition_.AcquireData(false);
    model_.lblAcquiredPoints.setForeColor(Colors::Yellow);
    model_.lblAcquiredPoints.setCaption(IdleCaption);
    model_.cmdStartDownload.setCaption(StartCaption);
    model_.cmdStartDownload.setBackColor(Colors::Green);
    MarkReceiveTime(state_, clock_);
    acquisition_.tmrCheckTransmission().stop();
    model_.cmdSaveToTxtFile.setEnabled(true);
    model_.cmdSaveToExcel.setEnabled(true);
    model_.cmdClearAcqPts.setEnabled(true);
    blinkTimer_.stop();
}

void StoredPointsController::cmdClearAcqPts_Click()
{
    store_.clear();
    model_.lblReceivedCounts.setCaption(QString());
}

void StoredPointsController::cmdSaveToTxtFile_Click()
{
    if (text_)
        text_->SaveFile();
}

void StoredPointsController::cmdSaveToExcel_Click()
{
    if (spreadsheet_)
        spreadsheet_->CreateExcelFileForDownLoadedData();
}

void StoredPointsController::BlinkTimer_Timer()
{
    const bool green = model_.lblAcquiredPoints.foreColor() == Colors::Green;
    model_.lblAcquiredPoints.setForeColor(green ? Colors::Red : Colors::Green);
}

void StoredPointsController::showReceiving(const QString& record)
{
    if (record.isEmpty())
        ++emptyLocations_;
    else if (IsStoredDataPoint(record))
        ++readings_;
    showCounts();
    model_.lblAcquiredPoints.setCaption(QStringLiteral("RECEIVING..."));
    if (!blinkTimer_.isActive())
        blinkTimer_.start();
}

void StoredPointsController::showCounts()
{
    const auto count = [](int n, const char* what) {
        return QStringLiteral("%1 %2%3")
            .arg(n)
            .arg(QLatin1String(what))
            .arg(n == 1 ? QString() : QStringLiteral("S"));
    };
    model_.lblReceivedCounts.setCaption(count(readings_, "READING") + QStringLiteral(", ")
        + count(emptyLocations_, "EMPTY LOCATION"));
}
