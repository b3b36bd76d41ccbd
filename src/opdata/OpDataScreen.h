#pragma once

#include <QString>

// What the controls of the operation data tab hold, as plain values: the
// sequences read the screen from it and fill the screen through it, and the
// page moves it to and from its widgets.
struct OpDataScreen {
    QString comboVEL = QStringLiteral("1"); // speed choice "1".."30"
    QString comboACC = QStringLiteral("1"); // acceleration choice "1".."3"
    QString txtVEL;                         // computed speed value
    QString txtACC;                         // copy of the acceleration choice
    QString txtDIVISION;
    QString txtGEAR;
    bool optCW = true; // false: optCCW is set

    // Move test.
    bool optCNT = false; // false: optSTEP is set
    bool chkTimerUse = false;
    QString txtTimer;

    QString txtDenryu;

    bool operator==(const OpDataScreen&) const = default;
};
