#include "opdata/IoMonitor.h"

#include "common/ControlLock.h"
#include "common/MessageTable.h"
#include "common/Waiter.h"
#include "link/CommandSet.h"
#include "link/Link.h"
#include "link/Prompter.h"
#include "link/SequenceContext.h"
#include "opdata/IoMonitorView.h"

#include <QScopedValueRollback>

namespace {

constexpr int StartCaption = 702;
constexpr int StopCaption = 704;
constexpr int MonitorMode = 7;
constexpr int NormalMode = 0;
constexpr int InputDigitsPos = 4;  // "0RI" + 3 digits
constexpr int OutputDigitsPos = 4; // "0RO" + 2 digits

} // namespace

IoMonitor::IoMonitor(SequenceContext& ctx, IoMonitorView& view, QObject* parent)
    : QObject(parent)
    , m_ctx(ctx)
    , m_view(view)
{
    timerInputOutput1.setInterval(PollIntervalMs);
    connect(&timerInputOutput1, &QTimer::timeout, this, &IoMonitor::poll);
}

// A click while the monitor is still leaving its mode changes nothing: the
// stop already asked for ends it.
void IoMonitor::toggle()
{
    if (mIoStopRequest)
        return;
    if (mIoRunning)
        stop();
    else
        start();
}

void IoMonitor::start()
{
    mIoRunning = true;
    mIoFirstPoll = false;
    timerInputOutput1.start(PollIntervalMs);
    m_view.setMonitorCaption(Msg(StopCaption));
    m_view.setOtherCommandsEnabled(false);
    m_ctx.lock.setTabsEnabled(false);
    m_ctx.lock.Menyu_Muko();
}

// The other commands come back only once the controller has left
// monitoring mode: started earlier, one would find the line taken by the
// monitor's last exchange and fail.
void IoMonitor::stop()
{
    mIoStopRequest = true;
    m_view.setMonitorCaption(Msg(StartCaption));
    // Leave monitoring mode at once rather than a whole interval later.
    if (timerInputOutput1.isActive())
        QTimer::singleShot(0, this, &IoMonitor::poll);
}

void IoMonitor::releaseCommands()
{
    m_view.setOtherCommandsEnabled(true);
    m_ctx.lock.setTabsEnabled(true);
    m_ctx.lock.Menyu_Yuko();
}

// Ticks arriving while a tick waits for the controller are dropped: each
// tick runs its exchanges to the end first.
void IoMonitor::poll()
{
    if (m_inPoll || !mIoRunning)
        return;
    const QScopedValueRollback inPoll(m_inPoll, true);

    if (!mIoFirstPoll) {
        if (m_ctx.commands.SetCommMode(MonitorMode) != 0) {
            failed();
            return;
        }
        mIoFirstPoll = true;
    }
    if (!mIoStopRequest) {
        if (mIoWritePending)
            writeToggledOutputs();
        if (!readInputsAndOutputs()) {
            failed();
            return;
        }
        IoStateHyoji();
        emit lampsShown();
    }
    if (mIoStopRequest)
        leaveMonitorMode();
}

bool IoMonitor::readInputsAndOutputs()
{
    const QScopedValueRollback reading(mIoReading, true);
    if (m_ctx.commands.ReadInputs() != 0)
        return false;
    IoBits::decode(m_ctx.commands.field(InputDigitsPos, IoBits::InputDigits), InputBits);
    if (m_ctx.commands.ReadOutputs() != 0)
        return false;
    IoBits::decode(m_ctx.commands.field(OutputDigitsPos, IoBits::OutputDigits), OutputBits);
    return true;
}

void IoMonitor::writeToggledOutputs()
{
    for (int d = 1; d <= IoBits::OutputDigits; ++d)
        for (int b = 0; b < IoBits::BitsPerDigit; ++b)
            if (OutputToggle[d][b]) {
                OutputBits[d][b] = !OutputBits[d][b];
                OutputToggle[d][b] = false;
            }
    mIoWritePending = false;
    if (m_ctx.commands.WriteOutputs(IoBits::outputDigits(OutputBits)) != 0)
        m_ctx.prompter.tell(MsgLines({384, 0, 385}), Prompter::Icon::Exclamation);
}

void IoMonitor::leaveMonitorMode()
{
    timerInputOutput1.stop();
    m_ctx.commands.SetCommMode(NormalMode);
    m_ctx.link.CloseCommPort();
    releaseCommands();
    clearFlags();
    AllLED_Off();
}

// The link has shown what went wrong; the monitor ends in its stopped state.
void IoMonitor::failed()
{
    timerInputOutput1.stop();
    m_view.setMonitorCaption(Msg(StartCaption));
    releaseCommands();
    m_ctx.link.CloseCommPort();
    clearFlags();
    AllLED_Off();
}

void IoMonitor::clearFlags()
{
    mIoRunning = false;
    mIoFirstPoll = false;
    mIoStopRequest = false;
    mIoWritePending = false;
    mIoReading = false;
    // A wait for the monitor to end may be watching mIoRunning.
    Waiter::wake();
}

void IoMonitor::outputClicked(IoLamp lamp)
{
    const IoBits::Source s = IoBits::source(lamp);
    if (!s.output || !mIoRunning || mIoStopRequest)
        return;
    OutputToggle[s.digit][s.bit] = true;
    mIoWritePending = true;
}

void IoMonitor::IoStateHyoji()
{
    for (IoLamp lamp : AllIoLamps)
        m_view.setLamp(lamp, IoBits::lampOn(lamp, InputBits, OutputBits));
}

void IoMonitor::AllLED_Off()
{
    for (IoLamp lamp : AllIoLamps)
        m_view.setLamp(lamp, false);
}
