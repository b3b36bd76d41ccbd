#include "params/ParaVerifyCommand.h"

#include "common/ControlLock.h"
#include "common/FileChooser.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "link/Link.h"
#include "link/Prompter.h"
#include "link/SequenceContext.h"
#include "params/ParaCommandFrame.h"
#include "params/ParaCompare.h"
#include "params/ParaCtRead.h"
#include "params/ParaData.h"
#include "params/ParaFile.h"
#include "params/ParaScreenTransfer.h"
#include "params/ParaValueCheck.h"

ParaVerifyCommand::ParaVerifyCommand(SequenceContext& ctx, ParaData& data)
    : m_ctx(ctx)
    , m_data(data)
{
}

bool ParaVerifyCommand::cmdConpareCT_Click(const ParaScreen& screen)
{
    bool read = false;
    runParaTransaction(m_ctx, [&] { read = CompareWithController(screen); });
    return read;
}

void ParaVerifyCommand::cmdConpareFile_Click(const ParaScreen& screen)
{
    const SequenceGuard guard(m_ctx.lock, nullptr, SequenceGuard::MenusOnly);
    CompareWithFile(screen);
}

bool ParaVerifyCommand::CompareWithController(const ParaScreen& screen)
{
    if (!screenReady(screen) || ReadParaFromCt(m_ctx, m_data.image) != 0)
        return false;
    report();
    return true;
}

void ParaVerifyCommand::CompareWithFile(const ParaScreen& screen)
{
    if (!screenReady(screen))
        return;
    const QString path = m_ctx.files.openFile(Msg(686), Msg(1827), QStringLiteral("pmt"));
    if (path.isEmpty())
        return;
    if (LoadParaFile(path, m_data.image, m_ctx.prompter) != 0) {
        m_ctx.prompter.tell(Msg(681));
        return;
    }
    report();
}

bool ParaVerifyCommand::screenReady(const ParaScreen& screen)
{
    if (CheckParaInput(screen) != 0) {
        m_ctx.prompter.tell(MsgLines({7, 8}));
        return false;
    }
    if (TorikomiParametaValue(screen, m_data.set) != 0 || ParametaValueCheck(m_data.set) != 0) {
        m_ctx.prompter.tell(MsgLines({1524, 1525}));
        return false;
    }
    return true;
}

void ParaVerifyCommand::report()
{
    ParaCompareLines lines;
    const int result = MakeParaCompareList(m_data.image, m_data.set, lines);
    m_ctx.prompter.tell(ParaVerifyReport(result, lines));
}
