#include "TextEditorLocator.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcessEnvironment>

namespace {

constexpr qint64 MaxEntrySize = 1024 * 1024;

QStringList envList(const QProcessEnvironment& env, const char* name, const QString& fallback)
{
    QString value = env.value(QString::fromLatin1(name));
    if (value.isEmpty())
        value = fallback;
    return value.split(QLatin1Char(':'), Qt::SkipEmptyParts);
}

bool isProgram(const QString& path)
{
    const QFileInfo info(path);
    return info.isFile() && info.isExecutable();
}

// The values of `key` in the group `group` of a freedesktop key file (mimeapps.list,
// mimeinfo.cache, a desktop entry), or empty.
QString keyFileValue(const QString& path, const QString& group, const QString& key)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > MaxEntrySize)
        return {};
    bool inGroup = false;
    const QString wanted = QLatin1Char('[') + group + QLatin1Char(']');
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        if (line.startsWith(QLatin1Char('['))) {
            inGroup = line == wanted;
            continue;
        }
        if (!inGroup)
            continue;
        const qsizetype eq = line.indexOf(QLatin1Char('='));
        if (eq > 0 && line.left(eq).trimmed() == key)
            return line.mid(eq + 1).trimmed();
    }
    return {};
}

} // namespace

const QStringList TextEditorLocator::CommonEditors = { QStringLiteral("gnome-text-editor"),
    QStringLiteral("gedit"), QStringLiteral("kate"), QStringLiteral("kwrite"),
    QStringLiteral("mousepad"), QStringLiteral("pluma"), QStringLiteral("xed"),
    QStringLiteral("featherpad"), QStringLiteral("leafpad"), QStringLiteral("geany") };

EditorSearch EditorSearch::fromEnvironment()
{
    const QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    const QString home = QDir::homePath();
    EditorSearch search;
    search.configDirs = envList(env, "XDG_CONFIG_HOME", home + QStringLiteral("/.config"))
        + envList(env, "XDG_CONFIG_DIRS", QStringLiteral("/etc/xdg"));
    search.dataDirs = envList(env, "XDG_DATA_HOME", home + QStringLiteral("/.local/share"))
        + envList(env, "XDG_DATA_DIRS", QStringLiteral("/usr/local/share:/usr/share"));
    search.pathDirs = envList(env, "PATH", QStringLiteral("/usr/local/bin:/usr/bin:/bin"));
    for (const QString& desktop : envList(env, "XDG_CURRENT_DESKTOP", QString()))
        search.desktops << desktop.toLower();
    return search;
}

TextEditorLocator::TextEditorLocator(EditorSearch search)
    : search_(std::move(search))
{
}

EditorCommand TextEditorLocator::ParseExec(const QString& exec)
{
    // Words split at blanks; double quotes group, a backslash inside them escapes.
    QStringList words;
    QString word;
    bool quoted = false;
    bool inWord = false;
    for (qsizetype i = 0; i < exec.size(); ++i) {
        const QChar c = exec.at(i);
        if (quoted) {
            if (c == QLatin1Char('\\') && i + 1 < exec.size())
                word += exec.at(++i);
            else if (c == QLatin1Char('"'))
                quoted = false;
            else
                word += c;
        } else if (c == QLatin1Char('"')) {
            quoted = inWord = true;
        } else if (c.isSpace()) {
            if (inWord)
                words << word;
            word.clear();
            inWord = false;
        } else {
            word += c;
            inWord = true;
        }
    }
    if (inWord)
        words << word;

    EditorCommand command;
    // "env NAME=value program ...": the program is the first word that is no assignment.
    qsizetype first = 0;
    if (!words.isEmpty() && words.first() == QLatin1String("env")) {
        first = 1;
        while (first < words.size() && words.at(first).contains(QLatin1Char('=')))
            ++first;
    }
    if (first >= words.size())
        return command;
    command.program = words.at(first);
    for (qsizetype i = first + 1; i < words.size(); ++i) {
        const QString& w = words.at(i);
        if (w.startsWith(QLatin1Char('%')) || w.startsWith(QLatin1String("@@")))
            continue;
        command.arguments << w;
    }
    return command;
}

QString TextEditorLocator::onPath(const QString& name) const
{
    if (name.isEmpty() || name.contains(QLatin1Char('/')))
        return {};
    for (const QString& dir : search_.pathDirs) {
        const QString candidate = dir + QLatin1Char('/') + name;
        if (isProgram(candidate))
            return candidate;
    }
    return {};
}

QString TextEditorLocator::resolve(const QString& program) const
{
    if (program.startsWith(QLatin1Char('/')))
        return isProgram(program) ? program : QString();
    return onPath(program);
}

std::optional<EditorCommand> TextEditorLocator::fromDesktopEntry(const QString& id) const
{
    if (id.isEmpty() || id.contains(QLatin1String("..")))
        return std::nullopt;
    const QString group = QStringLiteral("Desktop Entry");
    for (const QString& dir : search_.dataDirs) {
        const QString path = dir + QStringLiteral("/applications/") + id;
        if (!QFileInfo::exists(path))
            continue;
        // The first entry of that name hides those after it, usable or not.
        if (keyFileValue(path, group, QStringLiteral("Hidden")) == QLatin1String("true")
            || keyFileValue(path, group, QStringLiteral("Terminal")) == QLatin1String("true"))
            return std::nullopt;
        EditorCommand command = ParseExec(keyFileValue(path, group, QStringLiteral("Exec")));
        command.program = resolve(command.program);
        if (command.program.isEmpty())
            return std::nullopt;
        return command;
    }
    return std::nullopt;
}

std::optional<EditorCommand> TextEditorLocator::registeredEditor() const
{
    const QString mime = QStringLiteral("text/plain");
    QStringList lists;
    for (const QString& dir : search_.configDirs) {
        for (const QString& desktop : search_.desktops)
            lists << dir + QLatin1Char('/') + desktop + QStringLiteral("-mimeapps.list");
        lists << dir + QStringLiteral("/mimeapps.list");
    }
    for (const QString& dir : search_.dataDirs)
        lists << dir + QStringLiteral("/applications/mimeapps.list");

    auto firstUsable = [&](const QString& value) -> std::optional<EditorCommand> {
        for (const QString& id : value.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
            if (auto command = fromDesktopEntry(id.trimmed()))
                return command;
        }
        return std::nullopt;
    };
    for (const char* group : { "Default Applications", "Added Associations" }) {
        for (const QString& list : lists) {
            if (auto command = firstUsable(keyFileValue(list, QString::fromLatin1(group), mime)))
                return command;
        }
    }
    for (const QString& dir : search_.dataDirs) {
        const QString cache = dir + QStringLiteral("/applications/mimeinfo.cache");
        if (auto command = firstUsable(keyFileValue(cache, QStringLiteral("MIME Cache"), mime)))
            return command;
    }
    return std::nullopt;
}

bool TextEditorLocator::FindNotepad(QString& path)
{
    if (!path.isEmpty() && isProgram(path))
        return true;
    if (auto command = registeredEditor()) {
        found_ = *command;
        path = found_.program;
        return true;
    }
    for (const QString& name : CommonEditors) {
        const QString candidate = onPath(name);
        if (!candidate.isEmpty()) {
            found_ = { candidate, {} };
            path = candidate;
            return true;
        }
    }
    path.clear();
    return false;
}

QStringList TextEditorLocator::argumentsFor(const QString& program) const
{
    return program == found_.program ? found_.arguments : QStringList();
}
