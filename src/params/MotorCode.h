#pragma once

#include <QString>

// The motor code: the size text, the type letter and the motor number in
// three decimal digits ("28" "L" 7 -> "28L007"). It is how the parameter
// file carries the three pieces, and its first three characters are what
// verification compares.
QString MotorCodeText(const QString& sizeText, const QString& letter, int motorNumber);

struct MotorCodeParts {
    QString sizeText;
    QString letter;
    int motorNumber = 0;
};

// Cuts a motor code back into its pieces: the last three characters are the
// number, the one before them the letter, the rest the size text (so "E35"
// sizes come back whole). A number too large for its field ("9e9") is a
// RuntimeError Overflow, as for any other entry.
MotorCodeParts SplitMotorCode(const QString& motorCode);
