#pragma once

#include "opdata/EntryOutcome.h"

// txtGEAR: the gear ratio, 1 to 100. Its changes recompute the speed value.
class GearEntry {
public:
    static KeyAction keyPress(const QString& text, QChar key);
    // comboVEL and the two flags decide whether txtVEL is recomputed; the
    // speed value is taken from the text as typed, before a value above 100
    // is cleared.
    static EntryOutcome textChanged(const QString& text, const QString& comboVEL, bool mEventsOff,
                                    bool suppressVelCalc);
    // Leading zeros stripped; a text that is (or was) all zeros is cleared and marked.
    static EntryOutcome leave(const QString& text);
};
