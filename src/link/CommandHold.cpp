#include "link/CommandHold.h"

#include "common/ControlLock.h"
#include "common/ProgramState.h"
#include "link/Link.h"
#include "link/Prompter.h"
#include "link/SequenceContext.h"
#include "link/TransactionMessages.h"

namespace {

using Step = SequenceGuard::Step;
const SequenceGuard::Bracket WindowCommand{
    {Step::CommandButtons, Step::Tabs, Step::Menus, Step::Busy},
    {Step::ClosePort, Step::Busy, Step::CommandButtons, Step::Tabs, Step::Menus}};

} // namespace

bool CommandHold::mayStart(SequenceContext& ctx)
{
    const bool otherRuns = ProgramState::instance().gCommBusy || ctx.link.busy() || ctx.lock.held();
    if (otherRuns)
        ctx.prompter.notify(TransactionMessages::refusedWhileBusy());
    return !otherRuns;
}

CommandHold::CommandHold(SequenceContext& ctx)
    : m_guard(ctx.lock, &ctx.link, WindowCommand)
{
}
