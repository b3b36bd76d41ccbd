#include "link/CommandHold.h"

#include "common/ControlLock.h"
#include "common/ProgramState.h"
#include "link/Link.h"
#include "link/Prompter.h"
#include "link/SequenceContext.h"
#include "link/TransactionMessages.h"

bool CommandHold::mayStart(SequenceContext& ctx)
{
    const bool otherRuns = ProgramState::instance().gCommBusy || ctx.link.busy() || ctx.lock.held();
    if (otherRuns)
        ctx.prompter.notify(TransactionMessages::refusedWhileBusy());
    return !otherRuns;
}

CommandHold::CommandHold(SequenceContext& ctx)
    : m_ctx(ctx)
{
    m_ctx.lock.CMDBTN_Muko();
    m_ctx.lock.setTabsEnabled(false);
    m_ctx.lock.Menyu_Muko();
    ProgramState::instance().gCommBusy = true;
}

CommandHold::~CommandHold()
{
    m_ctx.link.CloseCommPort();
    ProgramState::instance().gCommBusy = false;
    m_ctx.lock.CMDBTN_Yuko();
    m_ctx.lock.setTabsEnabled(true);
    m_ctx.lock.Menyu_Yuko();
}
