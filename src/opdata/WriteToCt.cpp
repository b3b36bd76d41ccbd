#include "opdata/WriteToCt.h"

#include "common/ControlLock.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "link/CommandSet.h"
#include "link/Link.h"
#include "link/Prompter.h"
#include "link/SequenceContext.h"
#include "link/SequenceGuard.h"
#include "opdata/OpDataReadBack.h"
#include "opdata/OpDataRecord.h"
#include "opdata/OpDataState.h"
#include "opdata/OpDataTorikomi.h"
#include "opdata/OpDataView.h"
#include "opdata/TransferProgress.h"

namespace {

using Step = SequenceGuard::Step;
const SequenceGuard::Bracket Held{{Step::CommandButtons, Step::Tabs, Step::Menus, Step::Busy}, {Step::ClosePort, Step::CommandButtons, Step::Tabs, Step::Menus, Step::Busy}};

constexpr int WriteConfirm = 375;
constexpr int StatusFailed = 377;
constexpr int SendingText = 383;
constexpr int MovingRefusal = 424;
constexpr int TransferSteps = 3;

// The reply to "0WP" echoes the command and the first data character.
constexpr int EchoLength = 4;

} // namespace

WriteToCt::WriteToCt(SequenceContext& ctx, OpDataState& state, OpDataView& view)
    : m_ctx(ctx)
    , m_state(state)
    , m_view(view)
{
}

int WriteToCt::run()
{
    return run(ReadBack::chosen());
}

int WriteToCt::run(bool readBack)
{
    m_readBackAsked = readBack;
    const int result = heldSteps();
    ProgramState::instance().gDataChanged = false;
    return result;
}

int WriteToCt::heldSteps()
{
    const SequenceGuard guard(m_ctx.lock, &m_ctx.link, Held);
    return steps();
}

int WriteToCt::steps()
{
    if (OpDataTorikomi::PosiDataCheckAndTorikomi(m_view.screen(), m_state.PosiData, m_ctx.prompter)
        != 0)
        return 1;
    if (m_ctx.prompter.ask(Msg(WriteConfirm), Prompter::Buttons::OkCancel, Prompter::Icon::Question)
        != Prompter::Answer::Ok)
        return 1;

    switch (m_ctx.commands.ReadRunStatus()) {
    case 0:
        m_ctx.prompter.tell(Msg(MovingRefusal), Prompter::Icon::Exclamation);
        return 1;
    case -1:
        m_ctx.prompter.tell(Msg(StatusFailed), Prompter::Icon::Exclamation);
        return 1;
    default:
        break;
    }
    if (WritePosidataToCt() != 0)
        return 1;
    if (m_readBackAsked)
        confirmWrite();
    return 0;
}

// A write succeeds without a message; a read-back tells how it came out.
void WriteToCt::confirmWrite()
{
    m_readBack = ReadOpDataBack(m_ctx, m_view, m_state.PosiData);
    m_readBack.tell(m_ctx.prompter);
}

int WriteToCt::WritePosidataToCt()
{
    const QString text = OpDataRecord::WriteText(m_state.PosiData);
    TransferProgress progress(m_ctx.progress);
    progress.show(Msg(SendingText), TransferSteps);
    progress.step(1);

    if (m_ctx.commands.WritePosition(text) != 0) {
        progress.hide();
        m_ctx.link.CloseCommPort();
        return 1;
    }
    const QString sent = QStringLiteral("0WP") + text;
    if (sent.left(EchoLength) != m_ctx.commands.reply().left(EchoLength)) {
        progress.hide();
        m_ctx.link.CloseCommPort();
        m_ctx.prompter.tell(MsgLines({384, 0, 385}), Prompter::Icon::Exclamation);
        return 1;
    }
    if (m_ctx.commands.EndPositionWrite() != 0) {
        progress.hide();
        m_ctx.link.CloseCommPort();
        return 1;
    }
    progress.step(TransferSteps);
    progress.pause();
    progress.hide();
    return 0;
}
