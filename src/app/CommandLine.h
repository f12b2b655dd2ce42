#pragma once

#include <QString>
#include <QStringList>

// What the program was started with.
struct CommandLine {
    bool demo = false;
    bool splash = true;
    bool home = false; // --home: the program directory is ~/TALAVEX (the desktop menu's start)
    bool startupProbe = false; // prints the time to the main window shown, then ends
    QString portDevice; // --port DEVICE: binds the current COM number to DEVICE for this run
    QString error; // set when the arguments could not be understood

    static CommandLine parse(const QStringList& arguments);
    static QString usage();
};
