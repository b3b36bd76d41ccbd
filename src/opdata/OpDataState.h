#pragma once

#include "opdata/PosiTable.h"

#include <QString>

// The state the operation data tab keeps between commands.
struct OpDataState {
    PosiTable PosiData;     // what the screen held at the last write or save
    PosiTable PosiDataRead; // what the last read from the controller or a file gave

    // Where the shown data came from: a file name without ".qmd", or
    // message 374 after a read from the controller.
    QString mDataTitle;

    // While set, the speed and acceleration choices and the gear entry do not
    // recompute anything: the program itself is loading values into them.
    bool mEventsOff = false;
    // Set only while the page loads txtGEAR, so loading a gear ratio never
    // recomputes the speed value.
    bool mSuppressVelCalc = false;

    bool mHasDecimalPoint = false; // txtDenryu holds a "."

    // Generation of the last file read, as its label message (148 new,
    // 149 old; 0 before any file was read), for the printout.
    int generationLabel = 0;
};
