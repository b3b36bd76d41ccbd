#include "params/ParaCtRead.h"

#include "common/ControlLock.h"
#include "common/ProgramState.h"
#include "link/CommandSet.h"
#include "link/SequenceContext.h"
#include "params/ParaBlockCodec.h"
#include "params/ParaScreen.h"
#include "params/SpCurrent.h"

namespace {

constexpr int ReadTimeoutMs = 3000;
constexpr int ReadSteps = 4;
constexpr int Block7 = 7;

} // namespace

int ReadParaFromCt(SequenceContext& ctx, CtParaImage& image)
{
    ctx.progress.Disp_ProgressBar(ReadSteps);
    std::array<QString, 3> replies;
    for (int block = 0; block < 3; ++block) {
        if (ctx.commands.ReadParaBlock(block, ReadTimeoutMs) != 0) {
            ProgramState::instance().gCommBusy = false;
            ctx.progress.Hide_ProgressBar();
            return 1;
        }
        replies.at(size_t(block)) = ctx.commands.reply();
        ctx.progress.setProgress(ctx.progress.progress() + 1);
    }
    ctx.progress.Hide_ProgressBar();
    DecodeParaBlocks(replies, image);
    return 0;
}

int ReadParaBlock7(SequenceContext& ctx, QString& digits)
{
    if (ctx.commands.ReadParaBlock(Block7, ReadTimeoutMs) != 0)
        return 1;
    digits = ctx.commands.field(5, 32);
    return 0;
}

int GetSPdenryu(SequenceContext& ctx, ParaScreen& screen)
{
    QString block7Digits;
    if (ReadParaBlock7(ctx, block7Digits) != 0)
        return 1;
    if (screen.comboActSize == QLatin1String("SP"))
        screen.txtDenryu = SpCurrentFromBlock7(block7Digits);
    return 0;
}
