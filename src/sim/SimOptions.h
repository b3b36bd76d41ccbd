#pragma once

#include "sim/SimFaults.h"

#include <QString>
#include <QStringList>

#include <optional>

// The command line of ktr-sim (the arguments after the program name):
// where it runs, pacing, the state file, the time scale and the faults.
struct SimOptions {
    enum class Front {
        Pty,
        Device
    };

    Front front = Front::Pty;
    QString device;
    bool pace = false;
    QString stateFile;
    double timeScale = 1.0;
    SimFaults faults;
    bool help = false;

    // Empty when the arguments are wrong; error then says why, in the
    // active language.
    static std::optional<SimOptions> parse(const QStringList& args, QString* error);

    // The language of the run: --lang ja or en, else Japanese on a system
    // whose country is Japan. 1 Japanese, 2 English.
    static qint16 language(const QStringList& args);

    // The help text, lines joined with "\n".
    static QString usage();

    // Every option name parse accepts, so the help can be checked against it.
    static QStringList optionNames();
};
