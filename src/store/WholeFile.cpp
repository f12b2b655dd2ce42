#include "WholeFile.h"

#include <QFile>
#include <QSaveFile>

namespace WholeFile {

bool Write(const QString& path, const QByteArray& bytes, bool append)
{
    QByteArray before;
    if (append && QFile::exists(path)) {
        // Appending rewrites the whole file too, so a failure cannot cut the old content short.
        QFile old(path);
        if (!old.open(QIODevice::ReadOnly))
            return false;
        before = old.readAll();
        if (old.error() != QFileDevice::NoError)
            return false;
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    if (!before.isEmpty() && file.write(before) != before.size()) {
        file.cancelWriting();
        return false;
    }
    if (file.write(bytes) != bytes.size()) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

} // namespace WholeFile
