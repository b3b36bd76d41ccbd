#include "support/ScriptedFileChooser.h"
#include "support/ScriptedPrompter.h"

#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "print/PrintCanvas.h"
#include "print/widgets/PrinterOutput.h"

#include <QDialog>
#include <QPageLayout>
#include <QPageSize>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

namespace {

// Remembers the page it was asked to draw on.
class PageSpy : public Printout {
public:
    QString pdfFileName() const override { return QStringLiteral("unit12.pdf"); }
    int rightEdgeMm = 0;

protected:
    void draw(PrintCanvas& canvas) override { rightEdgeMm = canvas.metrics().gRightEdge; }
};

} // namespace

class TestPrinterOutput : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { ProgramState::instance().gMsgBase = MessageTable::EnglishBase; }

    // Every way out of the print dialog. The offscreen platform has no
    // printer, so Print cannot start: the user is told so, and shown the
    // way to a PDF file.
    void dialogAnswers_data()
    {
        QTest::addColumn<int>("result");
        QTest::addColumn<QString>("name");   // given in the file dialog
        QTest::addColumn<bool>("done");
        QTest::addColumn<QString>("told");
        QTest::newRow("cancel") << int(QDialog::Rejected) << "" << false << "";
        QTest::newRow("print, no printer") << int(QDialog::Accepted) << "" << false << MsgLines({5323, 5326});
        QTest::newRow("PDF saved") << PrinterOutput::SavePdf << "sheet.pdf" << true << "";
        QTest::newRow("PDF folder missing") << PrinterOutput::SavePdf << "missing/sheet.pdf" << false << Msg(5325);
        QTest::newRow("PDF name cancelled") << PrinterOutput::SavePdf << "" << false << "";
    }
    void dialogAnswers()
    {
        QFETCH(int, result);
        QFETCH(QString, name);
        QFETCH(QString, told);
        if (result == QDialog::Accepted && !QPrinterInfo::availablePrinterNames().isEmpty())
            QSKIP("a printer is installed here");
        QTemporaryDir dir;
        const QString path = name.isEmpty() ? QString() : dir.filePath(name);
        PageSpy page;
        ScriptedFileChooser files;
        files.setNextFileName(path);
        ScriptedPrompter prompter;
        bool offered = false;
        const auto answer = [&](QPrintDialog& dialog) {
            auto* savePdf = dialog.findChild<QPushButton*>(QStringLiteral("cmdSavePdf"));
            offered = savePdf->text() == Msg(5320) && !dialog.testOption(QAbstractPrintDialog::PrintToFile)
                && !dialog.testOption(QAbstractPrintDialog::PrintSelection);
            if (result == PrinterOutput::SavePdf)
                savePdf->click();
            return result == PrinterOutput::SavePdf ? dialog.result() : result;
        };
        QTEST(PrinterOutput(files, prompter, nullptr, answer).print(page), "done");
        QVERIFY(offered);
        QCOMPARE(prompter.texts().join(u'|').left(told.size()), told);
        QCOMPARE(prompter.shown.isEmpty(), told.isEmpty());
        QFile pdf(path);
        QTEST(!path.isEmpty() && pdf.open(QIODevice::ReadOnly) && pdf.read(5) == "%PDF-", "done");
        if (result == PrinterOutput::SavePdf) {
            QCOMPARE(files.requests.size(), 1);
            const ScriptedFileChooser::Request& request = files.requests[0];
            QVERIFY(request.save && request.title == Msg(5321) && request.filter == Msg(5322));
            QCOMPARE(request.proposedName, QStringLiteral("unit12.pdf"));
        }
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
        QCOMPARE(PrinterOutput::printOn(page, printer), Printout::Outcome::Sent);
        QCOMPARE(page.rightEdgeMm, 200);
    }
};

QTEST_MAIN(TestPrinterOutput)
#include "tst_printeroutput.moc"
