#include "params/ParaBlockCodec.h"

#include "common/NumberText.h"
#include "common/Pad.h"
#include "params/ActuatorSize.h"
#include "params/MotorCode.h"
#include "params/ParaEntries.h"
#include "params/ParaMemoryMap.h"

namespace {

QVariant decodeField(const ParaMapRow& row, const QString& reply)
{
    const qint64 value = qint64(LeadingNumber(QStringLiteral("&H") + reply.mid(row.pos - 1, row.digits)));
    switch (row.codec) {
    case ParaCodec::SizeNumber:
        return QString::number(value);
    case ParaCodec::LetterCode:
        return QString(QChar(char16_t(value)));
    case ParaCodec::Number:
    case ParaCodec::SizeCode:
        break;
    }
    return int(value);
}

// A field of 2, 4 or 6 digits as its bytes, high byte first. A value too
// large for the field shows as "X" in its high byte (HexPad), so the
// controller refuses the block rather than storing a cut number.
QString fieldBytes(qint64 value, int digits)
{
    const int high = digits / 2 - 1;
    QString out;
    for (int k = high; k >= 0; --k) {
        const qint64 part = value >> (8 * k);
        out += HexPad(k == high ? part : part & 0xFF, 2);
    }
    return out;
}

// The size as the number of its byte; a size text whose number does not fit
// the byte ("1e99" from a file) is sent as "X" like any other such value.
QString sizeNumberByte(const QString& sizeText)
{
    const double n = LeadingNumber(SizeNumberText(sizeText));
    return HexPad(n >= 0 && n <= 0xFF ? qint64(n) : -1, 2);
}

QString encodeField(const ParaMapRow& row, const ParaSet& set)
{
    const ParaAxis& axis = set.axis;
    switch (row.codec) {
    case ParaCodec::SizeNumber:
        return sizeNumberByte(axis.sizeText);
    case ParaCodec::LetterCode: {
        const QString letter = WrittenLetter(axis.sizeText, axis.letter);
        return letter.isEmpty() ? QStringLiteral("00") : HexPad(letter.at(0).unicode(), 2);
    }
    case ParaCodec::SizeCode:
        return SizeCode(axis.sizeText, axis.letter);
    case ParaCodec::Number:
        break;
    }
    return fieldBytes(RoundToInt32(ParaEntryValue(set, row.entry).toDouble()), row.digits);
}

} // namespace

void DecodeParaBlocks(const std::array<QString, 3>& replies, CtParaImage& image)
{
    image.clear();
    for (const ParaMapRow& row : ParaMemoryMap())
        image[row.entry] = decodeField(row, replies.at(size_t(row.block)));
    image[MotorCodeEntry] = MotorCodeText(image[MotorSizeEntry].toString(),
                                          image[MotorLetterEntry].toString(),
                                          image[MotorNumberEntry].toInt());
}

std::array<QString, 3> EncodeParaBlocks(const ParaSet& set)
{
    std::array<QString, 3> blocks;
    for (int b = 0; b < 3; ++b)
        blocks.at(size_t(b)) = QString::number(b);
    for (const ParaMapRow& row : ParaMemoryMap())
        blocks.at(size_t(row.block)) += encodeField(row, set);
    return blocks;
}
