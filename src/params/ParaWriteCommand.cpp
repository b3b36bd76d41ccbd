#include "params/ParaWriteCommand.h"

#include "common/ControlLock.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "link/CommandSet.h"
#include "link/Link.h"
#include "link/Prompter.h"
#include "link/SequenceContext.h"
#include "params/ActuatorSize.h"
#include "params/ParaBlockCodec.h"
#include "params/ParaCommandFrame.h"
#include "params/ParaData.h"
#include "params/ParaReadBack.h"
#include "params/ParaScreen.h"
#include "params/ParaScreenTransfer.h"
#include "params/ParaValueCheck.h"
#include "params/SpCurrent.h"

#include <algorithm>

namespace {

constexpr int WriteSteps = 7;
constexpr int Block7TimeoutMs = 3000;
constexpr int CurrentNotANumber = 4301;

bool isHexDigits(const QString& digits, int count)
{
    if (digits.size() != count)
        return false;
    return std::all_of(digits.cbegin(), digits.cend(), [](QChar c) {
        return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'F');
    });
}

} // namespace

ParaWriteCommand::ParaWriteCommand(SequenceContext& ctx, ParaData& data)
    : m_ctx(ctx)
    , m_data(data)
{
}

int ParaWriteCommand::cmdParaWrite_Click(const ParaScreen& screen)
{
    const bool readBack = ReadBack::chosen();
    int result = 1;
    runParaTransaction(m_ctx, [&] { result = WriteParaWorker(screen, readBack); });
    return result;
}

int ParaWriteCommand::WriteParaWorker(const ParaScreen& screen, bool readBack)
{
    Prompter& prompter = m_ctx.prompter;
    if (prompter.ask(Msg(470), Prompter::Buttons::YesNo, Prompter::Icon::Question) != Prompter::Answer::Yes)
        return 1;
    if (CheckParaInput(screen) != 0) {
        prompter.tell(MsgLines({7, 8}));
        return 1;
    }
    if (TorikomiParametaValue(screen, m_data.set) != 0 || ParametaValueCheck(m_data.set) != 0) {
        prompter.tell(MsgLines({1524, 1525}));
        return 1;
    }
    const int status = m_ctx.commands.ReadRunStatus();
    if (status == 0) {
        prompter.tell(Msg(424));
        return 1;
    }
    if (status == -1) {
        prompter.tell(Msg(377));
        return 1;
    }
    const int result = WriteParaToCt(screen.txtDenryu);
    if (result == 0 && readBack)
        m_readBack = ReadParaBack(m_ctx, m_data.set, m_data.image);
    ProgramState::instance().gCommBusy = false;
    if (result == 0)
        m_data.paraEdited = false;
    // A read-back's outcome takes the place of the completion message.
    if (m_readBack.result != ReadBack::Result::NotRun)
        m_readBack.tell(prompter);
    else
        prompter.tell(Msg(result == 0 ? 1527 : 1528));
    return result;
}

int ParaWriteCommand::WriteParaToCt(const QString& denryuText)
{
    const std::array<QString, 3> blocks = EncodeParaBlocks(m_data.set);
    m_ctx.progress.showTransfer(Msg(383), WriteSteps);
    m_step = 0;
    m_ctx.progress.setTransferProgress(m_step);
    const int result = sendBlocks(blocks, denryuText);
    m_ctx.progress.hideTransfer();
    return result;
}

// Blocks 0 to 2 and their end, then block 7 for the special actuator.
// Stops at the first failure: what was sent stays sent, "0WE" is not sent.
int ParaWriteCommand::sendBlocks(const std::array<QString, 3>& blocks, const QString& denryuText)
{
    for (int b = 0; b < 3; ++b) {
        if (m_ctx.commands.WriteParaBlock(blocks.at(size_t(b))) != 0
            || !replyEchoes(QStringLiteral("0WD") + QString::number(b)))
            return 1;
        step();
    }
    if (m_ctx.commands.EndParaWrite() != 0 || !replyEchoes(QStringLiteral("0WE")))
        return 1;
    step();
    if (m_data.set.axis.sizeText != SpecialSizeText())
        return 0;
    return sendBlock7(denryuText);
}

int ParaWriteCommand::sendBlock7(const QString& denryuText)
{
    if (m_ctx.commands.ReadParaBlock(7, Block7TimeoutMs) != 0 || !replyEchoes(QStringLiteral("0RD7")))
        return 1;
    const QString image = m_ctx.commands.field(5, 32);
    if (!isHexDigits(image, 32)) {
        m_ctx.prompter.tell(Msg(385));
        return 1;
    }
    step();
    const std::optional<QString> digits = SpCurrentToBlock7(image, denryuText);
    if (!digits) {
        m_ctx.prompter.tell(Msg(CurrentNotANumber));
        return 1;
    }
    if (m_ctx.commands.WriteParaBlock7(*digits) != 0 || !replyEchoes(QStringLiteral("0WD7")))
        return 1;
    step();
    if (m_ctx.commands.EndParaWriteAlt() != 0 || !replyEchoes(QStringLiteral("0WF")))
        return 1;
    step();
    return 0;
}

// Checks the echo that the link cannot know: the block digit behind the
// command letters.
bool ParaWriteCommand::replyEchoes(const QString& echo)
{
    if (m_ctx.commands.reply().startsWith(echo))
        return true;
    m_ctx.prompter.tell(Msg(384));
    return false;
}

void ParaWriteCommand::step()
{
    m_ctx.progress.setTransferProgress(++m_step);
}
