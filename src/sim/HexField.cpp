#include "sim/HexField.h"

bool HexField::isHex(const QByteArray& text)
{
    for (char c : text) {
        if (!((c >= '0' && c <= '9') || (c >= 'A' && c <= 'F')))
            return false;
    }
    return true;
}

int HexField::value(const QByteArray& text, int from, int width)
{
    return text.mid(from, width).toInt(nullptr, 16);
}

QByteArray HexField::digits(qint64 value, int width)
{
    return QByteArray::number(value, 16).toUpper().rightJustified(width, '0');
}
