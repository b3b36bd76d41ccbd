#include "print/OpDataPrintSource.h"

#include "opdata/OpDataFile.h"
#include "opdata/OpDataScreen.h"
#include "opdata/PosiTable.h"
#include "opdata/VelocityRules.h"

#include <QFileInfo>

namespace {

constexpr int OldGenerationLabel = 149;

QString cellText(const PosiTable& table, PosiTable::Column column)
{
    return table[column].toString().trimmed();
}

// The record's columns; the rest is the caller's.
OpDataPrintData recordOf(const PosiTable& table)
{
    OpDataPrintData data;
    data.vel = cellText(table, PosiTable::VEL);
    data.acc = cellText(table, PosiTable::ACC);
    data.ccw = table.number(PosiTable::DIR) != 0;
    data.division = cellText(table, PosiTable::DIVISION);
    data.gear = cellText(table, PosiTable::GEAR);
    return data;
}

} // namespace

OpDataPrintData OpDataPrintSource::fromScreen(const OpDataScreen& screen, const PosiTable& PosiData)
{
    OpDataPrintData data = recordOf(PosiData);
    data.speedChoice = screen.comboVEL;
    data.current = screen.txtDenryu;
    return data;
}

int OpDataPrintSource::fromFile(const QString& path, const PosiTable& shown, Prompter& prompter,
                                OpDataPrintData& data)
{
    PosiTable table = shown;
    int generationLabel = 0;
    if (OpDataFile::ReadPosidataFile(path, table, generationLabel, prompter) != 0)
        return 1;
    data = recordOf(table);
    data.fromFile = true;
    data.fileName = QFileInfo(path).fileName();
    data.generation = generationLabel == OldGenerationLabel ? OpDataPrintData::Generation::Old
                                                            : OpDataPrintData::Generation::New;
    data.speedChoice = VelocityRules::SpeedChoiceFromVel(data.vel, data.gear).value_or(QString());
    return 0;
}
