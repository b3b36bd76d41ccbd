#include "opdata/OpDataHyoji.h"

#include "opdata/OpDataScreen.h"
#include "opdata/PosiTable.h"
#include "opdata/VelocityRules.h"

namespace {

QString cellText(const PosiTable& table, PosiTable::Column column)
{
    return table[column].toString().trimmed();
}

} // namespace

void OpDataHyoji::PosiDataHyoji(const PosiTable& table, OpDataScreen& screen)
{
    screen.txtVEL = cellText(table, PosiTable::VEL);
    screen.txtACC = cellText(table, PosiTable::ACC);
    screen.txtDIVISION = cellText(table, PosiTable::DIVISION);
    screen.txtGEAR = cellText(table, PosiTable::GEAR);
    screen.optCW = table.number(PosiTable::DIR) == 0;
}

void OpDataHyoji::ChoicesFromValues(OpDataScreen& screen)
{
    screen.comboACC = screen.txtACC;
    if (const auto choice = VelocityRules::SpeedChoiceFromVel(screen.txtVEL, screen.txtGEAR))
        screen.comboVEL = *choice;
}
