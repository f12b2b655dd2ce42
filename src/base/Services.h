#pragma once

#include <QString>
#include <QStringList>

// Sounds the alarm tone once.
class Beeper {
public:
    virtual ~Beeper() = default;
    virtual void beep() = 0;
};

// Starts other programs without waiting for them, and opens documents in their viewers.
class Launcher {
public:
    virtual ~Launcher() = default;
    // Starts `program` with `arguments`, each passed as one argument, no shell involved.
    virtual bool startDetached(const QString& program, const QStringList& arguments) = 0;
    // Opens a document in the desktop's viewer for it.
    virtual bool openDocument(const QString& path) = 0;
};

// Facts about this computer.
class SystemInfo {
public:
    virtual ~SystemInfo() = default;
    virtual quint64 totalPhysicalMemory() const = 0;
    virtual quint64 availablePhysicalMemory() const = 0;
    virtual int processorType() const = 0;
};
