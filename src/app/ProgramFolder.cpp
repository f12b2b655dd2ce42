#include "ProgramFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

bool ProgramFolder::prepare(const QString& folder, const QString& factorySettings, QString* error)
{
    if (!QDir().mkpath(folder)) {
        if (error)
            *error = QStringLiteral("The folder %1 cannot be made.").arg(folder);
        return false;
    }
    const QFileInfo info(folder);
    if (!info.isWritable()) {
        if (error)
            *error = QStringLiteral("The folder %1 cannot be written.").arg(folder);
        return false;
    }
    const QString seeded = QDir(folder).filePath(QStringLiteral("DefaultSettings.dat"));
    // Without a factory file the program uses the copy built into it, so a failed copy is no
    // reason to stop.
    if (!QFileInfo::exists(seeded) && QFileInfo::exists(factorySettings))
        QFile::copy(factorySettings, seeded);
    return true;
}
