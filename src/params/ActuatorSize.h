#pragma once

#include <QString>

// Rules that follow from the actuator size text kept in the parameter set
// ("28", "35", "42", "20" for the special actuator, or an "E" size such as "E35").

// The size as the size list shows it: "20" is shown as "SP".
QString SizeDisplayText(const QString& sizeText);
// The reverse: "SP" in the size list is the size text "20".
QString SizeTextFromDisplay(const QString& shown);

// The size number written to the controller: the digits behind a leading "E",
// otherwise the trimmed size text.
QString SizeNumberText(const QString& sizeText);
// The type letter written to the controller: "E" for an "E" size, otherwise the stored letter.
QString WrittenLetter(const QString& sizeText, const QString& letter);
// The two-digit size code of block 1.
QString SizeCode(const QString& sizeText, const QString& letter);

// The operating current shown for a size ("28", "35", "42" as shown in the
// size list); a null text for sizes whose current is not fixed ("SP").
QString DenryuForSize(const QString& shownSize);

// Whether the byte that depends on the AXIS byte lies in its allowed range.
bool DependentByteInRange(int axisByte, int dependentByte);

// The size text of the special actuator, whose current lives in block 7.
inline QString SpecialSizeText() { return QStringLiteral("20"); }
