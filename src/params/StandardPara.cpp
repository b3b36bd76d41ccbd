#include "params/StandardPara.h"

#include "common/ControlLock.h"
#include "common/MessageTable.h"
#include "common/NumberText.h"
#include "common/Pad.h"
#include "common/ProgramState.h"
#include "common/RuntimeError.h"
#include "device/DeviceSelection.h"
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

QString standardMotorCode(const QString& actSize, const QString& kindChar, qint16 number)
{
    const QString size = SizeTextFromDisplay(actSize).leftJustified(2, u' ', true);
    return size + kindChar + u'-' + DecPad(number, 3);
}

ParaSet standardRecord(const QString& motorCode)
{
    ParaSet r;
    r.home = {.offset = 30, .homeByte = 30, .vel = 10, .ofsVel = 10, .homeSpeed = 10};
    r.axis.axisValue = 65535;
    r.axis.axisByte = 2;
    r.axis.pulse = 400;
    r.axis.autoDrive = 0;
    r.axis.dependentByte = 20;
    r.axis.actType = 2;
    r.axis.motorCode = motorCode;
    r.axis.sizeText = r.axis.motorCode.mid(0, 2).trimmed();
    r.axis.letter = r.axis.motorCode.mid(2, 1);
    r.axis.motorNumber = qint16(LeadingNumber(r.axis.motorCode.mid(4, 3)));
    return r;
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
    const ProgramState& g = ProgramState::instance();
    return standardRecord(standardMotorCode(g.gActSize, g.gActKindChar, g.gActNumber));
}

ParaSet StandardPara::StandardRecordForSize(const QString& actSize)
{
    return standardRecord(
        standardMotorCode(actSize, DeviceSelection::standardKindChar(), DeviceSelection::StandardNumber));
}

int StandardPara::ApplyStandardPara(ParaSet& set)
{
    return ApplyStandardTo(set, StandardRecord(), ProgramState::instance().gPgUse, m_prompter);
}

int StandardPara::ApplyStandardTo(ParaSet& set, const ParaSet& record, bool pgUse, Prompter& prompter)
{
    StdParaList list;
    if (list.ReadStdParaList(prompter) != 0)
        return 1;

    ParaSet standard = set;
    standard.home = record.home;
    standard.axis = record.axis;
    const int column = pgUse ? 1 : 0;
    try {
        for (int row = 0; row < CommonRows; ++row)
            SetParaEntry(standard, StdParaList::FirstEntry + row, list.value(row, column));
    } catch (const RuntimeError&) {
        prompter.tell(Msg(27));
        return 1;
    }
    set = standard;
    return 0;
}
