#include "HelpServices.h"

#include "base/AppState.h"
#include "base/Prompter.h"
#include "base/Services.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

QString HelpServices::ShellErrorText(int code)
{
    if (code >= 33)
        return QString();
    switch (code) {
    case 2:
        return QStringLiteral("File not found");
    case 3:
        return QStringLiteral("Path not found");
    case 5:
        return QStringLiteral("Access denied");
    case 8:
        return QStringLiteral("Out of memory");
    case 11:
        return QStringLiteral("Invalid EXE file or error in EXE image");
    case 26:
        return QStringLiteral("A sharing violation occurred");
    case 27:
        return QStringLiteral("Incomplete or invalid file association");
    case 28:
        return QStringLiteral("DDE Time out");
    case 29:
        return QStringLiteral("DDE transaction failed");
    case 30:
        return QStringLiteral("DDE busy");
    case 31:
        return QStringLiteral("No association for file extension");
    case 32:
        return QStringLiteral("DLL not found");
    default:
        return QStringLiteral("Unknown error");
    }
}

QStringList HelpServices::systemInfoViewers()
{
    return { QStringLiteral("hardinfo2"), QStringLiteral("hardinfo"), QStringLiteral("kinfocenter"),
        QStringLiteral("gnome-system-monitor"), QStringLiteral("mate-system-monitor"),
        QStringLiteral("xfce4-taskmanager"), QStringLiteral("lshw-gtk") };
}

HelpServices::HelpServices(AppState& state, Launcher& launcher, Prompter& prompter)
    : state_(state)
    , launcher_(launcher)
    , prompter_(prompter)
{
}

int HelpServices::ShellOpenDocument(const QString& path)
{
    const QFileInfo file(path);
    if (!file.absoluteDir().exists())
        return PathNotFound;
    if (!file.exists())
        return FileNotFound;
    if (!file.isReadable())
        return AccessDenied;
    return launcher_.openDocument(file.absoluteFilePath()) ? Opened : NoAssociation;
}

void HelpServices::OpenOnlineManual()
{
    QString path = state_.filePath(manualPath());
    // A program directory without the manual (the usual case when it is a work folder) falls
    // back on the copy installed with the program.
    if (!QFileInfo::exists(path) && !installedManual_.isEmpty()
        && QFileInfo::exists(installedManual_))
        path = installedManual_;
    const int result = ShellOpenDocument(path);
    if (result < 33)
        prompter_.message(defaultTitle(), ShellErrorText(result));
}

QString HelpServices::FindSystemInfoViewer() const
{
    for (const QString& name : systemInfoViewers()) {
        const QString found = QStandardPaths::findExecutable(name, searchPath_);
        if (!found.isEmpty())
            return found;
    }
    return QString();
}

void HelpServices::StartSysInfo()
{
    const QString viewer = FindSystemInfoViewer();
    if (!viewer.isEmpty()) {
        // A viewer that fails to start ends the attempt without a further message.
        launcher_.startDetached(viewer, {});
        return;
    }
    prompter_.message(
        defaultTitle(), QStringLiteral("System Information Is Unavailable At This Time"));
}
