#include "opdata/OpDataReadBack.h"

#include "common/MessageTable.h"
#include "opdata/OpDataState.h"
#include "opdata/ReadFromCt.h"

#include <array>

namespace {

constexpr int ResultNg = 823;
constexpr int FieldLine = 5562;

struct Field {
    PosiTable::Column column;
    const char* name;
};

// The fields of the record, in its order.
constexpr std::array<Field, 7> Fields{{
    {PosiTable::VEL, "VEL"},
    {PosiTable::ACC, "ACC"},
    {PosiTable::Spare1, "Spare1"},
    {PosiTable::Spare2, "Spare2"},
    {PosiTable::DIR, "DIR"},
    {PosiTable::DIVISION, "DIVISION"},
    {PosiTable::GEAR, "GEAR"},
}};

// As the page shows it: the direction by name.
QString shown(PosiTable::Column column, qint64 value)
{
    if (column == PosiTable::DIR && (value == 0 || value == 1))
        return value == 0 ? QStringLiteral("CW") : QStringLiteral("CCW");
    return QString::number(value);
}

QString differences(const PosiTable& written, const PosiTable& read)
{
    QStringList lines;
    for (const Field& field : Fields) {
        const qint64 sent = written.number(field.column);
        const qint64 held = read.number(field.column);
        if (sent != held)
            lines << Msg(FieldLine).arg(QLatin1String(field.name), shown(field.column, sent),
                                        shown(field.column, held));
    }
    if (lines.isEmpty())
        return {};
    lines.prepend(Msg(ResultNg));
    return lines.join(QStringLiteral("\r\n"));
}

} // namespace

ReadBack ReadOpDataBack(SequenceContext& ctx, OpDataView& view, const PosiTable& written)
{
    OpDataState read;
    if (ReadFromCt(ctx, read, view).ReadPosidataFromCt() != 0)
        return {ReadBack::Result::Failed, {}};
    const QString report = differences(written, read.PosiDataRead);
    return {report.isEmpty() ? ReadBack::Result::Confirmed : ReadBack::Result::Differs, report};
}
