#include "record/widgets/ReportPreview.h"

#include "common/MessageTable.h"
#include "print/widgets/PrinterOutput.h"
#include "record/ReportPrintout.h"

#include <QDialogButtonBox>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int Title = 5687;
constexpr int PrintCaption = 5688;
constexpr int SavePdfCaption = 5320;
constexpr int CloseCaption = 5689;

} // namespace

ReportPreview::ReportPreview(ReportPrintout& printout, FileChooser& files, Prompter& prompter, QWidget* parent)
    : QDialog(parent)
    , m_printout(printout)
    , m_files(files)
    , m_prompter(prompter)
{
    setObjectName(QStringLiteral("frmReportPreview"));
    setWindowTitle(Msg(Title));
    m_printer.setPageSize(QPageSize(printout.paper()));
    auto* preview = new QPrintPreviewWidget(&m_printer, this);
    connect(preview, &QPrintPreviewWidget::paintRequested, this,
            [this](QPrinter* printer) { PrinterOutput::printOn(m_printout, *printer); });

    auto* buttons = new QDialogButtonBox(this);
    cmdReportPrint = buttons->addButton(Msg(PrintCaption), QDialogButtonBox::AcceptRole);
    cmdReportSavePdf = buttons->addButton(Msg(SavePdfCaption), QDialogButtonBox::ActionRole);
    QPushButton* close = buttons->addButton(Msg(CloseCaption), QDialogButtonBox::RejectRole);
    cmdReportPrint->setObjectName(QStringLiteral("cmdReportPrint"));
    cmdReportSavePdf->setObjectName(QStringLiteral("cmdReportSavePdf"));
    close->setObjectName(QStringLiteral("cmdReportClose"));
    connect(cmdReportPrint, &QPushButton::clicked, this, &ReportPreview::print);
    connect(cmdReportSavePdf, &QPushButton::clicked, this, &ReportPreview::savePdf);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(preview, 1);
    layout->addWidget(buttons);
    resize(800, 900);
}

// The preview stays open after a failure, so the user can try the other way.
void ReportPreview::print()
{
    if (PrinterOutput(m_files, m_prompter, this).print(m_printout))
        accept();
}

void ReportPreview::savePdf()
{
    if (PrinterOutput(m_files, m_prompter, this).saveAsPdf(m_printout))
        accept();
}
