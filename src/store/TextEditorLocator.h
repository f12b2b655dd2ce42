#pragma once

#include <QString>
#include <QStringList>
#include <optional>

// Where the desktop's text editor is looked for: the freedesktop configuration and data folders
// (the text/plain association and the applications' desktop entries) and the program PATH.
struct EditorSearch {
    QStringList configDirs; // $XDG_CONFIG_HOME, then $XDG_CONFIG_DIRS
    QStringList dataDirs; // $XDG_DATA_HOME, then $XDG_DATA_DIRS
    QStringList pathDirs; // $PATH
    QStringList desktops; // $XDG_CURRENT_DESKTOP, lower case

    static EditorSearch fromEnvironment();
};

// A program and the arguments that go before the file name.
struct EditorCommand {
    QString program;
    QStringList arguments;
};

// Finds the text editor files are shown in. The path found or chosen once is tried first on
// every later use; then the application the desktop registers for plain text, then common
// editors on the PATH. Editors that need a terminal are passed over: they are started without one.
class TextEditorLocator {
public:
    explicit TextEditorLocator(EditorSearch search = EditorSearch::fromEnvironment());

    // True when `path` already names an executable program (it is then left as it is) or an
    // editor was found (`path` is set to it); otherwise `path` is set to "" and false returned.
    bool FindNotepad(QString& path);
    // The arguments the desktop entry of `program` puts before the file name; usually none.
    QStringList argumentsFor(const QString& program) const;

    // The editor registered for text/plain, when its entry names a program that exists.
    std::optional<EditorCommand> registeredEditor() const;
    // `name` resolved on the PATH, or "" when it is not there.
    QString onPath(const QString& name) const;
    // The program and arguments of a desktop entry's Exec line, field codes (%f, %U ...) left out.
    static EditorCommand ParseExec(const QString& exec);

    static const QStringList CommonEditors;

private:
    std::optional<EditorCommand> fromDesktopEntry(const QString& id) const;
    QString resolve(const QString& program) const;

    EditorSearch search_;
    EditorCommand found_;
};
