#pragma once

#include "Workbook.h"

#include <QByteArray>

struct AppState;
class Clock;
class DataPointStore;
class Prompter;

// The sheet of a real-time run, from the last-obtained data file: tab-led header and parameter
// lines become headings, a text stamp line a heading of its own, and each line whose first field
// is a number a row of (row × interval, reading).
WorkbookSheet SheetFromLastObtained(const QByteArray& file, double interval);
// The sheet of a download, from the store text: each stored point a row of (its location
// number, its reading); an empty location, or a reading that is no number, an empty cell.
WorkbookSheet SheetFromStore(const QString& storeText, const QStringList& headings);

// The spreadsheet commands: the main menu's export of the last real-time run and the stored
// points window's export of the downloaded readings.
class SpreadsheetExport {
public:
    SpreadsheetExport(
        const AppState& state, const DataPointStore& store, const Clock& clock, Prompter& prompter);

    void setWriter(WorkbookWriter* writer) { writer_ = writer; }

    // "&CREATE EXCEL FILE WITH ACQUIRED POINTS": the readings of "LAST_OBTAINED_DATA_PTS.dat".
    void CreateExcelFile();
    // "SAVE TO EXCEL FILE": the downloaded readings in the store.
    void CreateExcelFileForDownLoadedData();

private:
    void save(const WorkbookSheet& sheet);

    const AppState& state_;
    const DataPointStore& store_;
    const Clock& clock_;
    Prompter& prompter_;
    WorkbookWriter* writer_ = nullptr;
};
