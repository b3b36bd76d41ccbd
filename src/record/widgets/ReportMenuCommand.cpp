#include "record/widgets/ReportMenuCommand.h"

#include "link/SequenceContext.h"
#include "record/ReportCollector.h"
#include "record/ReportPrintout.h"
#include "record/UnitByPort.h"
#include "record/widgets/ReportDialog.h"
#include "record/widgets/ReportPreview.h"

ReportMenuCommand::ReportMenuCommand(SequenceContext& ctx, QWidget* window)
    : QObject(window)
    , m_ctx(ctx)
    , m_window(window)
{
    showPreview = [this](ReportPrintout& printout) {
        ReportPreview(printout, m_ctx.files, m_ctx.prompter, m_window).exec();
    };
}

// A read that fails has been told by the link; nothing more is shown.
void ReportMenuCommand::run()
{
    const QString port = ReportCollector::portText(m_ctx);
    ReportDialog dialog(UnitByPort::lastFor(port), m_window);
    if (dialog.exec() != QDialog::Accepted)
        return;
    UnitByPort::remember(port, dialog.unit());
    ReportData data;
    data.unit = dialog.unit();
    data.note = dialog.note();
    if (ReportCollector(m_ctx).collect(data) != 0)
        return;
    ReportPrintout printout(std::move(data), ReportPrintout::defaultPaper());
    showPreview(printout);
}
