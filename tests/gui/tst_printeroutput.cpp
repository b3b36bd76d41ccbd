#include "print/Printout.h"
#include "print/widgets/PrinterOutput.h"

#include <QApplication>
#include <QDialog>
#include <QPageLayout>
#include <QPageSize>
#include <QPaintDevice>
#include <QPrintDialog>
#include <QPrinter>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

namespace {

// Remembers the page it was asked to draw on.
class PageSpy : public Printout {
public:
    void render(QPaintDevice& device) override
    {
        ++renders;
        widthMm = device.widthMM();
        heightMm = device.heightMM();
    }
    int renders = 0;
    int widthMm = 0;
    int heightMm = 0;
};

} // namespace

class TestPrinterOutput : public QObject {
    Q_OBJECT

private slots:
    void dialogOffersNoSelectionAndNoFile()
    {
        QPrinter printer;
        QPrintDialog dialog(&printer);
        PrinterOutput::configure(dialog);
        QVERIFY(!dialog.testOption(QAbstractPrintDialog::PrintSelection));
        QVERIFY(!dialog.testOption(QAbstractPrintDialog::PrintToFile));
    }

    void cancelPrintsNothing()
    {
        PageSpy page;
        bool dialogSeen = false;
        QTimer::singleShot(0, this, [&] {
            if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                dialogSeen = true;
                dialog->reject();
            }
        });
        QVERIFY(!PrinterOutput::print(page, nullptr));
        QVERIFY(dialogSeen);
        QCOMPARE(page.renders, 0);
    }

    void pageIsMeasuredFromThePaperEdge()
    {
        QTemporaryDir dir;
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(dir.filePath(QStringLiteral("out.pdf")));
        printer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                          QMarginsF(15, 15, 15, 15)));
        PageSpy page;
        PrinterOutput::printOn(page, printer);
        QCOMPARE(page.renders, 1);
        QCOMPARE(page.widthMm, 210);
        QCOMPARE(page.heightMm, 297);
    }
};

QTEST_MAIN(TestPrinterOutput)
#include "tst_printeroutput.moc"
