#include "TextExport.h"

#include "DataPointFiles.h"
#include "DataPointStore.h"
#include "FileHeader.h"
#include "base/AppState.h"
#include "base/Prompter.h"
#include "base/StringUtils.h"
#include "base/ViewModel.h"

#include <QFileInfo>

TextExport::TextExport(const AppState& state, const DataPointStore& store, const Clock& clock,
    Prompter& prompter, const Control& storedPointsLabel)
    : state_(state)
    , store_(store)
    , clock_(clock)
    , prompter_(prompter)
    , storedPointsLabel_(storedPointsLabel)
{
}

QString TextExport::FileText() const
{
    QString text;
    if (storedPointsLabel_.caption() != QLatin1String(NoHeaderCaption))
        text = BuildFileHeader(state_, clock_) + StringUtils::CrLf;
    return text + store_.text() + StringUtils::CrLf;
}

WholeFile::Result TextExport::CreateTextFile2(const QString& fileName, bool append) const
{
    if (fileName.isEmpty())
        return { false, QString() };
    return WholeFile::Write(fileName, FileText().toLatin1(), append);
}

namespace {
void tellNotSaved(Prompter& prompter, const QString& title, const QString& what,
    const QString& path, const QString& reason)
{
    prompter.message(title,
        what + QStringLiteral(" COULD NOT BE WRITTEN TO") + StringUtils::CrLf + path
            + StringUtils::CrLf + reason,
        Prompter::Buttons::Ok, Prompter::Icon::Exclamation);
}
} // namespace

void TextExport::KeepDownload()
{
    const WholeFile::Result saved = SaveDataPointStorage(state_, store_, false);
    if (!saved) {
        tellNotSaved(prompter_, QStringLiteral("DOWNLOADED DATA NOT SAVED"),
            QStringLiteral("THE DOWNLOADED DATA POINTS"),
            state_.filePath(QString::fromLatin1(DataPointFiles::StorageFileName)), saved.reason);
    }
}

void TextExport::SaveFile()
{
    if (store_.isEmpty()) {
        prompter_.message(
            QStringLiteral("NO DATA TO SAVE"), QStringLiteral("YOU HAVE NO DATA TO SAVE"));
        return;
    }
    Prompter::FileChoice choice;
    choice.title = QStringLiteral("SAVE FILE");
    choice.filter = QStringLiteral("*.txt");
    choice.defaultExtension = QStringLiteral("txt");
    choice.directory = state_.ProgramDirectory;
    const QString fileName = prompter_.saveFileName(choice);
    if (fileName.isEmpty())
        return;
    auto answer = Prompter::Answer::No;
    if (QFileInfo(fileName).isFile()) {
        answer = prompter_.message(QStringLiteral("DUPLICATE FILE FOUND"),
            QStringLiteral("THIS ALREADY EXISTS, DO YOU WISH TO APPEND THE DATA?"),
            Prompter::Buttons::YesNoCancel, Prompter::Icon::Question, Prompter::Answer::Cancel);
        if (answer == Prompter::Answer::Cancel)
            return;
    }
    const WholeFile::Result saved = CreateTextFile2(fileName, answer == Prompter::Answer::Yes);
    if (!saved) {
        tellNotSaved(prompter_, QStringLiteral("FILE NOT SAVED"), QStringLiteral("THE DATA"),
            fileName, saved.reason);
    }
}
