#pragma once

#include <QString>
#include <QStringList>

// The options of ktrctl that come before the command; everything from the
// first word that is not an option on is the command and its arguments.
struct GlobalOptions {
    QString portName;       // --port NAME
    QString unit;           // --unit TEXT: the unit being commissioned
    bool simulator = false; // --simulator
    qint16 language = 0;    // --lang: 1 Japanese, 2 English, 0 not given
    // --trace, --trace=decoded
    enum class Trace {
        Off,
        Plain,
        Decoded,
    } trace = Trace::Off;
    bool help = false;
    bool version = false;
    QStringList command;

    // A usage error: message id and the texts for its %1 and %2; id 0 when
    // the options are fine.
    int errorMessage = 0;
    QStringList errorArgs;

    // Reads as far as it can: the language is known even when a later
    // option is wrong, so that the error is shown in it.
    static GlobalOptions parse(const QStringList& args);
};
