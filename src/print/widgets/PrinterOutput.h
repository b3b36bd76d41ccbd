#pragma once

#include "print/Printout.h"

#include <QString>

#include <functional>

class FileChooser;
class Prompter;
class QPrintDialog;
class QPrinter;
class QWidget;

// Prints a printout on a printer the user picks in the system print dialog,
// or saves the same page as a PDF file from that dialog ("Save as PDF...",
// the file named through the FileChooser). The dialog offers no selection
// and no print-to-file; copies and collation are the printer's own
// settings. A page that cannot be printed or saved is never silent.
class PrinterOutput {
public:
    // Shows the dialog modally and returns its result; tests answer it
    // without a screen.
    using ShowDialog = std::function<int(QPrintDialog&)>;
    // The dialog's result when "Save as PDF..." was chosen with a file name.
    static constexpr int SavePdf = 2;

    PrinterOutput(FileChooser& files, Prompter& prompter, QWidget* parent,
                  ShowDialog show = showModal);

    // False when nothing was printed or saved: the dialog was cancelled (and
    // nothing is said), or the failure has been told.
    bool print(Printout& printout);

    // Asks for a file and saves the page there as a PDF; false when no file
    // was named (nothing said) or the save failed (told).
    bool saveAsPdf(Printout& printout);

    static void configure(QPrintDialog& dialog);
    // Draws the page on a printer already chosen, measured from the
    // paper's edge so the page looks as it does in a PDF.
    static Printout::Outcome printOn(Printout& printout, QPrinter& printer);

private:
    static int showModal(QPrintDialog& dialog);
    void offerPdf(QPrintDialog& dialog, const Printout& printout);
    bool askPdfPath(const QString& proposed);
    bool printed(Printout& printout, QPrinter& printer);
    bool savedAsPdf(Printout& printout);

    FileChooser& m_files;
    Prompter& m_prompter;
    QWidget* m_parent;
    ShowDialog m_show;
    QString m_pdfPath;
};
