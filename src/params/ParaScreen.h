#pragma once

#include <QString>

// What the parameter controls hold, as plain values, so the rules between
// the page and the parameter set can be tested without widgets. Members are
// named after their controls. A list index of -1 is a list without a
// selection; an option pair holds the value of the option that is set (0 or
// 1), or -1 when neither is.
struct ParaScreen {
    // HOME
    QString txtHomeOffset;
    QString txtHomeVel;
    QString txtHomeOfsVel;
    // AXIS
    QString txtAxisPulse;
    int comboAxisAutoDrv = -1;
    QString comboActSize; // the size as shown: "28", "35", "42", "SP"
    // PG
    int comboPgFunc = -1;
    QString txtPgAlarm;
    // ETC
    int comboHomeOut = -1;
    QString txtInpLimit;
    // SPECIAL
    QString txtPgCheckTimer;
    int comboAutoHome = -1;
    QString txtLsSerchTimer;
    int optEmgLogic = -1;
    int optAlarmAutoClear = -1;
    // The unlock box of the SPECIAL group and the enabled state of its five
    // controls (txtPgCheckTimer, txtLsSerchTimer, comboAutoHome and both
    // option pairs), which always change together.
    bool chkTokuParaChange = false;
    bool specialControlsEnabled = false;
    // The operating current box of the operation data page, which the
    // parameter transfers of the special actuator read and fill.
    QString txtDenryu;
};
