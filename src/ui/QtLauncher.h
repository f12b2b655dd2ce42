#pragma once

#include "base/Services.h"

// Starts programs with QProcess, without a shell, and opens documents with the desktop's viewer.
class QtLauncher : public Launcher {
public:
    QtLauncher() = default;

    bool startDetached(const QString& program, const QStringList& arguments) override;
    bool openDocument(const QString& path) override;
};
