#pragma once

#include <QString>

// Fixed-width fields for the controller: upper-case hexadecimal (HexPad) or
// decimal (DecPad), padded on the left with "0". A value that does not fit is
// sent as the single character "X" so the controller refuses the frame
// instead of receiving a silently truncated number.
QString HexPad(qint64 value, int width);
QString DecPad(qint64 value, int width);
