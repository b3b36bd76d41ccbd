#include "SimWindowRig.h"

#include "common/widgets/Lamp.h"
#include "common/widgets/Twips.h"
#include "device/widgets/DeviceDialog.h"
#include "opdata/EntryColours.h"
#include "opdata/MoveRun.h"
#include "opdata/widgets/OpDataPage.h"
#include "opdata/widgets/OpDataPageController.h"
#include "params/ParaKeyFilter.h"
#include "params/widgets/ParaPage.h"
#include "params/widgets/ParaPageController.h"
#include "print/PdfPrinter.h"
#include "print/PdfText.h"
#include "print/widgets/PrintSelectDialog.h"
#include "support/ControllerFiles.h"

#include <QTemporaryDir>
#include <QtWidgets>

namespace {

using ParaRig = SimWindowRig<ParaPage, ParaPageController>;
using OpDataRig = SimWindowRig<OpDataPage, OpDataPageController>;

void expectSpecialEnabled(ParaPage& p, bool enabled)
{
    for (QWidget* w : QList<QWidget*>{p.txtPgCheckTimer, p.txtLsSerchTimer, p.comboAutoHome, p.optEmgLogic_0,
                                      p.optEmgLogic_1, p.optAlarmAutoClear_0, p.optAlarmAutoClear_1})
        QVERIFY2(w->isEnabled() == enabled, qPrintable(w->objectName()));
}

bool marked(const QLineEdit* box)
{
    return box->palette().color(QPalette::Base) == EntryColours::color(Background::Marker, QApplication::palette(box));
}

void typeInto(QLineEdit* box, const QString& keys)
{
    box->setFocus();
    QTest::keyClicks(box, keys);
}

} // namespace

class TestTabPages : public QObject {
    Q_OBJECT

private slots:
    void paraKeysAndLeaving_data()
    {
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("before");
        QTest::addColumn<bool>("selectAll");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("byEnter");
        QTest::addColumn<QString>("left");
        const auto row = [](const char* name, const char* box, const char* before, bool selectAll, const char* keys,
                            const char* typed, bool byEnter, const char* left) {
            QTest::newRow(name) << QString(box) << QString(before) << selectAll << QString(keys) << QString(typed) << byEnter
                                << QString(left);
        };
        row("full box, caret at the end", "txtHomeOfsVel", "12", false, "3", "12", false, "12");
        row("full box, all selected", "txtHomeOfsVel", "12", true, "3", "3", false, "3");
        row("Enter leaves the box", "txtHomeOffset", "", false, "007", "007", true, "7");
    }
    void paraKeysAndLeaving()
    {
        QFETCH(QString, box);
        QFETCH(QString, before);
        QFETCH(bool, selectAll);
        QFETCH(QString, keys);
        QFETCH(bool, byEnter);
        ParaRig rig;
        auto* edit = rig.page().findChild<QLineEdit*>(box);
        edit->setText(before);
        edit->setFocus();
        if (selectAll)
            edit->selectAll();
        QTest::keyClicks(edit, keys);
        QTEST(edit->text(), "typed");
        if (byEnter)
            QTest::keyClick(edit, Qt::Key_Return);
        else
            rig.page().cmdParaRead->setFocus();
        QTEST(edit->text(), "left");
        QVERIFY(!edit->hasFocus() && edit->isEnabled());
    }

    void specialParametersUnlock()
    {
        ParaRig rig;
        ParaPage& p = rig.page();
        rig.prompter.script({Prompter::Answer::No});
        QTest::mouseClick(p.chkTokuParaChange, Qt::LeftButton);
        QCOMPARE(rig.prompter.texts(), QStringList{"Don't change SP Parameter on ordinary use.\r\n"
                                                   "Do you change value of SP Parameter."});
        QCOMPARE(rig.prompter.shown.first().buttons, Prompter::Buttons::YesNo);
        QVERIFY(!p.chkTokuParaChange->isChecked());
        expectSpecialEnabled(p, false);

        rig.prompter.script({Prompter::Answer::Yes});
        QTest::mouseClick(p.chkTokuParaChange, Qt::LeftButton);
        QVERIFY(p.chkTokuParaChange->isChecked());
        expectSpecialEnabled(p, true);

        QTest::mouseClick(p.chkTokuParaChange, Qt::LeftButton);
        QCOMPARE(rig.prompter.shown.size(), 2);
        expectSpecialEnabled(p, false);
    }

