// The operation data tab on the real widgets, against the built-in virtual
// controller: the entry rules that live in the widget glue, a read filling
// the tab, a continuous run and STOP, the monitor lamps with an output
// click, the current that follows the actuator size, and the two printouts.

#include "SimWindowRig.h"

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
#include "shell/widgets/Lamp.h"
#include "sim/ControllerMemory.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QtTest>

namespace {

using TabRig = SimWindowRig<OpDataPage, OpDataPageController>;

QColor background(const QLineEdit* box)
{
    return box->palette().color(QPalette::Base);
}

QColor colourOf(Background kind, const QLineEdit* box)
{
    return EntryColours::color(kind, QApplication::palette(box));
}

void typeInto(QLineEdit* box, const QString& keys)
{
    box->setFocus();
    QTest::keyClicks(box, keys);
}

void clickOption(QAbstractButton* option)
{
    QTest::mouseClick(option, Qt::LeftButton, {}, QPoint(6, option->height() / 2));
}

} // namespace

class TestOpDataPage : public QObject {
    Q_OBJECT

private slots:
    void divisionMarkedWhenClearedAndEnterMovesToWrite()
    {
        TabRig rig;
        QLineEdit* division = rig.page().txtDIVISION;
        typeInto(division, QStringLiteral("1"));
        QTest::keyClick(division, Qt::Key_Tab);
        QCOMPARE(division->text(), QString());
        QCOMPARE(background(division), colourOf(Background::Marker, division));

        typeInto(division, QStringLiteral("05"));
        QCOMPARE(background(division), colourOf(Background::Window, division));
        QTest::keyClick(division, Qt::Key_Return);
        QCOMPARE(division->text(), QStringLiteral("5"));
        QCOMPARE(QApplication::focusWidget(), rig.page().cmdLoadtoCt);
        QVERIFY(ProgramState::instance().gDataChanged);
    }

    void gearTypedOverHundredIsMarkedAndEnterStaysOff()
    {
        TabRig rig;
        QLineEdit* gear = rig.page().txtGEAR;
        rig.page().comboVEL->setCurrentIndex(rig.page().comboVEL->findText(QStringLiteral("1")));
        typeInto(gear, QStringLiteral("8"));
        QCOMPARE(rig.page().txtVEL->text(), QStringLiteral("38"));
        typeInto(gear, QStringLiteral("00"));
        QCOMPARE(gear->text(), QString());
        QCOMPARE(background(gear), colourOf(Background::Marker, gear));
        typeInto(gear, QStringLiteral("4"));
        QTest::keyClick(gear, Qt::Key_Enter);
        QVERIFY(QApplication::focusWidget() != rig.page().cmdLoadtoCt);
        QCOMPARE(rig.page().txtVEL->text(), QStringLiteral("75"));
    }

    void timerClearedAsTyped_data()
    {
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("left");
        QTest::newRow("656 cleared at its last digit") << "656" << "" << "";
        QTest::newRow("zeros become one") << "000" << "000" << "0";
        QTest::newRow("no fourth digit") << "1234" << "123" << "123";
    }
    void timerClearedAsTyped()
    {
        QFETCH(QString, keys);
        TabRig rig;
        OpDataPage& p = rig.page();
        clickOption(p.optCNT);
        QVERIFY(p.chkTimerUse->isEnabled());
        QVERIFY(!p.txtTimer->isEnabled());
        clickOption(p.chkTimerUse);
        QVERIFY(p.txtTimer->isEnabled());

        typeInto(p.txtTimer, keys);
        QTEST(p.txtTimer->text(), "typed");
        QTest::keyClick(p.txtTimer, Qt::Key_Tab);
        QTEST(p.txtTimer->text(), "left");

        clickOption(p.optSTEP);
        QVERIFY(!p.chkTimerUse->isEnabled());
        QVERIFY(!p.txtTimer->isEnabled());
    }

    void currentFollowsSizeAndTakesOnePoint()
    {
        TabRig rig;
        QLineEdit* current = rig.page().txtDenryu;
        QComboBox* size = rig.window->para->comboActSize;
        size->setCurrentText(QStringLiteral("42"));
        QCOMPARE(current->text(), QStringLiteral("1.2"));
        QVERIFY(!current->isEnabled());
        size->setCurrentText(QStringLiteral("SP"));
        QVERIFY(current->isEnabled());
        QCOMPARE(current->text(), QStringLiteral("1.2"));

        current->clear();
        typeInto(current, QStringLiteral("."));
        QCOMPARE(current->text(), QStringLiteral("0."));
        QCOMPARE(current->cursorPosition(), 2);
    }

    // Tab and Shift+Tab move on from every box with a key filter, on both
    // tabs; Delete (which the window system delivers with the character DEL)
    // and Backspace edit.
    void movingAndDeletingKeysPass()
    {
        TabRig rig;
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

    void readFillsTheTabAndTheSpeedChoice()
    {
        TabRig rig;
        rig.sim().memory().writeRecord(1, "2328100000010C01");
        QTest::mouseClick(rig.page().cmdGetfromCt, Qt::LeftButton);

        QCOMPARE(rig.prompter.texts(), QStringList{Msg(370)});
        QCOMPARE(rig.frames, (QStringList{"0CM6", "0RP01"}));
        OpDataPage& p = rig.page();
        const QStringList shown = {p.txtVEL->text(), p.txtACC->text(), p.txtDIVISION->text(), p.txtGEAR->text(),
                                   p.comboVEL->currentText(), p.comboACC->currentText()};
        QCOMPARE(shown, (QStringList{"9000", "1", "12", "1", "30", "1"}));
        QVERIFY(p.optCCW->isChecked());
        QVERIFY(!ProgramState::instance().gDataChanged);
        QVERIFY(p.cmdGetfromCt->isEnabled() && p.comboVEL->isEnabled());
    }

    // STOP while the fourth move of a continuous run: it completes, and no
    // fifth starts.
    void stopLetsTheMoveFinish()
    {
        TabRig rig;
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
        TabRig rig;
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

    void printouts_data()
    {
        QTest::addColumn<bool>("fromFile");
        QTest::addColumn<QStringList>("pieces");
        QTest::newRow("grid") << false
            << QStringList{"Data on screen", "1.SPEED:", "30", "2.VEL:", "9000", "4.DIRECTION:", "CCW",
                           "5.DIVISION:", "8", "7.STEP ANGLE:", "45.000 deg"};
        QTest::newRow("file") << true
            << QStringList{"File Name:line3.qmd (Old)", "1.SPEED:", "1", "2.VEL:", "150",
                           "5.DIVISION:", "4", "6.GEAR:", "2"};
    }
    void printouts()
    {
        QFETCH(bool, fromFile);
        QFETCH(QStringList, pieces);
        TabRig rig;
        QTemporaryDir dir;
        const QString file = dir.filePath(QStringLiteral("line3.qmd"));
        QFile out(file);
        QVERIFY(out.open(QIODevice::WriteOnly));
        out.write("\"QM-B4\",\"Position\"\r\n\"\"\r\n0,\"150\",\"2\",\"\",\"\",\"0\",\"4\",\"2\",\"\"\r\n");
        out.close();

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

QTEST_MAIN(TestOpDataPage)
#include "tst_opdatapage.moc"
