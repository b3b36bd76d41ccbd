#include "print/widgets/PrinterOutput.h"

#include "print/Printout.h"

#include <QPrintDialog>
#include <QPrinter>

bool PrinterOutput::print(Printout& printout, QWidget* parent)
{
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, parent);
    configure(dialog);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    printOn(printout, printer);
    return true;
}

void PrinterOutput::configure(QPrintDialog& dialog)
{
    dialog.setOption(QAbstractPrintDialog::PrintSelection, false);
    dialog.setOption(QAbstractPrintDialog::PrintToFile, false);
}

void PrinterOutput::printOn(Printout& printout, QPrinter& printer)
{
    printer.setFullPage(true);
    printout.render(printer);
}
