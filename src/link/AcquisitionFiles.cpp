#include "Acquisition.h"

#include "base/AppState.h"
#include "base/Prompter.h"

#include <QTimer>

// The two files of a real-time run, told when they stop being written.

void Acquisition::queueUnwrittenFilesReport()
{
    const bool untold = (!lastObtained_.failure().isEmpty() && !toldLastObtained_)
        || (!liveLog_.failure().isEmpty() && !toldLiveLog_);
    if (!untold || unwrittenReportQueued_ || !realTimeMode())
        return;
    unwrittenReportQueued_ = true;
    QTimer::singleShot(0, this, [this] {
        unwrittenReportQueued_ = false;
        reportUnwrittenFiles();
    });
}

void Acquisition::reportUnwrittenFiles()
{
    struct RunFile {
        const char* name;
        const QString& failure;
        bool& told;
    };
    const RunFile files[] = {
        { LastObtainedFile::FileName, lastObtained_.failure(), toldLastObtained_ },
        { LiveLog::FileName, liveLog_.failure(), toldLiveLog_ },
    };
    for (const RunFile& file : files) {
        // A run that ended meanwhile, or a file told already, asks nothing.
        if (!realTimeMode() || file.failure.isEmpty() || file.told)
            continue;
        file.told = true;
        const QString text = QStringLiteral("THE READINGS OF THIS RUN ARE NOT BEING WRITTEN TO\r\n")
            + state_.filePath(QString::fromLatin1(file.name)) + QStringLiteral("\r\n")
            + file.failure
            + QStringLiteral(
                "\r\nDO YOU WISH TO STOP THIS RUN?\r\n(NO GOES ON WITH THE CHART ONLY.)");
        const Prompter::Answer answer = prompter_.message(QStringLiteral("DATA FILE NOT WRITTEN"),
            text, Prompter::Buttons::YesNo, Prompter::Icon::Exclamation, Prompter::Answer::No);
        if (answer == Prompter::Answer::Yes && realTimeMode()) {
            mnuStop_Click();
            return;
        }
    }
}
