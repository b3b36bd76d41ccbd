#include "opdata/ReadFromCt.h"

#include "common/ControlLock.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "link/CommandSet.h"
#include "link/Link.h"
#include "link/Prompter.h"
#include "link/SequenceContext.h"
#include "link/SequenceGuard.h"
#include "opdata/OpDataFileCommands.h"
#include "opdata/OpDataHyoji.h"
#include "opdata/OpDataRecord.h"
#include "opdata/OpDataState.h"
#include "opdata/OpDataView.h"
#include "opdata/TransferProgress.h"

namespace {

using Step = SequenceGuard::Step;
const SequenceGuard::Bracket Held{{Step::CommandButtons, Step::Tabs, Step::Menus, Step::Busy, Step::Own}, {Step::ClosePort, Step::Own, Step::Busy, Step::CommandButtons, Step::Tabs, Step::Menus}};

constexpr int SaveBeforeReading = 369;
constexpr int NotSavedNotRead = 5000;
constexpr int ReadConfirm = 370;
constexpr int ReadingText = 368;
constexpr int InsideCt = 374;
constexpr int TransferSteps = 3;
constexpr int RecordNo = 1;

} // namespace

ReadFromCt::ReadFromCt(SequenceContext& ctx, OpDataState& state, OpDataView& view)
    : m_ctx(ctx)
    , m_state(state)
    , m_view(view)
{
}

void ReadFromCt::run()
{
    const bool exchanged = heldSteps();
    if (exchanged && !m_ctx.commands.outcome().commError())
        showChoicesFromValues();
    m_state.mEventsOff = false;
}

// True when the user let the read go ahead.
bool ReadFromCt::heldSteps()
{
    const SequenceGuard guard(m_ctx.lock, &m_ctx.link, Held,
                              [this](bool enabled) { m_view.setSpeedChoiceEnabled(enabled); });
    const bool exchanged = askFirst();
    if (exchanged && ReadPosidataFromCt() == 0)
        showReadData();
    return exchanged;
}

// Unsaved edits are offered a save first; otherwise the read is confirmed.
bool ReadFromCt::askFirst()
{
    if (!ProgramState::instance().gDataChanged)
        return m_ctx.prompter.ask(Msg(ReadConfirm), Prompter::Buttons::YesNo,
                                  Prompter::Icon::Question)
            == Prompter::Answer::Yes;

    const OpDataScreen s = m_view.screen();
    if (s.txtVEL.isEmpty() && s.txtACC.isEmpty() && s.txtDIVISION.isEmpty() && s.txtGEAR.isEmpty())
        return true;
    switch (m_ctx.prompter.ask(Msg(SaveBeforeReading), Prompter::Buttons::YesNoCancel,
                               Prompter::Icon::Question)) {
    case Prompter::Answer::Yes:
        return saveFirst();
    case Prompter::Answer::No:
        return true;
    default:
        return false;
    }
}

// Edits the user wanted kept are not read over when they could not be saved.
bool ReadFromCt::saveFirst()
{
    OpDataFileCommands file(m_ctx.prompter, m_ctx.lock, m_ctx.progress, m_ctx.files, m_state, m_view);
    if (file.saveAsSteps() == 0)
        return true;
    m_ctx.prompter.tell(Msg(NotSavedNotRead), Prompter::Icon::Exclamation);
    return false;
}

int ReadFromCt::ReadPosidataFromCt()
{
    if (m_ctx.link.OpenCommPort() != 0 || m_ctx.commands.CheckCommunication() != 0)
        return 1;

    TransferProgress progress(m_ctx.progress);
    progress.show(Msg(ReadingText), TransferSteps);
    progress.pause();
    progress.step(1);
    if (m_ctx.commands.ReadPosition(RecordNo) != 0) {
        m_ctx.link.CloseCommPort();
        progress.hide();
        return 1;
    }
    const QString reply = m_ctx.commands.reply();
    progress.step(2);
    progress.step(3);
    progress.pause();
    progress.hide();

    if (!OpDataRecord::parseReply(reply, m_state.PosiDataRead)) {
        m_ctx.prompter.tell(MsgLines({384, 0, 385}), Prompter::Icon::Exclamation);
        return 1;
    }
    return 0;
}

void ReadFromCt::showReadData()
{
    m_state.PosiData.copyRow0(m_state.PosiDataRead, PosiTable::VEL, PosiTable::Spare3);
    OpDataScreen screen = m_view.screen();
    OpDataHyoji::PosiDataHyoji(m_state.PosiDataRead, screen);
    m_state.mEventsOff = true;
    m_view.showScreen(screen);
    m_state.mDataTitle = Msg(InsideCt);
    ProgramState::instance().gDataChanged = false;
}

void ReadFromCt::showChoicesFromValues()
{
    OpDataScreen screen = m_view.screen();
    OpDataHyoji::ChoicesFromValues(screen);
    m_state.mEventsOff = true;
    m_view.showScreen(screen);
}
