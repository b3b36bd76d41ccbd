#include "opdata/Homing.h"

#include "common/ControlLock.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "common/Waiter.h"
#include "link/CommandSet.h"
#include "link/Link.h"
#include "link/Prompter.h"
#include "link/SequenceContext.h"
#include "link/SequenceGuard.h"
#include "opdata/OpDataLog.h"
#include "opdata/OpDataView.h"

#include <QScopedValueRollback>

namespace {

using Step = SequenceGuard::Step;
const SequenceGuard::Bracket Held{{Step::HomeButtons, Step::Tabs, Step::Menus, Step::Busy}, {Step::ClosePort, Step::HomeButtons, Step::Tabs, Step::Menus, Step::Busy}};

constexpr int HomePoint = 0;
constexpr int StatusMoving = 0;
constexpr int StatusFinished = 1;
constexpr int StatusFailed = -1;
constexpr int HomingGivenUpMessage = 5101;

} // namespace

Homing::Homing(SequenceContext& ctx, OpDataView& view)
    : m_ctx(ctx)
    , m_view(view)
{
}

int Homing::run()
{
    if (m_running)
        return 1;
    const QScopedValueRollback running(m_running, true);
    m_stopRequest = false;
    const SequenceGuard guard(m_ctx.lock, &m_ctx.link, Held);
    m_view.setResetEnabled(false);
    return steps();
}

int Homing::steps()
{
    if (m_ctx.link.OpenCommPort() != 0 || m_ctx.commands.CheckCommunication() != 0)
        return 1;
    if (m_ctx.commands.MoveToPosition(HomePoint) != 0) {
        homeMoveFailed();
        return 1;
    }
    return waitForHome();
}

void Homing::stop()
{
    if (!m_running)
        return;
    m_stopRequest = true;
    Waiter::wake();
}

// Polled until home is reached or a query fails. A stop short of home
// (status 2 or 3) is polled on, as the unit may yet go on; STOP, offered
// then, gives the wait up so that the user can reset the alarm.
int Homing::waitForHome()
{
    for (;;) {
        if (Waiter::sleep(PollGapMs) == Waiter::Result::Aborted)
            return 1;
        const int status = m_ctx.commands.ReadRunStatus();
        if (status == StatusFinished)
            return 0;
        if (status == StatusFailed) {
            m_ctx.link.CloseCommPort();
            return 1;
        }
        if (status == StatusMoving)
            continue;
        if (m_stopRequest) {
            m_ctx.prompter.tell(Msg(HomingGivenUpMessage).arg(status), Prompter::Icon::Exclamation);
            return 1;
        }
        m_view.setStopEnabled(true);
    }
}

void Homing::homeMoveFailed()
{
    m_ctx.link.CloseCommPort();
    m_view.setHomeEnabled(true);
    const QString reply = m_ctx.commands.reply();
    if (reply.startsWith(QLatin1String("0%%"))) {
        m_ctx.link.ErrorCheck(reply);
        if (reply.startsWith(QLatin1String("0%%0B")))
            qCInfo(lcOpData) << "homing refused by the controller:" << reply.trimmed();
    }
}
