#pragma once

#include "opdata/EntryOutcome.h"

// txtTimer: the dwell of the move test in tenths of a second, 0 to 655.
class TimerEntry {
public:
    // At most three digits, unless the whole text is selected to be typed over.
    static KeyAction keyPress(const QString& text, bool allSelected, QChar key);
    static EntryOutcome textChanged(const QString& text);
    // A non-empty text whose value is 0 ("000") becomes "0".
    static EntryOutcome leave(const QString& text);
};
