#pragma once

#include "base/WholeFile.h"

#include <QString>

struct AppState;
class Clock;
class Control;
class DataPointStore;
class Prompter;

// Writes the data point store to text files with the tab-indented header, and the SAVE FILE
// command with its dialogs, which the main menu and the stored points window share.
class TextExport {
public:
    // `storedPointsLabel` is the stored points window's caption label: while it reads
    // "STORED DATA POINTS..." a download is on hand and is written without a header.
    TextExport(const AppState& state, const DataPointStore& store, const Clock& clock,
        Prompter& prompter, const Control& storedPointsLabel);

    // The header (unless a download is on hand) and CR LF, then the store text and CR LF,
    // after the file's content when `append`. When the file could not be written it is as it
    // was, and the result says why.
    WholeFile::Result CreateTextFile2(const QString& fileName, bool append) const;
    // What CreateTextFile2 writes.
    QString FileText() const;
    // SAVE FILE: the save dialog, the append question for an existing file, the write; a
    // failed write is told.
    void SaveFile();
    // Keeps the store in "DPStorage.dat" for the downloaded points view; a failure is told.
    void KeepDownload();

    static constexpr const char* NoHeaderCaption = "STORED DATA POINTS...";

private:
    const AppState& state_;
    const DataPointStore& store_;
    const Clock& clock_;
    Prompter& prompter_;
    const Control& storedPointsLabel_;
};
