#include "opdata/widgets/OpDataPrintCommand.h"

#include "link/SequenceContext.h"
#include "opdata/OpDataState.h"
#include "opdata/OpDataTorikomi.h"
#include "opdata/OpDataView.h"
#include "print/OpDataPrintSource.h"
#include "print/OpDataPrintout.h"
#include "print/widgets/PrintSelectDialog.h"

OpDataPrintCommand::OpDataPrintCommand(SequenceContext& ctx, OpDataView& view, OpDataState& state,
                                       QWidget* mainWindow, PrintFunction print)
    : m_ctx(ctx)
    , m_view(view)
    , m_state(state)
    , m_mainWindow(mainWindow)
    , m_print(std::move(print))
{
}

void OpDataPrintCommand::run(bool fileOnly)
{
    PrintSelectDialog dialog(m_ctx.files, m_ctx.prompter, m_mainWindow, fileOnly);
    dialog.exec();
    if (dialog.Cancelled)
        return;
    OpDataPrintData data;
    if (!dataToPrint(dialog, data))
        return;
    OpDataPrintout printout(data);
    m_print(printout);
}

bool OpDataPrintCommand::dataToPrint(const PrintSelectDialog& dialog, OpDataPrintData& data)
{
    if (dialog.PrintFileData)
        return OpDataPrintSource::fromFile(dialog.PosiFileName, m_state.PosiDataRead,
                                           m_ctx.prompter, data)
            == 0;
    if (!dialog.PrintGridData)
        return false;
    const OpDataScreen screen = m_view.screen();
    if (OpDataTorikomi::PosiDataTorikomi(screen, m_state.PosiData, m_ctx.prompter) != 0)
        return false;
    data = OpDataPrintSource::fromScreen(screen, m_state.PosiData);
    return true;
}
