#include "record/JournalWritten.h"

#include "opdata/PosiTable.h"
#include "params/ParaCompare.h"
#include "params/ParaEntries.h"
#include "params/ParaMemoryMap.h"

QJsonObject JournalWritten::parameters(const ParaSet& set)
{
    QJsonObject values;
    for (const ParaMapRow* row : NamedParaRows())
        values.insert(row->name, QJsonValue::fromVariant(ParaEntryValue(set, ComparedEntry(*row))));
    return values;
}

QJsonObject JournalWritten::operationData(const PosiTable& data)
{
    return {
        {"VEL", data.number(PosiTable::VEL)},
        {"ACC", data.number(PosiTable::ACC)},
        {"DIR", data.number(PosiTable::DIR) == 0 ? QStringLiteral("CW") : QStringLiteral("CCW")},
        {"DIVISION", data.number(PosiTable::DIVISION)},
        {"GEAR", data.number(PosiTable::GEAR)},
    };
}
