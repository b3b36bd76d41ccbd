#include "common/Pad.h"

namespace {

QString pad(const QString& digits, int width)
{
    if (digits.size() > width)
        return QStringLiteral("X");
    return digits.rightJustified(width, u'0');
}

} // namespace

QString HexPad(qint64 value, int width)
{
    // Negative values have no place in a field; their two's complement
    // form never fits, which gives "X" as for any other value too large.
    const QString digits = value < 0 ? QString(17, u'F')
                                     : QString::number(value, 16).toUpper();
    return pad(digits, width);
}

QString DecPad(qint64 value, int width)
{
    return pad(QString::number(value), width);
}
