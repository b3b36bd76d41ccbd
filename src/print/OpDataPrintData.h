#pragma once

#include <QString>

// What the operation data printout shows, as the caller found it on the
// operation data page or read it from a file. Values are the texts the
// page shows; an empty text prints as nothing.
struct OpDataPrintData {
    enum class Generation {
        New,
        Old
    };

    bool fromFile = false;
    QString fileName;                        // the file's bare name when fromFile
    Generation generation = Generation::New; // of the file read

    QString speedChoice; // comboVEL, 1 to 30
    QString vel;         // VEL sent to the controller
    QString acc;
    bool ccw = false; // direction: CW unless CCW
    QString division;
    QString gear;
    QString current; // txtDenryu, amperes
};
