#include "params/SpCurrent.h"

#include "common/NumberText.h"
#include "common/Pad.h"
#include "common/RuntimeError.h"

#include <limits>

namespace {

constexpr double UnitsPerAmpere = 1875;
constexpr int CurrentPos = 12; // data digits 13 to 16, counted from 0
constexpr int CurrentDigits = 4;

qint16 multiply16(qint16 a, qint16 b)
{
    const int product = int(a) * int(b);
    if (product < std::numeric_limits<qint16>::min() || product > std::numeric_limits<qint16>::max())
        throw RuntimeError(RuntimeError::Kind::Overflow, QStringLiteral("current"));
    return qint16(product);
}

qint16 signed16(const QString& hexDigits)
{
    const int value = int(LeadingNumber(QStringLiteral("&H") + hexDigits));
    return qint16(value > std::numeric_limits<qint16>::max() ? value - 0x10000 : value);
}

} // namespace

QString SpCurrentFromBlock7(const QString& block7Digits)
{
    const qint16 raw = signed16(block7Digits.mid(CurrentPos, CurrentDigits));
    const qint16 tenths = RoundToInt16(multiply16(raw, 10) / UnitsPerAmpere);
    const qint16 hundredths = RoundToInt16(multiply16(raw, 100) / UnitsPerAmpere);
    return QString::number(tenths) + u'.' + QString::number(hundredths);
}

std::optional<double> SpCurrentAmperes(const QString& block7Digits)
{
    bool ok = false;
    const uint units = block7Digits.mid(CurrentPos, CurrentDigits).toUInt(&ok, 16);
    if (!ok || block7Digits.size() < CurrentPos + CurrentDigits)
        return std::nullopt;
    return units / UnitsPerAmpere;
}

std::optional<QString> SpCurrentToBlock7(const QString& block7Digits, const QString& denryuText)
{
    if (!IsNumeric(denryuText))
        return std::nullopt;
    const double units = ToNumber(denryuText) * UnitsPerAmpere;
    if (!(units > -0.5 && units < 65535.5))
        return std::nullopt;
    const QString current = HexPad(RoundToInt32(units), CurrentDigits);
    return block7Digits.left(CurrentPos) + current + block7Digits.mid(CurrentPos + CurrentDigits);
}
