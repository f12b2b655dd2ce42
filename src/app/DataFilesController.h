#pragma once

#include "store/TextEditorLocator.h"

#include <QObject>
#include <QString>

struct AppState;
class DataPointStore;
class Launcher;
class Prompter;
class SpreadsheetExport;
class TextExport;

// The main window's data file commands: SAVE FILE, LOAD FILE and the two views in the text
// editor, TEXT STAMP, and the spreadsheet of the last real-time run.
class DataFilesController : public QObject {
    Q_OBJECT
public:
    DataFilesController(AppState& state, DataPointStore& store, Prompter& prompter,
        Launcher& launcher, TextExport& text, SpreadsheetExport& spreadsheet,
        QObject* parent = nullptr);

    void mnuSaveFile_Click();
    void mnuLoadFile_Click();
    void mnuNewAcquiredDataPoints_Click();
    void mnuDownloadedDataPoints_Click();
    void mnuTextStamp_Click();
    void mnuCreateExcelFile_Click();

    // Starts the text editor on `fileName` (none when empty), without waiting for it; asks the
    // operator to locate an editor when none is found.
    void ShowInNotepad(const QString& fileName);

    // The editor found or chosen; kept for the rest of the run.
    QString NotepadPath;
    TextEditorLocator editors;

private:
    AppState& state_;
    DataPointStore& store_;
    Prompter& prompter_;
    Launcher& launcher_;
    TextExport& text_;
    SpreadsheetExport& spreadsheet_;
};
