#include "SettingsFile.h"

#include "base/WholeFile.h"

#include <QFile>

namespace SettingsFile {

bool Read(const QString& path, Values& values)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    for (int i = 0; i < Count && !file.atEnd(); ++i) {
        QByteArray line = file.readLine(MaxLineLength + 1);
        if (!line.endsWith('\n')) {
            // An overlong line: skip the rest of it.
            while (!file.atEnd()) {
                const QByteArray rest = file.readLine(64 * 1024);
                if (rest.endsWith('\n'))
                    break;
            }
        }
        while (line.endsWith('\n') || line.endsWith('\r'))
            line.chop(1);
        values[i] = QString::fromLatin1(line.left(MaxLineLength));
    }
    return true;
}

WholeFile::Result Write(const QString& path, const Values& values)
{
    QByteArray bytes;
    for (const QString& value : values)
        bytes += value.toLatin1() + "\r\n";
    return WholeFile::Write(path, bytes);
}

} // namespace SettingsFile
