#include "opdata/OpDataRecord.h"

#include "common/NumberText.h"
#include "common/Pad.h"
#include "opdata/PosiTable.h"

#include <array>

namespace {

struct Field {
    PosiTable::Column column;
    int width;
    int replyPos; // 1-based position in the "0RP" reply
};

constexpr std::array<Field, 7> Fields{{
    {PosiTable::VEL, 4, 6},
    {PosiTable::ACC, 1, 10},
    {PosiTable::Spare1, 1, 11},
    {PosiTable::Spare2, 5, 12},
    {PosiTable::DIR, 1, 17},
    {PosiTable::DIVISION, 2, 18},
    {PosiTable::GEAR, 2, 20},
}};

const QString RecordNumber = QStringLiteral("01");

// A hexadecimal field read as a 16-bit integer: four digits above 7FFF are
// negative, as the two's complement they spell.
QVariant fieldValue(const Field& field, qint64 digitsValue)
{
    if (field.column == PosiTable::Spare2)
        return qint32(digitsValue);
    return qint16(quint16(digitsValue));
}

} // namespace

QString OpDataRecord::WriteText(const PosiTable& PosiData)
{
    QString text = RecordNumber;
    for (const Field& field : Fields)
        text += HexPad(PosiData.number(field.column), field.width);
    return text;
}

bool OpDataRecord::parseReply(const QString& reply, PosiTable& PosiDataRead)
{
    std::array<QVariant, Fields.size()> values;
    for (size_t i = 0; i < Fields.size(); ++i) {
        const qint64 v = HexDigitsValue(reply.mid(Fields[i].replyPos - 1, Fields[i].width));
        if (v < 0)
            return false;
        values[i] = fieldValue(Fields[i], v);
    }
    for (size_t i = 0; i < Fields.size(); ++i)
        PosiDataRead[Fields[i].column] = values[i];
    return true;
}
