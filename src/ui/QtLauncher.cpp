#include "QtLauncher.h"

#include <QDesktopServices>
#include <QProcess>
#include <QUrl>

bool QtLauncher::startDetached(const QString& program, const QStringList& arguments)
{
    if (program.isEmpty())
        return false;
    // Each argument goes to the program as it is: blanks and quotes in file names need no
    // quoting because no shell parses them.
    return QProcess::startDetached(program, arguments);
}

bool QtLauncher::openDocument(const QString& path)
{
    if (path.isEmpty())
        return false;
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}
