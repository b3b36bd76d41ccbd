#pragma once

#include <QString>

#include <optional>

// The operating current of the special actuator ("SP"), kept by the
// controller in block 7 at data digits 13 to 16 in units of 1/1875 A.

// The text shown in txtDenryu for the 32 data digits of block 7: the digits
// as a signed 16-bit number raw (FFFF is -1), then tenths = raw x 10 / 1875
// and hundredths = raw x 100 / 1875, each product in 16-bit arithmetic and
// each quotient rounded to a 16-bit integer (halves to even), shown as
// tenths "." hundredths (raw 300 gives "2.16").
// The narrow arithmetic is kept on purpose, with its limits: raw x 100
// overflows above raw 327 and raw x 10 above 3276, and then RuntimeError
// Overflow is raised instead of a text; the command that shows the current
// catches it and tells the user.
QString SpCurrentFromBlock7(const QString& block7Digits);

// The same current in amperes, computed wide: the digits as the unsigned
// number the write side stores (0 to 65535), divided by 1875. It never
// overflows; nothing when the digits are not hexadecimal.
std::optional<double> SpCurrentAmperes(const QString& block7Digits);

// The 32 digits to write back as block 7: digits 1 to 12 of the block as
// read, the current, digits 17 to 32. The current is the box's value times
// 1875, rounded to a whole number with halves to the even neighbour (1.5 A
// is 2812.5, written as 2812 = "0AFC"), in 4 capital hexadecimal digits.
// Nothing when the box holds no number or the result does not fit 4 digits.
std::optional<QString> SpCurrentToBlock7(const QString& block7Digits, const QString& denryuText);
