#pragma once

#include <QByteArray>

// The controller's data fields: upper-case hexadecimal digits only.
class HexField {
public:
    static bool isHex(const QByteArray& text);
    // The value of `width` digits from `from` (0-based); the text is hex.
    static int value(const QByteArray& text, int from, int width);
    // A value as upper-case hex digits, padded on the left with "0".
    static QByteArray digits(qint64 value, int width);
};
