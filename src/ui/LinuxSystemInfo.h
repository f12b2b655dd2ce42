#pragma once

#include "base/Services.h"

#include <QString>

// Memory and processor facts of this computer. Memory comes from /proc/meminfo (MemTotal and
// MemAvailable, given there in KiB). The processor is told by the type numbers the program has
// always shown: 8664 for x86-64, 586 for 32-bit x86, 2200 for Itanium; any other architecture
// shows 0, for "not one of those".
class LinuxSystemInfo : public SystemInfo {
public:
    explicit LinuxSystemInfo(QString memInfoPath = QStringLiteral("/proc/meminfo"));

    quint64 totalPhysicalMemory() const override;
    quint64 availablePhysicalMemory() const override;
    int processorType() const override;

    // The type number for an architecture name as QSysInfo::currentCpuArchitecture() gives it.
    static int processorTypeFor(const QString& architecture);
    // The value of `key` ("MemTotal") in meminfo text, in bytes; 0 when missing.
    static quint64 memInfoBytes(const QByteArray& memInfo, const QByteArray& key);

private:
    quint64 read(const QByteArray& key) const;
    QString memInfoPath_;
};
