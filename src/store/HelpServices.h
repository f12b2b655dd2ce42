#pragma once

#include <QString>
#include <QStringList>

struct AppState;
class Launcher;
class Prompter;

// The Help menu's two services: the online manual, opened in the desktop's viewer, and the about
// box's system information button.
class HelpServices {
public:
    // Result codes of opening a document; 33 and above mean it opened.
    static constexpr int Opened = 42;
    static constexpr int FileNotFound = 2;
    static constexpr int PathNotFound = 3;
    static constexpr int AccessDenied = 5;
    static constexpr int NoAssociation = 31;

    // The title of boxes that have no title of their own.
    static QString defaultTitle() { return QStringLiteral("TALAVEX"); }
    static QString manualPath() { return QStringLiteral("Web Manual/Index.html"); }
    // The text for a failed open; empty for 33 and above.
    static QString ShellErrorText(int code);
    // System information viewers looked for on PATH, best first.
    static QStringList systemInfoViewers();

    HelpServices(AppState& state, Launcher& launcher, Prompter& prompter);

    // Where the manual is looked for after the program directory: the copy installed with the
    // program. Empty for none.
    void setInstalledManual(const QString& path) { installedManual_ = path; }
    // Where programs are looked for; empty for the system's PATH.
    void setSearchPath(const QStringList& directories) { searchPath_ = directories; }

    // Opens the document in its viewer: a code from the table, 33 or more when it opened.
    int ShellOpenDocument(const QString& path);
    // Opens "Web Manual/Index.html" of the program directory (or the installed copy when the
    // program directory has none); a failure is told in one box.
    void OpenOnlineManual();
    // The first system information viewer found, or an empty string.
    QString FindSystemInfoViewer() const;
    // Starts the system information viewer, or says that there is none.
    void StartSysInfo();

private:
    AppState& state_;
    Launcher& launcher_;
    Prompter& prompter_;
    QString installedManual_;
    QStringList searchPath_;
};
