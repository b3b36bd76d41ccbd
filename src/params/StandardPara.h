#pragma once

#include "params/ParaSet.h"

class ControlLock;
class DeviceSelector;
class Prompter;
struct ParaData;
struct ParaScreen;

// The standard parameters of an actuator (cmdIniPrm).
//
// The HOME and AXIS values come from the built-in standard record, which
// serves every actuator (the device list names sizes, it carries no
// parameter values). Its motor code is the chosen size (gActSize, "SP"
// written "20"), the kind letter, a separator and the motor number, as the
// device dialog records them ("28L-100": gActKindChar "L" and gActNumber 100
// are what the dialog's Set writes). The size, letter and number are cut
// from it at characters 1-2, 3 and 5-7, so all three follow the selection.
// PG, ETC and SPECIAL come from the common list, column 1 when an encoder is
// fitted (gPgUse), column 0 without.
class StandardPara {
public:
    StandardPara(ControlLock& lock, Prompter& prompter, DeviceSelector& selector);

    // The button: menus off, SetStandardPara, menus on.
    void cmdIniPrm_Click(ParaData& data, ParaScreen& screen);

    // Lets the user choose the actuator; unless cancelled, applies the
    // standard parameters and shows them.
    void SetStandardPara(ParaData& data, ParaScreen& screen);

    // 0 when the set now holds the standard parameters; 1 when the common
    // list could not be used (its message shown), the set then unchanged.
    int ApplyStandardPara(ParaSet& set);

    // The HOME and AXIS values of the built-in standard record for the
    // actuator chosen now.
    static ParaSet StandardRecord();
    // The same for an actuator of the size the size list shows, as the
    // device dialog's Set would record it.
    static ParaSet StandardRecordForSize(const QString& actSize);

    // The standard parameters over set: the record's HOME and AXIS values,
    // PG, ETC and SPECIAL from the common list (the column by encoder use).
    // 0 when set now holds them; 1 when the list could not be used (its
    // message shown), set then unchanged.
    static int ApplyStandardTo(ParaSet& set, const ParaSet& record, bool pgUse, Prompter& prompter);

private:
    ControlLock& m_lock;
    Prompter& m_prompter;
    DeviceSelector& m_selector;
};
