#include "LinuxSystemInfo.h"

#include <QFile>
#include <QSysInfo>

LinuxSystemInfo::LinuxSystemInfo(QString memInfoPath)
    : memInfoPath_(std::move(memInfoPath))
{
}

quint64 LinuxSystemInfo::memInfoBytes(const QByteArray& memInfo, const QByteArray& key)
{
    const QList<QByteArray> lines = memInfo.split('\n');
    for (const QByteArray& line : lines) {
        const qsizetype colon = line.indexOf(':');
        if (colon < 0 || line.left(colon).trimmed() != key)
            continue;
        // "MemTotal:       16318412 kB"
        const QList<QByteArray> fields = line.mid(colon + 1).simplified().split(' ');
        bool ok = false;
        const quint64 value = fields.value(0).toULongLong(&ok);
        if (!ok)
            return 0;
        const QByteArray unit = fields.value(1).toLower();
        if (unit == "kb")
            return value * 1024;
        if (unit == "mb")
            return value * 1024 * 1024;
        return value;
    }
    return 0;
}

quint64 LinuxSystemInfo::read(const QByteArray& key) const
{
    QFile file(memInfoPath_);
    // /proc files report a size of 0, so they are read to the end rather than by size.
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return memInfoBytes(file.readAll(), key);
}

quint64 LinuxSystemInfo::totalPhysicalMemory() const { return read("MemTotal"); }

quint64 LinuxSystemInfo::availablePhysicalMemory() const
{
    const quint64 available = read("MemAvailable");
    // Kernels before 3.14 lack MemAvailable; free memory is the nearest they offer.
    return available != 0 ? available : read("MemFree");
}

int LinuxSystemInfo::processorType() const
{
    return processorTypeFor(QSysInfo::currentCpuArchitecture());
}

int LinuxSystemInfo::processorTypeFor(const QString& architecture)
{
    if (architecture == QLatin1String("x86_64"))
        return 8664;
    if (architecture == QLatin1String("i386") || architecture == QLatin1String("i486")
        || architecture == QLatin1String("i586") || architecture == QLatin1String("i686"))
        return 586;
    if (architecture == QLatin1String("ia64"))
        return 2200;
    return 0;
}
