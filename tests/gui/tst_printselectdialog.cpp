#include "SimWindowRig.h"
#include "support/ScriptedFileChooser.h"
#include "support/ScriptedPrompter.h"
#include "support/TempSettings.h"

#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "print/PrintCanvas.h"
#include "print/widgets/PrintSelectDialog.h"
#include "print/widgets/PrinterOutput.h"

#include <QPageLayout>
#include <QPageSize>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTemporaryDir>
#include <QTest>
#include <QtWidgets>

#include <memory>

namespace {

const QString PickedFile = QStringLiteral("/data/line4/station12/KTRdata.qmd");

// Remembers the page it was asked to draw on.
class PageSpy : public Printout {
public:
    QString pdfFileName() const override { return QStringLiteral("unit12.pdf"); }
    int rightEdgeMm = 0;
    int pitchMm = 0;

protected:
    void draw(PrintCanvas& canvas) override
    {
        rightEdgeMm = canvas.metrics().gRightEdge;
        pitchMm = canvas.metrics().gLinePitch;
    }
};

} // namespace

class TestPrintSelectDialog : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_settings = std::make_unique<TempSettings>();
        ProgramState::reset();
        ProgramState::instance().gMsgBase = MessageTable::EnglishBase;
        m_prompter = ScriptedPrompter();
        m_chooser = ScriptedFileChooser();
        m_main = std::make_unique<QWidget>();
    }
    void cleanup()
    {
        m_main.reset();
        m_settings.reset();
    }

    void gridIsTheFirstChoice()
    {
        PrintSelectDialog dialog(m_chooser, m_prompter, m_main.get(), false);
        dialog.show();
        // Enabled at load even while the grid is chosen; the options switch them.
        QVERIFY(dialog.lblPrintPosiName->isEnabled() && dialog.cmdSelectPosiFile->isEnabled());
        clickOption(dialog.optPrintPosi_1);
        clickOption(dialog.optPrintPosi_0);
        QVERIFY(!dialog.lblPrintPosiName->isEnabled() && !dialog.cmdSelectPosiFile->isEnabled());
    }

    // Browse shows the bare name and keeps the path, whichever way the dialog
    // is left. A cancelled browse changes nothing, so Set still has no file.
    void browseThenLeave_data()
    {
        QTest::addColumn<bool>("fileOnly");
        QTest::addColumn<QString>("picked"); // empty: the browse is cancelled
        QTest::addColumn<QString>("how");
        QTest::newRow("only a file can be printed, browse cancelled") << true << QString() << "set";
        QTest::newRow("Cancel button") << false << PickedFile << "cancel";
        QTest::newRow("window frame") << false << PickedFile << "close";
    }
    void browseThenLeave()
    {
        QFETCH(bool, fileOnly);
        QFETCH(QString, picked);
        QFETCH(QString, how);
        m_chooser.setNextFileName(picked);
        PrintSelectDialog dialog(m_chooser, m_prompter, m_main.get(), fileOnly);
        dialog.show();
        if (fileOnly)
            QVERIFY(dialog.optPrintPosi_0->isHidden() && dialog.optPrintPosi_1->isHidden());
        else
            clickOption(dialog.optPrintPosi_1);
        QVERIFY(dialog.optPrintPosi_1->isChecked());
        QVERIFY(dialog.lblPrintPosiName->isEnabled() && dialog.cmdSelectPosiFile->isEnabled());
        QTest::mouseClick(dialog.cmdSelectPosiFile, Qt::LeftButton);
        QCOMPARE(m_chooser.requests.size(), 1);
        const ScriptedFileChooser::Request& request = m_chooser.requests[0];
        QVERIFY(!request.save && request.title == Msg(1828) && request.filter == Msg(351)
                && request.defaultExtension == Msg(51));
        QCOMPARE(dialog.lblPrintPosiName->text(), picked.isEmpty() ? Msg(1822) : QStringLiteral("KTRdata.qmd"));
        if (how == "set")
            QTest::mouseClick(dialog.cmdPrintSet, Qt::LeftButton);
        else if (how == "cancel")
            QTest::mouseClick(dialog.cmdPrintCancel, Qt::LeftButton);
        else
            dialog.close();
        QCOMPARE(dialog.isVisible(), picked.isEmpty());
        QCOMPARE(dialog.PrintFileData, how == "set" && !picked.isEmpty());
        QCOMPARE(dialog.Cancelled, how != "set");
        QVERIFY(!dialog.PrintGridData);
        QCOMPARE(dialog.PosiFileName, picked);
        QCOMPARE(dialog.lblPrintPosiName->toolTip(), picked);
        QCOMPARE(m_prompter.texts(), picked.isEmpty() ? QStringList{Msg(1824)} : QStringList{});
        for (const auto& box : m_prompter.shown)
            QCOMPARE(box.buttons, Prompter::Buttons::Ok);
    }

    // Every way out of the print dialog. The offscreen platform has no
    // printer, so Print cannot start: the user is told so, and shown the
    // way to a PDF file.
    void dialogAnswers_data()
    {
        QTest::addColumn<int>("result");
        QTest::addColumn<QString>("name"); // given in the file dialog
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
        QCOMPARE(page.pitchMm, 6);
    }

private:
    std::unique_ptr<TempSettings> m_settings;
    std::unique_ptr<QWidget> m_main;
    ScriptedPrompter m_prompter;
    ScriptedFileChooser m_chooser;
};

QTEST_MAIN(TestPrintSelectDialog)
#include "tst_printselectdialog.moc"
