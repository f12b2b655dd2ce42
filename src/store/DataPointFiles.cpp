#include "DataPointFiles.h"

#include "DataPointStore.h"
#include "base/AppState.h"
#include "base/StringUtils.h"

#include <QFile>

WholeFile::Result SaveDataPointStorage(
    const AppState& state, const DataPointStore& store, bool append)
{
    return WholeFile::Write(state.filePath(QString::fromLatin1(DataPointFiles::StorageFileName)),
        (store.text() + StringUtils::CrLf).toLatin1(), append);
}

DataPointFiles::Loaded LoadDataPointStorage(const AppState& state, DataPointStore& store)
{
    using DataPointFiles::Loaded;
    QFile file(state.filePath(QString::fromLatin1(DataPointFiles::StorageFileName)));
    if (!file.open(QIODevice::ReadOnly))
        return Loaded::Unreadable;
    if (file.size() > DataPointFiles::MaxStorageBytes)
        return Loaded::TooLarge;
    QString text;
    while (!file.atEnd()) {
        QByteArray line = file.readLine();
        while (line.endsWith('\n') || line.endsWith('\r'))
            line.chop(1);
        if (line.isEmpty())
            continue;
        text += QString::fromLatin1(line);
        text += StringUtils::CrLf;
    }
    if (file.error() != QFileDevice::NoError)
        return Loaded::Unreadable;
    store.setText(text);
    return Loaded::Yes;
}
