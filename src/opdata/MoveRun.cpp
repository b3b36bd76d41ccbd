#include "opdata/MoveRun.h"

#include "common/ControlLock.h"
#include "common/MessageTable.h"
#include "common/NumberText.h"
#include "common/ProgramState.h"
#include "common/Waiter.h"
#include "link/CommandSet.h"
#include "link/Link.h"
#include "link/Prompter.h"
#include "link/SequenceContext.h"
#include "link/SequenceGuard.h"
#include "opdata/MoveTestState.h"
#include "opdata/OpDataView.h"

#include <QScopedValueRollback>

namespace {

using Step = SequenceGuard::Step;
const SequenceGuard::Bracket Held{{Step::MoveButtons, Step::Tabs, Step::Menus, Step::Busy}, {Step::Busy, Step::MoveButtons, Step::Tabs, Step::Menus}};

// Test moves always go to point 1; the range check of a point number is
// kept for the day the point can be chosen.
constexpr int TestPoint = 1;
constexpr int FirstPoint = 1;
constexpr int LastPoint = 63;
constexpr int PointRangeMessage = 561;
constexpr int MoveGivenUpMessage = 5100;

constexpr int StatusMoving = 0;
constexpr int StatusFinished = 1;
constexpr int StatusStopped = 2;
constexpr int StatusFailed = -1;

constexpr int DwellUnitMs = 100; // the dwell is entered in tenths of a second
constexpr qint16 SeriesEnd = MoveRun::SeriesLength + 1;

bool pointInRange(int point)
{
    return point >= FirstPoint && point <= LastPoint;
}

} // namespace

MoveRun::MoveRun(SequenceContext& ctx, MoveTestState& state, OpDataView& view, QObject* parent)
    : QObject(parent)
    , m_ctx(ctx)
    , m_state(state)
    , m_view(view)
{
    Timer2.setSingleShot(true);
    // The dwell is a timing the user set: not the 5% early a coarse timer may fire.
    Timer2.setTimerType(Qt::PreciseTimer);
    connect(&Timer2, &QTimer::timeout, this, [this] {
        m_state.mDwellOver = true;
        Waiter::wake();
    });
}

MoveRun::Result MoveRun::run()
{
    if (m_running)
        return Result::Failed;
    const QScopedValueRollback running(m_running, true);
    const SequenceGuard guard(m_ctx.lock, nullptr, Held);
    return steps();
}

void MoveRun::stop()
{
    if (!m_running)
        return;
    m_state.mStopRequest = true;
    Waiter::wake();
}

bool MoveRun::continuous() const
{
    return m_view.screen().optCNT;
}

bool MoveRun::stopped() const
{
    return m_state.mStopRequest || m_state.mStopOther || Waiter::aborted();
}

MoveRun::Result MoveRun::steps()
{
    QString dwellText = m_view.screen().txtTimer;
    if (dwellText == u"0")
        dwellText.clear();

    const int status = m_ctx.commands.ReadRunStatus();
    if (status != StatusFinished && status != StatusStopped) {
        m_ctx.link.CloseCommPort();
        return status == StatusFailed ? Result::Failed : Result::NotAtRest;
    }
    takeLeftovers(continuous());

    Result result = Result::Done;
    do {
        if (m_state.mMoveNo >= SeriesEnd)
            break;
        if (!moveOnce()) {
            result = Result::Failed;
            break;
        }
        if (stopped() || !continuous())
            break;
        dwell(dwellText);
        if (m_state.mMoveNo == SeriesEnd) {
            m_state.mMoveNo = 1;
            break;
        }
    } while (continuous() && !stopped());

    if (m_state.mMoveNo >= SeriesEnd)
        m_state.mMoveNo = 1;
    m_ctx.link.CloseCommPort();
    return result;
}

// What the previous run left behind: a stopped series starts again at its
// first move, and a step whose end was not seen starts a new count.
void MoveRun::takeLeftovers(bool continuousMode)
{
    if (m_state.mStopRequest && continuousMode) {
        m_state.mMoveNo = 1;
        m_state.mStopRequest = false;
    }
    if (continuousMode && m_state.mStopOther)
        m_state.mStopOther = false;
    if (!continuousMode && m_state.mMoving) {
        m_state.mMoveNo = 1;
        m_state.mMoving = false;
    }
}

// One move to the test point and the wait for its end; false ends the run.
bool MoveRun::moveOnce()
{
    if (!pointInRange(TestPoint)) {
        m_ctx.prompter.tell(Msg(PointRangeMessage), Prompter::Icon::Exclamation);
        return false;
    }
    if (m_ctx.commands.MoveToPosition(TestPoint) != 0)
        return false;
    m_state.mMoving = true;
    WaitMs(AfterStartMs);
    if (waitForMoveEnd() != Poll::Finished)
        return false;
    emit moveFinished(m_state.mMoveNo);
    ++m_state.mMoveNo;
    return true;
}

// A controller that stopped short of the end (an alarm: status 3) is polled
// on, as it may yet go on; STOP gives the move up then, so that the user can
// reset the alarm.
MoveRun::Poll MoveRun::waitForMoveEnd()
{
    for (;;) {
        if (Waiter::sleep(PollGapMs) == Waiter::Result::Aborted)
            return Poll::Aborted;
        const int status = m_ctx.commands.ReadRunStatus();
        switch (status) {
        case StatusFinished:
            m_state.mMoving = false;
            return Poll::Finished;
        case StatusStopped:
            return Poll::Finished;
        case StatusFailed:
            return Poll::Failed;
        case StatusMoving:
            break;
        default:
            if (m_state.mStopRequest) {
                m_ctx.prompter.tell(Msg(MoveGivenUpMessage).arg(status), Prompter::Icon::Exclamation);
                return Poll::GivenUp;
            }
        }
    }
}

void MoveRun::dwell(const QString& dwellText)
{
    if (m_view.screen().chkTimerUse && !dwellText.isEmpty()) {
        Timer2.setInterval(int(LeadingNumber(dwellText)) * DwellUnitMs);
        Timer2.start();
    } else {
        m_state.mDwellOver = true;
    }
    Waiter::waitUntil([this] { return m_state.mDwellOver || stopped(); });
    Timer2.stop();
    m_state.mDwellOver = false;
}

void MoveRun::WaitMs(int ms)
{
    Waiter::sleep(ms);
}
