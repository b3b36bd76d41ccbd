#include "support/ScriptedFileChooser.h"
#include "support/ScriptedPrompter.h"
#include "support/TempSettings.h"

#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "print/widgets/PrintSelectDialog.h"
#include "shell/Settings.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QTest>

#include <memory>

namespace {

const QString PickedFile = QStringLiteral("/data/line4/station12/KTRdata.qmd");

// An option button takes clicks on its circle and caption only.
void clickOption(QRadioButton* option)
{
    QTest::mouseClick(option, Qt::LeftButton, {}, QPoint(6, option->height() / 2));
}

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
        m_main->move(200, 150);
    }
    void cleanup()
    {
        m_main.reset();
        m_settings.reset();
    }

    void captionsAndPlacement_data()
    {
        QTest::addColumn<int>("msgBase");
        QTest::newRow("English") << 10000;
        QTest::newRow("Japanese") << 0;
    }
    void captionsAndPlacement()
    {
        QFETCH(int, msgBase);
        ProgramState::instance().gMsgBase = msgBase;
        PrintSelectDialog dialog(m_chooser, m_prompter, m_main.get());
        const QList<QPair<QString, int>> captions = {{dialog.windowTitle(), 1801},
            {dialog.findChild<QLabel*>("lblSelect")->text(), 1802},
            {dialog.findChild<QGroupBox*>("framPosi")->title(), 1803}, {dialog.optPrintPosi_0->text(), 1804},
            {dialog.optPrintPosi_1->text(), 1805}, {dialog.lblPrintPosiName->text(), 1822},
            {dialog.cmdSelectPosiFile->text(), 1807}, {dialog.lblPrintParaName->text(), 1821},
            {dialog.cmdPrintSet->text(), 4750}, {dialog.cmdPrintCancel->text(), 4751}};
        for (const auto& [shown, id] : captions)
            QCOMPARE(shown, Msg(id));
        // 500 twips right of and below the opener's corner.
        QCOMPARE(dialog.pos(), QPoint(233, 183));
    }

    void gridIsTheFirstChoice()
    {
        PrintSelectDialog dialog(m_chooser, m_prompter, m_main.get());
        dialog.show();
        QVERIFY(dialog.optPrintPosi_0->isChecked());
        QVERIFY(dialog.optPrintPosi_0->isVisible() && dialog.optPrintPosi_1->isVisible());
        QVERIFY(!dialog.findChild<QGroupBox*>("framPara")->isVisible());
        // Enabled at load even while the grid is chosen; the options switch them.
        QVERIFY(dialog.lblPrintPosiName->isEnabled() && dialog.cmdSelectPosiFile->isEnabled());
        clickOption(dialog.optPrintPosi_1);
        clickOption(dialog.optPrintPosi_0);
        QVERIFY(!dialog.lblPrintPosiName->isEnabled() && !dialog.cmdSelectPosiFile->isEnabled());
        QTest::mouseClick(dialog.cmdPrintSet, Qt::LeftButton);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QVERIFY(dialog.PrintGridData);
        QVERIFY(!dialog.PrintFileData && !dialog.Cancelled);
        QVERIFY(m_prompter.shown.isEmpty());
    }

    // A cancelled browse changes nothing, so Set still has no file.
    void fileBeforeBrowsingIsRefused()
    {
        PrintSelectDialog dialog(m_chooser, m_prompter, m_main.get());
        dialog.show();
        clickOption(dialog.optPrintPosi_1);
        QVERIFY(dialog.lblPrintPosiName->isEnabled() && dialog.cmdSelectPosiFile->isEnabled());
        QTest::mouseClick(dialog.cmdSelectPosiFile, Qt::LeftButton);
        QCOMPARE(m_chooser.requests.size(), 1);
        QCOMPARE(dialog.lblPrintPosiName->text(), Msg(1822));
        QVERIFY(dialog.PosiFileName.isEmpty());
        QTest::mouseClick(dialog.cmdPrintSet, Qt::LeftButton);
        QCOMPARE(m_prompter.texts(), QStringList{Msg(1824)});
        QCOMPARE(m_prompter.shown[0].buttons, Prompter::Buttons::Ok);
        QVERIFY(dialog.isVisible());
        QVERIFY(!dialog.PrintFileData && !dialog.PrintGridData && !dialog.Cancelled);
    }

    void browseShowsTheBareNameAndKeepsThePath()
    {
        m_chooser.setNextFileName(PickedFile);
        PrintSelectDialog dialog(m_chooser, m_prompter, m_main.get());
        dialog.show();
        clickOption(dialog.optPrintPosi_1);
        QTest::mouseClick(dialog.cmdSelectPosiFile, Qt::LeftButton);
        QCOMPARE(m_chooser.requests.size(), 1);
        const ScriptedFileChooser::Request& request = m_chooser.requests[0];
        QVERIFY(!request.save);
        QCOMPARE(request.title, Msg(1828));
        QCOMPARE(request.filter, Msg(351));
        QCOMPARE(request.defaultExtension, Msg(51));
        QCOMPARE(dialog.lblPrintPosiName->text(), QStringLiteral("KTRdata.qmd"));
        QCOMPARE(dialog.PosiFileName, PickedFile);
        QCOMPARE(dialog.lblPrintPosiName->toolTip(), PickedFile);
        QTest::mouseClick(dialog.cmdPrintSet, Qt::LeftButton);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QVERIFY(dialog.PrintFileData);
        QVERIFY(!dialog.PrintGridData && !dialog.Cancelled);
        QVERIFY(m_prompter.shown.isEmpty());
    }

    void leavingAfterBrowseIsCancelled_data()
    {
        QTest::addColumn<QString>("how");
        QTest::newRow("Cancel button") << "cancel";
        QTest::newRow("window frame") << "close";
    }
    void leavingAfterBrowseIsCancelled()
    {
        QFETCH(QString, how);
        m_chooser.setNextFileName(PickedFile);
        PrintSelectDialog dialog(m_chooser, m_prompter, m_main.get());
        dialog.show();
        clickOption(dialog.optPrintPosi_1);
        QTest::mouseClick(dialog.cmdSelectPosiFile, Qt::LeftButton);
        if (how == "cancel")
            QTest::mouseClick(dialog.cmdPrintCancel, Qt::LeftButton);
        else
            dialog.close();
        QVERIFY(!dialog.isVisible());
        QVERIFY(dialog.Cancelled);
        QVERIFY(!dialog.PrintGridData && !dialog.PrintFileData);
        QCOMPARE(dialog.PosiFileName, PickedFile);
    }

    void printFileOnlyForcesFile()
    {
        ProgramState::instance().gPrintFileOnly = true;
        PrintSelectDialog dialog(m_chooser, m_prompter, m_main.get());
        dialog.show();
        QVERIFY(dialog.optPrintPosi_0->isHidden() && dialog.optPrintPosi_1->isHidden());
        QVERIFY(dialog.optPrintPosi_1->isChecked());
        // Moved up to 600 twips, the label at 1000 and the button 2280 right of it.
        QCOMPARE(dialog.lblPrintPosiName->pos(), QPoint(67, 40));
        QCOMPARE(dialog.cmdSelectPosiFile->pos(), QPoint(219, 40));
        QVERIFY(dialog.lblPrintPosiName->isEnabled() && dialog.cmdSelectPosiFile->isEnabled());
        QTest::mouseClick(dialog.cmdPrintSet, Qt::LeftButton);
        QCOMPARE(m_prompter.texts(), QStringList{Msg(1824)});
        QVERIFY(dialog.isVisible() && !dialog.PrintGridData);
    }

    void parameterRowIsReadByNobody()
    {
        m_chooser.setNextFileName(QStringLiteral("/data/line4/unit12.pmt"));
        PrintSelectDialog dialog(m_chooser, m_prompter, m_main.get());
        dialog.PrintParaGrid = true;
        dialog.PrintParaFile = true;
        dialog.optPrintPara->setChecked(true);
        dialog.cmdSelectParaFile->click();
        QCOMPARE(m_chooser.requests.size(), 1);
        QCOMPARE(m_chooser.requests[0].title, Msg(1826));
        QCOMPARE(m_chooser.requests[0].filter, Msg(1827));
        QCOMPARE(dialog.lblPrintParaName->text(), QStringLiteral("unit12.pmt"));
        QCOMPARE(dialog.ParaFileName, QStringLiteral("/data/line4/unit12.pmt"));
        dialog.cmdPrintSet->click();
        QVERIFY(!dialog.PrintParaGrid && !dialog.PrintParaFile);
        QVERIFY(dialog.PrintGridData);
    }

    void f1FollowsTheLanguageSetting_data()
    {
        QTest::addColumn<int>("languege");
        QTest::addColumn<int>("helpShown");
        QTest::newRow("Japanese") << 1 << 1;
        QTest::newRow("English") << 2 << 0;
        QTest::newRow("other value") << 0 << 0;
    }
    void f1FollowsTheLanguageSetting()
    {
        QFETCH(int, languege);
        Settings::writeInt(QStringLiteral("Languege"), qint16(languege));
        PrintSelectDialog dialog(m_chooser, m_prompter, nullptr);
        int shown = 0;
        QShortcut help(QKeySequence(Qt::Key_F1), &dialog);
        connect(&help, &QShortcut::activated, this, [&] { ++shown; });
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QTest::keyClick(dialog.focusWidget() ? dialog.focusWidget() : &dialog, Qt::Key_F1);
        QTEST(shown, "helpShown");
    }

private:
    std::unique_ptr<TempSettings> m_settings;
    std::unique_ptr<QWidget> m_main;
    ScriptedPrompter m_prompter;
    ScriptedFileChooser m_chooser;
};

QTEST_MAIN(TestPrintSelectDialog)
#include "tst_printselectdialog.moc"
