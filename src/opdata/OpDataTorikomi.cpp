#include "opdata/OpDataTorikomi.h"

#include "common/MessageTable.h"
#include "common/NumberText.h"
#include "common/RuntimeError.h"
#include "link/Prompter.h"
#include "opdata/OpDataScreen.h"
#include "opdata/PosiTable.h"

int OpDataTorikomi::PosiDataTorikomi(const OpDataScreen& screen, PosiTable& PosiData,
                                     Prompter& prompter)
{
    qint16 vel = 0, acc = 0, division = 0, gear = 0;
    try {
        vel = TextToInt16(screen.txtVEL.trimmed());
        acc = TextToInt16(screen.txtACC.trimmed());
        division = TextToInt16(screen.txtDIVISION.trimmed());
        gear = TextToInt16(screen.txtGEAR.trimmed());
    } catch (const RuntimeError&) {
        prompter.tell(MsgLines({52, 0, 62}), Prompter::Icon::Exclamation);
        return 1;
    }
    PosiData[PosiTable::VEL] = vel;
    PosiData[PosiTable::ACC] = acc;
    PosiData[PosiTable::DIVISION] = division;
    PosiData[PosiTable::GEAR] = gear;
    PosiData[PosiTable::DIR] = qint16(screen.optCW ? 0 : 1);
    return 0;
}

int OpDataTorikomi::PosiDataCheckAndTorikomi(const OpDataScreen& screen, PosiTable& PosiData,
                                             Prompter& prompter)
{
    const bool filled = !screen.txtVEL.isEmpty() && !screen.txtACC.isEmpty()
        && !screen.txtDIVISION.isEmpty() && !screen.txtGEAR.isEmpty();
    if (!filled) {
        prompter.tell(MsgLines({400, 0, 401}), Prompter::Icon::Exclamation);
        return 1;
    }
    return PosiDataTorikomi(screen, PosiData, prompter);
}
