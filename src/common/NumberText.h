#pragma once

#include <QString>
#include <QtGlobal>

// Number conversions with the rules of the original runtime, which the file
// formats and the controller fields depend on.

// The number at the start of a text: blanks are ignored, reading stops at the
// first character that cannot continue a number ("12abc" -> 12, "abc" -> 0).
// "&H" and "&O" prefixes read hexadecimal and octal digits ("&H1C" -> 28).
double LeadingNumber(const QString& text);

// True when the whole trimmed text is a number (decimal, or "&H"/"&O" form).
bool IsNumeric(const QString& text);

// The whole trimmed text as a number; RuntimeError TypeMismatch otherwise.
double ToNumber(const QString& text);

// Rounding to the nearest integer, halves to the even neighbour, with an
// Overflow RuntimeError outside the type's range.
qint16 RoundToInt16(double value);
qint32 RoundToInt32(double value);

// Strict conversions of a text (trimmed) to an integer type, rounding as above.
qint16 TextToInt16(const QString& text);
qint32 TextToInt32(const QString& text);

// Hexadecimal digits (no prefix) as an unsigned value; -1 when not hexadecimal.
qint64 HexDigitsValue(const QString& digits);
