#pragma once

#include "base/WholeFile.h"

#include <QMap>
#include <QString>
#include <vector>

// Which device each port number stands for: "COM 1" is /dev/ttyS0 and "COM 2" /dev/ttyS1 unless
// the operator bound them elsewhere. The bindings live in "Ports.dat" in the program directory,
// line n holding the device of COM n, so the settings file keeps its fixed layout.
class PortMap {
public:
    static constexpr int PortCount = 2;
    // Beyond this a file is taken as garbage rather than read on.
    static constexpr int MaxPortNumber = 99;
    static QString fileName() { return QStringLiteral("Ports.dat"); }
    // The device a port number means when nothing else is bound: COM n is /dev/ttyS(n-1).
    static QString defaultDevice(int number);

    PortMap();

    // Reads the bindings leniently: a missing file, a short one or a line that is no device
    // name leaves the defaults for those numbers. Run-time overrides are kept.
    void load(const QString& programDirectory);
    // Writes every binding (never the run-time overrides) at once, so a crash or a full disk
    // cannot leave half a file behind.
    WholeFile::Result save(const QString& programDirectory) const;

    // The device for `number` this run: the run-time override when there is one, else the
    // binding, else the default. Empty for numbers below 1.
    QString device(int number) const;
    // The device for `number` as kept in Ports.dat.
    QString storedDevice(int number) const;
    // Binds `number` to `device` (an empty device restores the default). Also drops a run-time
    // override of that number: the operator's latest choice wins.
    void setDevice(int number, const QString& device);
    // Binds `number` to `device` for this run only; save() leaves it out.
    void setRunOverride(int number, const QString& device);
    bool hasRunOverride(int number) const { return overrides_.contains(number); }

    // A device name as typed or read: trimmed, "/dev/" put before a bare name; empty when the
    // text cannot be a device (blank, inner blanks, anything but printable ASCII).
    static QString normalizedDevice(const QString& text);

private:
    std::vector<QString> devices_; // index n - 1 holds COM n
    QMap<int, QString> overrides_;
};
