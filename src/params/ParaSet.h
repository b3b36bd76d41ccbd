#pragma once

#include <QString>

#include <array>

// The typed parameter set that the parameter page shows and edits, grouped
// as the parameter file and the verification report group it. The range of
// each field is what ParametaValueCheck accepts before a write or a save.
// Fields without a caption on the page carry descriptive names; their
// controller meaning is not known to this program, it only keeps and sends them.

struct ParaHome {
    qint32 offset = 0;    // OFFSET, 1..65535
    qint16 homeByte = 0;  // 1..255
    qint16 vel = 0;       // VEL, 1..60
    qint16 ofsVel = 0;    // OFSVEL, 1..60
    qint16 homeSpeed = 0; // 1..60
};

struct ParaAxis {
    qint16 actType = 0;       // actuator type, 0..4
    qint16 axisByte = 0;      // 1..255; selects the range of dependentByte
    qint32 pulse = 0;         // PULSE, 1..65535
    double axisValue = 0;     // the 6-digit value, 0..262143
    qint16 dependentByte = 0; // range follows axisByte
    qint16 autoDrive = 0;     // AUTODRIVE, 0..1 (index of comboAxisAutoDrv)
    QString motorCode;        // size text + type letter + motor number in 3 digits
    QString sizeText;         // "28", "35", "42", "20" (shown as "SP"), "E35"
    QString letter;           // type letter
    qint16 motorNumber = 0;   // 0..500
};

struct ParaPg {
    qint16 function = 0; // FUNCTION, 0..1 (index of comboPgFunc)
    qint32 alm = 0;      // ALM, 0..65535
};

struct ParaEtc {
    qint16 homeOut = 0;  // HOME OUT, 0..3 (index of comboHomeOut)
    qint16 selector = 0; // 0..2
    qint32 value1 = 0;   // 0..262143
    qint32 value2 = 0;   // 0..262143
    qint16 inpWid = 0;   // IN-P WID, not range-checked (its box allows 3 digits)
    qint16 etcByte = 0;  // not range-checked
    qint16 flag = 0;     // 0..1
    qint16 percent = 0;  // 0..100
};

struct ParaSpecial {
    qint16 pgTimer = 0;   // PG TIMER, 0..255
    qint16 autoHome = 0;  // AUTO HOME, 0..1
    qint16 lsTimer = 0;   // LS TIMER, 0..255
    qint16 emgLogic = 0;  // EMG LOGIC, 0..1
    qint16 alm1Clear = 0; // ALM1 CLEAR, 0..1
    qint16 flag = 0;      // 0..1
};

struct ParaSet {
    ParaHome home;
    ParaAxis axis;
    ParaPg pg;
    ParaEtc etc;
    ParaSpecial special;
    std::array<qint16, 7> reserved{}; // Reserved0..Reserved6, each 0..255
};
