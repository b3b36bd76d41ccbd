#pragma once

#include <QString>

#include <optional>

// The entry rules of the numeric parameter boxes: a key filter that lets
// digits through up to the box's maximum length, and the normalisation when
// the box is left.

enum class ParaBox {
    HomeOffset,   // txtHomeOffset, 5
    HomeVel,      // txtHomeVel, 2
    HomeOfsVel,   // txtHomeOfsVel, 2
    AxisPulse,    // txtAxisPulse, 5
    PgAlarm,      // txtPgAlarm, 5
    InpLimit,     // txtInpLimit, 3
    PgCheckTimer, // txtPgCheckTimer, 3
    LsSerchTimer, // txtLsSerchTimer, 3
};

// The box of a control's objectName; nothing for other controls.
std::optional<ParaBox> ParaBoxFromName(const QString& objectName);
int ParaBoxMaxLength(ParaBox box);

enum class ParaKeyResult {
    Accept,
    Discard,
    // Enter: the box is to be disabled and enabled again so that its
    // lost-focus normalisation runs; the key itself is discarded.
    Enter,
};

// keyAscii: the character code of the key (8 backspace, 13 Enter).
// selectionCoversAll: the box's selection spans its whole text (an empty
// box counts as fully selected).
ParaKeyResult ParaKeyFilter(ParaBox box, const QString& text, bool selectionCoversAll, int keyAscii);

// The text a box shows after it loses the focus: leading zeros stripped
// (an all-zero text becomes "0"); in the three HOME boxes, where zero is not
// allowed, "0" becomes empty.
QString ParaLostFocus(ParaBox box, const QString& text);
