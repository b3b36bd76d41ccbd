#pragma once

#include <QChar>
#include <QString>

#include <optional>

// What the entry fields of the operation data tab do with a key, a change of
// their text and the focus leaving them. The page applies the outcome to its
// widgets; the rules themselves hold no widget.

// Key codes as the key filters see them.
inline constexpr QChar BackspaceKey = QChar(8);
inline constexpr QChar EnterKey = QChar(13);

enum class KeyAction {
    Accept,
    Refuse,             // the key is swallowed
    Enter,              // swallowed; the field runs its leave rule (focus moves on)
    EnterToWriteButton, // as Enter, then the focus goes to cmdLoadtoCt
};

enum class Background {
    Unchanged,
    Window, // the normal background
    Marker, // flags a field that was emptied because its entry was invalid
};

struct EntryOutcome {
    std::optional<QString> text; // the field's new text
    Background background = Background::Unchanged;
    std::optional<QString> txtVEL; // a new speed value (gear changes only)
    int caret = -1;                // caret position after the new text, -1: as Qt leaves it

    static EntryOutcome withText(const QString& text)
    {
        EntryOutcome o;
        o.text = text;
        return o;
    }
    static EntryOutcome cleared() { return withText(QString()); }
    static EntryOutcome clearedAndMarked()
    {
        EntryOutcome o = cleared();
        o.background = Background::Marker;
        return o;
    }

    bool operator==(const EntryOutcome&) const = default;
};
