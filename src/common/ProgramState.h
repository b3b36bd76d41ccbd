#pragma once

#include <QString>

// The one program-wide state object: every value that the program's routines
// share across windows and subsystems. State that belongs to one window or
// sequence lives there instead (the "m" members); the transaction state lives
// in Link.
struct ProgramState {
    static ProgramState& instance();
    // Back to the state of a fresh start (tests use it between cases).
    static void reset();

    // Language and start-up.
    bool gForeignOs = false; // system country is not Japan: English forced
    qint16 gLanguage = 1;    // 1 Japanese, 2 English
    qint32 gMsgBase = 0;     // 0 Japanese, 10000 English
    bool gLanguageChangePending = false;

    // Port and options.
    qint16 gPortNo = 1;
    bool gPortOccupy = true;
    bool gMmRoundUp = true;
    bool gDispMmUnit = true;

    // Sequences in progress.
    bool gCommBusy = false;    // a controller sequence runs
    bool gDataChanged = false; // operation data edited since saved or transferred

    // Actuator selection.
    QString gActSize;
    QString gActKindChar;
    qint16 gActNumber = 0;
    bool gPgUse = false;
    bool gDeviceDialogMode = false;
};