    // The dialog opens offset from the window with the page's size chosen;
    // only Set changes the selection and fills in the standard parameters.
    void deviceDialogLeadsToStandardParameters_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("size");
        QTest::addColumn<QString>("function");
        const auto row = [](const char* name, const char* action, const char* size, const char* function) {
            QTest::newRow(name) << QString(action) << QString(size) << QString(function);
        };
        row("Set SP with encoder", "set", "SP", "1. With Encorder");
        row("Cancel", "cancel", "42", "0. No-Encorder");
        row("closed from the frame", "close", "42", "0. No-Encorder");
    }
    void deviceDialogLeadsToStandardParameters()
    {
        QFETCH(QString, action);
        ParaRig rig;
        ParaPage& p = rig.page();
        p.comboActSize->setCurrentText(QStringLiteral("42"));
        QPoint placed;
        QString chosen;
        whenDialogOpens<DeviceDialog>([&](DeviceDialog& d) {
            placed = d.pos() - rig.window->pos();
            chosen = d.comboDeviceSize->currentText();
            if (action == QLatin1String("set")) {
                d.comboDeviceSize->setCurrentText(QStringLiteral("SP"));
                d.chkDevPgUse->setChecked(true);
                QTest::mouseClick(d.cmdDeviceSet, Qt::LeftButton);
            } else if (action == QLatin1String("cancel")) {
                QTest::mouseClick(d.cmdDeviceCancel, Qt::LeftButton);
            } else {
                d.close();
            }
        });
        QTest::mouseClick(p.cmdIniPrm, Qt::LeftButton);

        QCOMPARE(placed, QPoint(Twips::toPixels(500), Twips::toPixels(500)));
        QCOMPARE(chosen, QStringLiteral("42"));
        QCOMPARE(rig.prompter.texts(), QStringList());
        QTEST(p.comboActSize->currentText(), "size");
        QTEST(p.comboPgFunc->currentText(), "function");
        const ProgramState& g = ProgramState::instance();
        if (action != QLatin1String("set")) {
            QVERIFY(g.gActSize.isEmpty() && p.txtHomeOffset->text().isEmpty());
            return;
        }
        QCOMPARE((QVariantList{g.gActSize, g.gActKindChar, g.gActNumber, g.gPgUse}),
                 (QVariantList{"SP", "L", 100, true}));
        QCOMPARE(p.txtHomeOffset->text(), QStringLiteral("30"));
        QCOMPARE(p.txtAxisPulse->text(), QStringLiteral("400"));
    }

    // Printing locks the window; a file prints its own values, not the
    // page's; an empty box is refused before anything is printed.
    void paraPrintShownAndFromFile()
    {
        ParaRig rig;
        QString pdf;
        bool lockedWhilePrinting = false;
        rig.controller().usePrinter([&](Printout& printout) {
            lockedWhilePrinting = !rig.window->SSTab1->tabBar()->isEnabled() && !rig.window->mnuFileOpen->isEnabled();
            pdf = pdfText(PdfPrinter::render(printout));
            return true;
        });
        QTest::mouseClick(rig.page().cmdParaRead, Qt::LeftButton);
        QTest::mouseClick(rig.page().cmdParaPrint, Qt::LeftButton);
        QVERIFY(lockedWhilePrinting);
        QVERIFY(rig.window->SSTab1->tabBar()->isEnabled() && rig.window->mnuFileOpen->isEnabled());
        QVERIFY2(pdf.contains(QRegularExpression(QStringLiteral("1\\.OFFSET: +30\\n"))), qPrintable(pdf));
        QVERIFY(!pdf.contains(QStringLiteral("File Name:")));

        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("line-3.pmt"));
        rig.page().txtHomeVel->setText(QStringLiteral("33"));
        rig.files.setNextFileName(path);
        QTest::mouseClick(rig.page().cmdSaveParaFile, Qt::LeftButton);
        rig.page().txtHomeVel->setText(QStringLiteral("12"));
        rig.files.setNextFileName(path);
        lockedWhilePrinting = false;
        QTest::mouseClick(rig.page().cmdParaFilePrint, Qt::LeftButton);
        QVERIFY(lockedWhilePrinting);
        QVERIFY2(pdf.contains(QRegularExpression(QStringLiteral("File Name:line-3\\.pmt\\n"))), qPrintable(pdf));
        QVERIFY(pdf.contains(QRegularExpression(QStringLiteral("2\\.VEL: +33\\n"))));
        QCOMPARE(rig.page().txtHomeVel->text(), QStringLiteral("12"));

        pdf.clear();
        rig.page().txtPgAlarm->clear();
        QTest::mouseClick(rig.page().cmdParaPrint, Qt::LeftButton);
        QVERIFY(pdf.isEmpty());
        QCOMPARE(rig.prompter.lastText(),
                 QStringLiteral("No data in some of parameters.\r\n Please fill the data in and try it again."));
    }

    // A cleared division or gear is marked; Enter goes on to the write
    // button from the division only. The gear sets the speed value.
    void divisionAndGearBoxes()
    {
        OpDataRig rig;
        OpDataPage& p = rig.page();
        typeInto(p.txtDIVISION, QStringLiteral("1"));
        QTest::keyClick(p.txtDIVISION, Qt::Key_Tab);
        QCOMPARE(p.txtDIVISION->text(), QString());
        QVERIFY(marked(p.txtDIVISION));
        typeInto(p.txtDIVISION, QStringLiteral("05"));
        QVERIFY(!marked(p.txtDIVISION));
        QTest::keyClick(p.txtDIVISION, Qt::Key_Return);
        QCOMPARE(p.txtDIVISION->text(), QStringLiteral("5"));
        QCOMPARE(QApplication::focusWidget(), p.cmdLoadtoCt);
        QVERIFY(ProgramState::instance().gDataChanged);

        p.comboVEL->setCurrentIndex(p.comboVEL->findText(QStringLiteral("1")));
        typeInto(p.txtGEAR, QStringLiteral("800"));
        QCOMPARE(p.txtGEAR->text(), QString());
        QVERIFY(marked(p.txtGEAR));
        typeInto(p.txtGEAR, QStringLiteral("4"));
        QTest::keyClick(p.txtGEAR, Qt::Key_Enter);
        QVERIFY(QApplication::focusWidget() != p.cmdLoadtoCt);
        QCOMPARE(p.txtVEL->text(), QStringLiteral("75"));
    }

    // The timer box opens with the continuous run and its check box, and its
    // keys go through the timer rules.
    void timerBox()
    {
        OpDataRig rig;
        OpDataPage& p = rig.page();
        clickOption(p.optCNT);
        QVERIFY(p.chkTimerUse->isEnabled() && !p.txtTimer->isEnabled());
        clickOption(p.chkTimerUse);
        QVERIFY(p.txtTimer->isEnabled());

        typeInto(p.txtTimer, QStringLiteral("1234"));
        QCOMPARE(p.txtTimer->text(), QStringLiteral("123"));

        clickOption(p.optSTEP);
        QVERIFY(!p.chkTimerUse->isEnabled() && !p.txtTimer->isEnabled());
    }

    // Tab and Shift+Tab move on from every box with a key filter, on both
    // tabs; Delete (which the window system delivers with the character DEL)
    // and Backspace edit.
    void movingAndDeletingKeysPass()
    {
        OpDataRig rig;
        OpDataPage& p = rig.page();
        ParaPage& para = *rig.window->para;
        clickOption(p.optCNT);
        clickOption(p.chkTimerUse);
        para.comboActSize->setCurrentText(QStringLiteral("SP"));
        rig.prompter.script({Prompter::Answer::Yes});
        para.chkTokuParaChange->click();
        QList<QLineEdit*> boxes{p.txtDIVISION, p.txtGEAR, p.txtTimer, p.txtDenryu};
        for (QLineEdit* box : para.findChildren<QLineEdit*>())
            if (ParaBoxFromName(box->objectName()))
                boxes << box;
        QCOMPARE(boxes.size(), 12);
        for (QLineEdit* edit : boxes) {
            rig.window->SSTab1->setCurrentWidget(para.isAncestorOf(edit) ? static_cast<QWidget*>(&para) : &p);
            edit->setText(QStringLiteral("10"));
            edit->setFocus();
            edit->setCursorPosition(1);
            QTest::sendKeyEvent(QTest::Click, edit, Qt::Key_Delete, QStringLiteral("\x7f"), {});
            QCOMPARE(edit->text(), QStringLiteral("1"));
            QTest::keyClick(edit, Qt::Key_Backspace);
            QCOMPARE(edit->text(), QString());
            QTest::keyClick(edit, Qt::Key_Tab);
            QVERIFY2(!edit->hasFocus(), qPrintable(edit->objectName()));
            edit->setFocus();
            QTest::keyClick(edit, Qt::Key_Backtab, Qt::ShiftModifier);
            QVERIFY2(!edit->hasFocus(), qPrintable(edit->objectName()));
        }
        // Those edits mark both tabs edited.
        QVERIFY(rig.window->findChild<ParaPageController*>()->data().paraEdited);
        QVERIFY(ProgramState::instance().gDataChanged);
    }

    // STOP while the fourth move of a continuous run: it completes, and no
    // fifth starts.
    void stopLetsTheMoveFinish()
    {
        OpDataRig rig;
        rig.sim().setTimeScale(0.02);
        OpDataPage& p = rig.page();
        QSignalSpy finished(&rig.controller().moveRun(), &MoveRun::moveFinished);
        clickOption(p.optCNT);
        QObject::connect(&rig.window->session().link(), &Link::frameSent, p.cmdSTOP, [&rig, &p] {
            if (rig.count(QStringLiteral("0MP01")) == 4 && rig.frames.last() == u"0MP01") {
                QVERIFY(p.cmdSTOP->isEnabled());
                QVERIFY(!p.cmdMOVE->isEnabled() && !p.cmdFileOpen->isEnabled());
                QTimer::singleShot(0, p.cmdSTOP, &QPushButton::click);
            }
        });
        QTest::mouseClick(p.cmdMOVE, Qt::LeftButton);
        QCOMPARE(rig.count(QStringLiteral("0MP01")), 4);
        QCOMPARE(finished.count(), 4);
        QCOMPARE(rig.frames.last(), QStringLiteral("0RA"));
        QVERIFY(!ProgramState::instance().gCommBusy);
        QVERIFY(p.cmdMOVE->isEnabled());
    }

    void monitorLightsLampsAndSwitchesAnOutput()
    {
        OpDataRig rig;
        OpDataPage& p = rig.page();
        rig.sim().setInputs(true, false);
        QTest::mouseClick(p.cmdIoMonitor, Qt::LeftButton);
        QCOMPARE(p.cmdIoMonitor->text(), Msg(704));
        QVERIFY(!p.cmdMOVE->isEnabled() && !p.Frame2->isEnabled() && p.Frame4->isEnabled());
        QTRY_VERIFY(p.imgOutputRdy->isOn());
        QVERIFY(p.imgInputStb->isOn() && p.imgOutputInp->isOn());
        QVERIFY(!p.imgInputStop->isOn() && !p.imgOutputAlm->isOn() && !p.imgOutputOut1->isOn());

        QTest::mouseClick(p.imgOutputOut1, Qt::LeftButton);
        QTRY_VERIFY(p.imgOutputOut1->isOn());
        QCOMPARE(rig.count(QStringLiteral("0WO32")), 1);

        QTest::mouseClick(p.cmdIoMonitor, Qt::LeftButton);
        QTRY_COMPARE(rig.frames.last(), QStringLiteral("0CM0"));
        QCOMPARE(p.cmdIoMonitor->text(), Msg(702));
        for (Lamp* lamp : p.findChildren<Lamp*>())
            QVERIFY2(!lamp->isOn(), qPrintable(lamp->objectName()));
        QVERIFY(p.cmdMOVE->isEnabled() && p.Frame2->isEnabled());
    }

    // The print dialog chooses between the values on the screen and a file.
    void opDataPrintouts_data()
    {
        QTest::addColumn<bool>("fromFile");
        QTest::addColumn<QStringList>("pieces");
        QTest::newRow("grid") << false << QStringList{"Data on screen", "1.SPEED:", "30", "2.VEL:", "9000", "4.DIRECTION:", "CCW", "5.DIVISION:", "8"};
        QTest::newRow("file") << true << QStringList{"File Name:line3.qmd (Old)", "1.SPEED:", "1", "2.VEL:", "150", "5.DIVISION:", "4", "6.GEAR:", "2"};
    }
    void opDataPrintouts()
    {
        QFETCH(bool, fromFile);
        QFETCH(QStringList, pieces);
        OpDataRig rig;
        QTemporaryDir dir;
        const QString file = writeFile(dir, QStringLiteral("line3.qmd"), "\"QM-B4\",\"Position\"\r\n\"\"\r\n0,\"150\",\"2\",\"\",\"\",\"0\",\"4\",\"2\",\"\"\r\n");

        OpDataPage& p = rig.page();
        p.comboVEL->setCurrentIndex(p.comboVEL->findText(QStringLiteral("30")));
        // The "1" shown since the load is taken once the user chooses it.
        p.comboACC->showPopup();
        QTest::keyClick(p.comboACC->view(), Qt::Key_Return);
        typeInto(p.txtGEAR, QStringLiteral("1"));
        typeInto(p.txtDIVISION, QStringLiteral("8"));
        clickOption(p.optCCW);
        QString printed;
        rig.controller().usePrinter([&printed](Printout& printout) {
            printed = pdfText(PdfPrinter::render(printout));
            return true;
        });
        rig.files.setNextFileName(file);
        whenDialogOpens<PrintSelectDialog>([fromFile](PrintSelectDialog& dialog) {
            if (fromFile)
                dialog.cmdSelectPosiFile->click();
            else
                QVERIFY(dialog.optPrintPosi_0->isChecked());
            dialog.cmdPrintSet->click();
        });
        QTest::mouseClick(fromFile ? p.cmdFilePrint : p.cmdDataPrint, Qt::LeftButton);

        QString missing;
        QVERIFY2(findInOrder(printed, pieces, &missing) >= 0, qPrintable(missing + "\n" + printed));
        QVERIFY(rig.prompter.shown.isEmpty());
    }
};

QTEST_MAIN(TestTabPages)
#include "tst_tabpages.moc"
