#include "DataFilesController.h"

#include "base/AppState.h"
#include "base/Prompter.h"
#include "base/Services.h"
#include "base/StringUtils.h"
#include "store/DataPointFiles.h"
#include "store/DataPointStore.h"
#include "store/LastObtainedFile.h"
#include "store/SpreadsheetExport.h"
#include "store/TextExport.h"

DataFilesController::DataFilesController(AppState& state, DataPointStore& store, Prompter& prompter,
    Launcher& launcher, TextExport& text, SpreadsheetExport& spreadsheet, QObject* parent)
    : QObject(parent)
    , state_(state)
    , store_(store)
    , prompter_(prompter)
    , launcher_(launcher)
    , text_(text)
    , spreadsheet_(spreadsheet)
{
}

void DataFilesController::mnuSaveFile_Click() { text_.SaveFile(); }

void DataFilesController::mnuLoadFile_Click()
{
    Prompter::FileChoice choice;
    choice.title = QStringLiteral("LOAD FILE");
    choice.directory = state_.ProgramDirectory;
    ShowInNotepad(prompter_.openFileName(choice));
}

void DataFilesController::mnuNewAcquiredDataPoints_Click()
{
    ShowInNotepad(state_.filePath(QString::fromLatin1(LastObtainedFile::FileName)));
}

void DataFilesController::mnuDownloadedDataPoints_Click()
{
    // The kept download comes back into the store, ready to be saved again, unless a download
    // is on hand in the stored points window.
    const QString path = state_.filePath(QString::fromLatin1(DataPointFiles::StorageFileName));
    if (!state_.DownloadFromWindow
        && LoadDataPointStorage(state_, store_) == DataPointFiles::Loaded::TooLarge) {
        prompter_.message(QStringLiteral("FILE TOO LARGE"),
            path + StringUtils::CrLf
                + QStringLiteral("IS LARGER THAN %1 MB, THE LARGEST FILE OF STORED POINTS THE "
                                 "PROGRAM READS.")
                      .arg(DataPointFiles::MaxStorageBytes / (1024 * 1024))
                + StringUtils::CrLf
                + QStringLiteral("THE DOWNLOADED DATA POINTS HAVE NOT BEEN LOADED."),
            Prompter::Buttons::Ok, Prompter::Icon::Exclamation);
    }
    ShowInNotepad(path);
}

void DataFilesController::ShowInNotepad(const QString& fileName)
{
    if (!editors.FindNotepad(NotepadPath)) {
        prompter_.message(QStringLiteral("CANNOT FIND NOTEPAD."),
            QStringLiteral("NOTEPAD CANNOT BE FOUND IN STANDARD LOCATION, ") + StringUtils::CrLf
                + QStringLiteral("PLEASE LOCATE IT WITH THE NEXT DIALOG"));
        Prompter::FileChoice choice;
        choice.title = QStringLiteral("PLEASE LOCATE NOTEPAD.EXE");
        NotepadPath = prompter_.openFileName(choice);
    }
    if (NotepadPath.isEmpty()) {
        prompter_.message(QStringLiteral("INVALID FILENAME RECEIVED"),
            QStringLiteral("INVALID FILE NAME, PLEASE TRY AGAIN"));
        return;
    }
    QStringList arguments = editors.argumentsFor(NotepadPath);
    if (!fileName.isEmpty())
        arguments << fileName;
    launcher_.startDetached(NotepadPath, arguments);
}

void DataFilesController::mnuTextStamp_Click()
{
    std::optional<QString> answer
        = prompter_.inputBox(QStringLiteral("PLEASE ENTER YOUR TEXT STAMP..."),
            QStringLiteral("TEXT STAMP ENTRY"), QString());
    QString stamp = answer.value_or(QString());
    // A stamp is one line of its own wherever it is written.
    stamp.remove(StringUtils::Cr).remove(StringUtils::Lf);
    if (stamp.isEmpty()) {
        state_.TextStamp.clear();
        return;
    }
    state_.TextStamp = StringUtils::Bel + stamp;
    // It marks the readings on hand; a real-time run and a download also begin with it.
    if (!store_.isEmpty())
        store_.append(StringUtils::CrLf + state_.TextStamp + StringUtils::CrLf);
}

void DataFilesController::mnuCreateExcelFile_Click() { spreadsheet_.CreateExcelFile(); }
