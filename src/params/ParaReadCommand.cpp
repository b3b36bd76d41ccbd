#include "params/ParaReadCommand.h"

#include "common/ControlLock.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "common/RuntimeError.h"
#include "device/DeviceList.h"
#include "link/Link.h"
#include "link/Prompter.h"
#include "link/SequenceContext.h"
#include "params/ParaCommandFrame.h"
#include "params/ParaCtRead.h"
#include "params/ParaData.h"
#include "params/ParaFileCommands.h"
#include "params/ParaScreen.h"
#include "params/ParaScreenTransfer.h"
#include "params/ParaValueCheck.h"
#include "params/TakeCtParaImage.h"

namespace {

constexpr int CurrentNotShown = 4300;
constexpr int ValueDoesNotFit = 4303;
constexpr int NotSavedNotRead = 5000;

} // namespace

ParaReadCommand::ParaReadCommand(SequenceContext& ctx, ParaData& data, DeviceList& devices)
    : m_ctx(ctx)
    , m_data(data)
    , m_devices(devices)
{
}

void ParaReadCommand::cmdParaRead_Click(ParaScreen& screen)
{
    runParaTransaction(m_ctx, [&] { GetParametaValue(screen); });
}

int ParaReadCommand::GetParametaValue(ParaScreen& screen)
{
    if (m_data.paraEdited && CheckParaInput(screen) == 1) {
        const Prompter::Answer answer = m_ctx.prompter.ask(Msg(355), Prompter::Buttons::YesNoCancel,
                                                           Prompter::Icon::Question);
        if (answer == Prompter::Answer::Cancel)
            return 1;
        // The edits the user wanted kept are not read over when they could not be saved.
        if (answer == Prompter::Answer::Yes
            && ParaFileCommands(m_ctx.prompter, m_ctx.files).cmdSaveParaFile_Click(m_data, screen) != 0) {
            m_ctx.prompter.tell(Msg(NotSavedNotRead), Prompter::Icon::Exclamation);
            return 1;
        }
    }
    if (m_devices.ReadDeviceList(m_ctx.prompter) != 0) {
        m_ctx.prompter.tell(Msg(356));
        return 1;
    }
    if (ReadParaFromCt(m_ctx, m_data.image) != 0)
        return 1;

    try {
        TakeCtParaImage(m_data.image, m_data.set);
    } catch (const RuntimeError&) {
        m_ctx.prompter.tell(Msg(ValueDoesNotFit), Prompter::Icon::Exclamation);
        return 1;
    }
    ParametaHyoji(m_data.set, screen);
    m_data.paraEdited = false;
    m_shown = true;
    try {
        return GetSPdenryu(m_ctx, screen);
    } catch (const RuntimeError&) {
        m_ctx.prompter.tell(Msg(CurrentNotShown), Prompter::Icon::Exclamation);
        return 1;
    }
}
