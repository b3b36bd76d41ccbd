#pragma once

#include "opdata/EntryOutcome.h"

// txtDIVISION: the number of index positions, 2 to 100.
class DivisionEntry {
public:
    // Digits only, up to "100"; Enter moves on to the write button.
    static KeyAction keyPress(const QString& text, QChar key);
    static EntryOutcome textChanged(const QString& text);
    // Leading zeros stripped; "1" or a text that is (or was) all zeros is
    // cleared and marked.
    static EntryOutcome leave(const QString& text);

    // The key filter shared with txtGEAR.
    static KeyAction filterKey(const QString& text, QChar key, KeyAction onEnter);
    // Clears a text above 100 and marks the field.
    static EntryOutcome limitTo100(const QString& text, EntryOutcome outcome);
};
