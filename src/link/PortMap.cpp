#include "PortMap.h"

#include <QFile>

namespace {
// A port file is a few short lines; anything much larger is not one.
constexpr qint64 MaxFileSize = 64 * 1024;

QString pathIn(const QString& directory)
{
    return directory + QLatin1Char('/') + PortMap::fileName();
}
} // namespace

QString PortMap::defaultDevice(int number)
{
    if (number < 1)
        return {};
    return QStringLiteral("/dev/ttyS%1").arg(number - 1);
}

PortMap::PortMap()
{
    for (int n = 1; n <= PortCount; ++n)
        devices_.push_back(defaultDevice(n));
}

QString PortMap::normalizedDevice(const QString& text)
{
    const QString device = text.trimmed();
    if (device.isEmpty())
        return {};
    // Device paths are plain ASCII; anything else is a damaged file or a slip of the keyboard.
    for (const QChar c : device) {
        if (c.unicode() < 0x21 || c.unicode() > 0x7E)
            return {};
    }
    if (device.startsWith(QLatin1Char('/')))
        return device;
    if (device.contains(QLatin1Char('/')))
        return {};
    return QStringLiteral("/dev/") + device;
}

void PortMap::load(const QString& programDirectory)
{
    devices_.clear();
    for (int n = 1; n <= PortCount; ++n)
        devices_.push_back(defaultDevice(n));

    QFile file(pathIn(programDirectory));
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QByteArray content = file.read(MaxFileSize);
    // CR LF is what we write, but a file edited by hand may end its lines in LF or CR alone.
    QString text = QString::fromUtf8(content);
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size() && i < MaxPortNumber; ++i) {
        const QString device = normalizedDevice(lines.at(i));
        const int number = i + 1;
        if (number > int(devices_.size())) {
            // Lines past the defaults count only when they name a device.
            if (device.isEmpty())
                continue;
            while (int(devices_.size()) < number)
                devices_.push_back(defaultDevice(int(devices_.size()) + 1));
        }
        if (!device.isEmpty())
            devices_[size_t(i)] = device;
    }
}

WholeFile::Result PortMap::save(const QString& programDirectory) const
{
    QByteArray content;
    for (const QString& device : devices_)
        content += device.toUtf8() + "\r\n";
    return WholeFile::Write(pathIn(programDirectory), content);
}

QString PortMap::device(int number) const
{
    const auto override = overrides_.constFind(number);
    if (override != overrides_.constEnd())
        return *override;
    return storedDevice(number);
}

QString PortMap::storedDevice(int number) const
{
    if (number >= 1 && number <= int(devices_.size()))
        return devices_[size_t(number - 1)];
    return defaultDevice(number);
}

void PortMap::setDevice(int number, const QString& device)
{
    if (number < 1 || number > MaxPortNumber)
        return;
    overrides_.remove(number);
    while (int(devices_.size()) < number)
        devices_.push_back(defaultDevice(int(devices_.size()) + 1));
    const QString normalized = normalizedDevice(device);
    devices_[size_t(number - 1)] = normalized.isEmpty() ? defaultDevice(number) : normalized;
}

void PortMap::setRunOverride(int number, const QString& device)
{
    if (number < 1 || number > MaxPortNumber)
        return;
    const QString normalized = normalizedDevice(device);
    if (normalized.isEmpty())
        overrides_.remove(number);
    else
        overrides_.insert(number, normalized);
}
