#pragma once

#include <QString>

// The program directory of a start from the desktop menu, where the current directory is the
// home folder or "/": a folder of its own in the user's home, made on first start and given the
// factory settings.
class ProgramFolder {
public:
    static QString folderName() { return QStringLiteral("TALAVEX"); }
    static QString inHome(const QString& home) { return home + QLatin1Char('/') + folderName(); }

    // Makes `folder` if need be and copies `factorySettings` into it when it has none. False,
    // with the reason, when the folder cannot be made or written.
    static bool prepare(const QString& folder, const QString& factorySettings, QString* error);
};
