#include "print/widgets/PrinterOutput.h"

#include "common/FileChooser.h"
#include "common/MessageTable.h"
#include "link/Prompter.h"
#include "print/PdfPrinter.h"

#include <QDialogButtonBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>

namespace {

constexpr int SavePdfCaption = 5320;
constexpr int SavePdfTitle = 5321;
constexpr int PdfFilter = 5322;
constexpr int PrintNotStarted = 5323;
constexpr int PrintFailed = 5324;
constexpr int PdfNotSaved = 5325;
constexpr int PdfHint = 5326;

const QString PdfExtension = QStringLiteral("pdf");

} // namespace

PrinterOutput::PrinterOutput(FileChooser& files, Prompter& prompter, QWidget* parent,
                             ShowDialog show)
    : m_files(files)
    , m_prompter(prompter)
    , m_parent(parent)
    , m_show(std::move(show))
{
}

bool PrinterOutput::print(Printout& printout)
{
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, m_parent);
    configure(dialog);
    offerPdf(dialog, printout);
    switch (m_show(dialog)) {
    case QDialog::Accepted:
        return printed(printout, printer);
    case SavePdf:
        return savedAsPdf(printout);
    default:
        return false;
    }
}

void PrinterOutput::configure(QPrintDialog& dialog)
{
    dialog.setOption(QAbstractPrintDialog::PrintSelection, false);
    dialog.setOption(QAbstractPrintDialog::PrintToFile, false);
}

Printout::Outcome PrinterOutput::printOn(Printout& printout, QPrinter& printer)
{
    printer.setFullPage(true);
    const Printout::Outcome outcome = printout.render(printer);
    const bool refused = printer.printerState() == QPrinter::Error
        || printer.printerState() == QPrinter::Aborted;
    return outcome == Printout::Outcome::Sent && refused ? Printout::Outcome::NotFinished : outcome;
}

int PrinterOutput::showModal(QPrintDialog& dialog)
{
    return dialog.exec();
}

// The button joins the dialog's own row of buttons. A dialog drawn by the
// system has no such row to join; the system's own PDF printer serves there.
void PrinterOutput::offerPdf(QPrintDialog& dialog, const Printout& printout)
{
    auto* buttons = dialog.findChild<QDialogButtonBox*>();
    if (!buttons)
        return;
    QPushButton* savePdf = buttons->addButton(Msg(SavePdfCaption), QDialogButtonBox::ActionRole);
    savePdf->setObjectName(QStringLiteral("cmdSavePdf"));
    const QString proposed = printout.pdfFileName();
    QObject::connect(savePdf, &QPushButton::clicked, &dialog, [this, &dialog, proposed] {
        if (askPdfPath(proposed))
            dialog.done(SavePdf);
    });
}

bool PrinterOutput::askPdfPath(const QString& proposed)
{
    m_pdfPath = m_files.saveFile(Msg(SavePdfTitle), Msg(PdfFilter), PdfExtension, proposed);
    return !m_pdfPath.isEmpty();
}

bool PrinterOutput::saveAsPdf(Printout& printout)
{
    return askPdfPath(printout.pdfFileName()) && savedAsPdf(printout);
}

bool PrinterOutput::printed(Printout& printout, QPrinter& printer)
{
    switch (printOn(printout, printer)) {
    case Printout::Outcome::Sent:
        return true;
    case Printout::Outcome::NotStarted:
        m_prompter.tell(MsgLines({PrintNotStarted, PdfHint}), Prompter::Icon::Exclamation);
        return false;
    case Printout::Outcome::NotFinished:
        m_prompter.tell(MsgLines({PrintFailed, PdfHint}), Prompter::Icon::Exclamation);
        return false;
    }
    return false;
}

bool PrinterOutput::savedAsPdf(Printout& printout)
{
    QString error;
    if (PdfPrinter::write(printout, m_pdfPath, &error))
        return true;
    m_prompter.tell(Msg(PdfNotSaved) + QStringLiteral("\r\n") + m_pdfPath + QStringLiteral("\r\n")
                        + error,
                    Prompter::Icon::Exclamation);
    return false;
}
