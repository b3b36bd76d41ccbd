#pragma once

#include <QString>

// Normalises a numeric entry in place: leading "0" characters are removed
// (at most as many as the text had characters) and an empty result becomes "0".
void StripLeadingZeros(QString& text);
