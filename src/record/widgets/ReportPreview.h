#pragma once

#include <QDialog>
#include <QPrinter>

class FileChooser;
class Prompter;
class QPushButton;
class ReportPrintout;

// The report's pages as they will be printed, with Print (the system print
// dialog, which offers Save as PDF too) and Save as PDF. The print preview
// dialog of Qt prints by itself and says nothing when the printer fails, so
// its preview widget is shown here and printing goes through PrinterOutput,
// which is never silent.
class ReportPreview : public QDialog {
    Q_OBJECT
public:
    ReportPreview(ReportPrintout& printout, FileChooser& files, Prompter& prompter, QWidget* parent);

    QPushButton* cmdReportPrint;
    QPushButton* cmdReportSavePdf;

private:
    void print();
    void savePdf();

    ReportPrintout& m_printout;
    FileChooser& m_files;
    Prompter& m_prompter;
    QPrinter m_printer{QPrinter::HighResolution};
};
