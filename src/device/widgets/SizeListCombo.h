#pragma once

#include "device/SizeListBox.h"

#include <QString>

class QComboBox;

// Moves a size list between its plain values (SizeListBox, where the rules
// that fill it live) and the combo box on the screen.
namespace SizeListCombo {

// The items with their item data, then the text: an item's text selects
// that item; an editable box shows any other text as it is, a list-only box
// is then left without a selection.
void show(const SizeListBox& box, QComboBox* combo);

// Only the text, as show() sets it.
void setText(QComboBox* combo, const QString& text);

// The combo's items and its text.
SizeListBox read(const QComboBox* combo);

} // namespace SizeListCombo
