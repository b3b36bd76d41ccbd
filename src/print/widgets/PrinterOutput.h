#pragma once

#include <QAbstractPrintDialog>

class Printout;
class QPrintDialog;
class QPrinter;
class QWidget;

// Prints a printout on a printer the user picks in the system print dialog.
// The dialog offers no selection and no print-to-file; copies and collation
// are the printer's own settings.
class PrinterOutput {
public:
    // False when the user cancelled: nothing is printed and nothing said.
    static bool print(Printout& printout, QWidget* parent);

    static void configure(QPrintDialog& dialog);
    // Draws the page on a printer already chosen, measured from the
    // paper's edge so the page looks as it does in a PDF.
    static void printOn(Printout& printout, QPrinter& printer);
};
