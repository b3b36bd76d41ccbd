#include "params/StandardPara.h"

#include "common/ControlLock.h"
#include "common/MessageTable.h"
#include "common/NumberText.h"
#include "common/Pad.h"
#include "common/ProgramState.h"
#include "common/RuntimeError.h"
#include "device/DeviceSelector.h"
#include "link/Prompter.h"
#include "link/SequenceGuard.h"
#include "params/ActuatorSize.h"
#include "params/ParaData.h"
#include "params/ParaEntries.h"
#include "params/ParaScreen.h"
#include "params/ParaScreenTransfer.h"
#include "params/StdParaList.h"

namespace {

constexpr int CommonRows = 16; // entries 13 to 28

QString standardMotorCode()
{
    const ProgramState& g = ProgramState::instance();
    const QString size = SizeTextFromDisplay(g.gActSize).leftJustified(2, u' ', true);
    return size + g.gActKindChar + u'-' + DecPad(g.gActNumber, 3);
}

} // namespace

StandardPara::StandardPara(ControlLock& lock, Prompter& prompter, DeviceSelector& selector)
    : m_lock(lock)
    , m_prompter(prompter)
    , m_selector(selector)
{
}

void StandardPara::cmdIniPrm_Click(ParaData& data, ParaScreen& screen)
{
    const SequenceGuard guard(m_lock, nullptr, SequenceGuard::MenusOnly);
    SetStandardPara(data, screen);
}

void StandardPara::SetStandardPara(ParaData& data, ParaScreen& screen)
{
    if (m_selector.selectDevice())
        return;
    if (ApplyStandardPara(data.set) != 0)
        return;
    ParametaHyoji(data.set, screen);
    data.paraEdited = true;
}

ParaSet StandardPara::StandardRecord()
{
    ParaSet r;
    r.home = {.offset = 30, .homeByte = 30, .vel = 10, .ofsVel = 10, .homeSpeed = 10};
    r.axis.axisValue = 65535;
    r.axis.axisByte = 2;
    r.axis.pulse = 400;
    r.axis.autoDrive = 0;
    r.axis.dependentByte = 20;
    r.axis.actType = 2;
    r.axis.motorCode = standardMotorCode();
    r.axis.sizeText = r.axis.motorCode.mid(0, 2).trimmed();
    r.axis.letter = r.axis.motorCode.mid(2, 1);
    r.axis.motorNumber = qint16(LeadingNumber(r.axis.motorCode.mid(4, 3)));
    return r;
}

int StandardPara::ApplyStandardPara(ParaSet& set)
{
    StdParaList list;
    if (list.ReadStdParaList(m_prompter) != 0)
        return 1;

    ParaSet standard = set;
    const ParaSet record = StandardRecord();
    standard.home = record.home;
    standard.axis = record.axis;
    const int column = ProgramState::instance().gPgUse ? 1 : 0;
    try {
        for (int row = 0; row < CommonRows; ++row)
            SetParaEntry(standard, StdParaList::FirstEntry + row, list.value(row, column));
    } catch (const RuntimeError&) {
        m_prompter.tell(Msg(27));
        return 1;
    }
    set = standard;
    return 0;
}
