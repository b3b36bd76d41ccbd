#pragma once

#include "opdata/EntryOutcome.h"

// txtDenryu: the drive current in amperes, 0.0 to 2.0, one decimal point.
class CurrentEntry {
public:
    static KeyAction keyPress(const QString& text, QChar key);

    struct Change {
        EntryOutcome outcome;
        bool mHasDecimalPoint = false; // recomputed from the resulting text
    };
    // "." alone becomes "0." with the caret at its end; a value outside
    // 0.0..2.0 is cleared.
    static Change textChanged(const QString& text);

private:
    static constexpr int MaxLength = 21;
};
