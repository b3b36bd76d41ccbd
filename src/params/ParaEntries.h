#pragma once

#include "params/ParaSet.h"

#include <QVariant>

// Every ParaSet field has the number of its entry in the controller image
// (1..35 as in the parameter file, 37..39 for the motor code pieces). This
// is the one place that ties the two together; the block codec, the file,
// the verification and TakeCtParaImage all go through it.

// Whether the entry number names a ParaSet field (entry 36, the size code,
// is derived from the size text on every write and is not kept).
bool IsParaEntry(int entry);

// The field's value: a number (int, or double for the 6-digit AXIS value)
// or, for the motor code and its text pieces, a text.
QVariant ParaEntryValue(const ParaSet& set, int entry);

// Stores an image entry into its field. Numbers are rounded (halves to even)
// into the field's type; an empty entry counts as 0. A text that is not a
// number raises RuntimeError TypeMismatch, a number too large for the field
// raises Overflow; the field is then left as it was.
void SetParaEntry(ParaSet& set, int entry, const QVariant& value);

// The number an image entry holds: numbers as they are, an empty text as 0,
// a numeric text as its number; any other text raises TypeMismatch.
double ParaEntryNumber(const QVariant& value);
