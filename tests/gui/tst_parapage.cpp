// The parameter tab on the real widgets, against the built-in virtual
// controller: the entry rules of the boxes, a read filling the page, the
// SPECIAL unlock, the device dialog on the way to the standard parameters,
// and the two printouts.

#include "SimWindowRig.h"

#include "device/widgets/DeviceDialog.h"
#include "opdata/widgets/OpDataPage.h"
#include "params/widgets/ParaPage.h"
#include "params/widgets/ParaPageController.h"
#include "print/PdfPrinter.h"
#include "print/PdfText.h"
#include "shell/Twips.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QtTest>

namespace {

using Answer = Prompter::Answer;
using PageRig = SimWindowRig<ParaPage, ParaPageController>;

void expectSpecialEnabled(ParaPage& p, bool enabled)
{
    for (QWidget* w : QList<QWidget*>{p.txtPgCheckTimer, p.txtLsSerchTimer, p.comboAutoHome, p.optEmgLogic_0,
                                      p.optEmgLogic_1, p.optAlarmAutoClear_0, p.optAlarmAutoClear_1})
        QVERIFY2(w->isEnabled() == enabled, qPrintable(w->objectName()));
}

} // namespace

class TestParaPage : public QObject {
    Q_OBJECT

private slots:
    void keyAndLeaveRules_data()
    {
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("before");
        QTest::addColumn<bool>("selectAll");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("left");
        QTest::newRow("third key past the maximum") << "txtHomeVel" << "" << false << "007" << "00" << "";
        QTest::newRow("letters and points dropped") << "txtHomeOffset" << "" << false << "1a2.3" << "123" << "123";
        QTest::newRow("full box, caret at the end") << "txtHomeOfsVel" << "12" << false << "3" << "12" << "12";
        QTest::newRow("full box, all selected") << "txtHomeOfsVel" << "12" << true << "3" << "3" << "3";
    }
    void keyAndLeaveRules()
    {
        QFETCH(QString, box);
        QFETCH(QString, before);
        QFETCH(bool, selectAll);
        QFETCH(QString, keys);
        PageRig rig;
        auto* edit = rig.page().findChild<QLineEdit*>(box);
        edit->setText(before);
        edit->setFocus();
        if (selectAll)
            edit->selectAll();
        QTest::keyClicks(edit, keys);
        QTEST(edit->text(), "typed");
        rig.page().cmdParaRead->setFocus();
        QTEST(edit->text(), "left");
    }

    void enterLeavesTheBox()
    {
        PageRig rig;
        QLineEdit* edit = rig.page().txtHomeOffset;
        edit->setFocus();
        QTest::keyClicks(edit, QStringLiteral("007"));
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(edit->text(), QStringLiteral("7"));
        QVERIFY(!edit->hasFocus());
        QVERIFY(edit->isEnabled());
    }

    void readFillsThePage_data()
    {
        QTest::addColumn<QByteArray>("sizeByte");
        QTest::addColumn<QByteArray>("sizeCode");
        QTest::addColumn<QString>("shownSize");
        QTest::addColumn<QString>("current");
        QTest::newRow("28") << QByteArray("1C") << QByteArray("00") << "28" << "1.5";
        // The special actuator's current comes from block 7: 300/1875 A.
        QTest::newRow("special") << QByteArray("14") << QByteArray("03") << "SP" << "2.16";
    }
    void readFillsThePage()
    {
        QFETCH(QByteArray, sizeByte);
        QFETCH(QByteArray, sizeCode);
        PageRig rig;
        QByteArray block1 = rig.sim().memory().block(1);
        block1.replace(18, 2, sizeByte).replace(26, 2, sizeCode);
        rig.sim().memory().writeBlock(1, block1);
        rig.sim().memory().writeBlock(7, rig.sim().memory().block(7).replace(12, 4, "012C"));

        QTest::mouseClick(rig.page().cmdParaRead, Qt::LeftButton);
        QCOMPARE(rig.prompter.texts(), QStringList());
        ParaPage& p = rig.page();
        const QStringList shown = {p.txtHomeOffset->text(), p.txtHomeVel->text(), p.txtAxisPulse->text(),
            p.txtPgAlarm->text(), p.txtInpLimit->text(), p.txtLsSerchTimer->text(),
            p.comboAxisAutoDrv->currentText(), p.comboPgFunc->currentText(), p.comboHomeOut->currentText()};
        QCOMPARE(shown, (QStringList{"30", "10", "400", "1000", "10", "10", "0. Drive-ON", "0. No-Encorder",
                                     "0. OUT-OFF"}));
        QVERIFY(p.optEmgLogic_0->isChecked());
        QVERIFY(p.optAlarmAutoClear_0->isChecked());
        QTEST(p.comboActSize->currentText(), "shownSize");
        QTEST(rig.window->opData->txtDenryu->text(), "current");
        QVERIFY(p.cmdParaRead->isEnabled());
        QVERIFY(rig.window->mnuFileOpen->isEnabled());
    }

    void specialParametersUnlock()
    {
        PageRig rig;
        ParaPage& p = rig.page();
        rig.prompter.script({Answer::No});
        QTest::mouseClick(p.chkTokuParaChange, Qt::LeftButton);
        QCOMPARE(rig.prompter.texts(), QStringList{"Don't change SP Parameter on ordinary use.\r\n"
                                                   "Do you change value of SP Parameter."});
        QCOMPARE(rig.prompter.shown.first().buttons, Prompter::Buttons::YesNo);
        QVERIFY(!p.chkTokuParaChange->isChecked());
        expectSpecialEnabled(p, false);

        rig.prompter.script({Answer::Yes});
        QTest::mouseClick(p.chkTokuParaChange, Qt::LeftButton);
        QVERIFY(p.chkTokuParaChange->isChecked());
        expectSpecialEnabled(p, true);

        QTest::mouseClick(p.chkTokuParaChange, Qt::LeftButton);
        QCOMPARE(rig.prompter.shown.size(), 2);
        expectSpecialEnabled(p, false);
    }

    void deviceDialogLeadsToStandardParameters_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("size");
        QTest::addColumn<QString>("function");
        QTest::newRow("Set SP with encoder") << "set" << "SP" << "1. With Encorder";
        QTest::newRow("Cancel") << "cancel" << "42" << "0. No-Encorder";
        QTest::newRow("closed from the frame") << "close" << "42" << "0. No-Encorder";
    }
    void deviceDialogLeadsToStandardParameters()
    {
        QFETCH(QString, action);
        PageRig rig;
        ParaPage& p = rig.page();
        p.comboActSize->setCurrentText(QStringLiteral("42"));
        QPoint placed;
        QString title;
        QStringList sizes;
        whenDialogOpens<DeviceDialog>([&](DeviceDialog& d) {
            placed = d.pos() - rig.window->pos();
            title = d.windowTitle();
            for (int i = 0; i < d.comboDeviceSize->count(); ++i)
                sizes << d.comboDeviceSize->itemText(i);
            sizes << d.comboDeviceSize->currentText();
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

        const int offset = Twips::toPixels(500);
        QCOMPARE(placed, QPoint(offset, offset));
        QCOMPARE(title, QStringLiteral("Actuator Selection"));
        QCOMPARE(sizes, (QStringList{"28", "35", "42", "SP", "42"}));
        QCOMPARE(rig.prompter.texts(), QStringList());
        const ProgramState& g = ProgramState::instance();
        QTEST(p.comboActSize->currentText(), "size");
        QTEST(p.comboPgFunc->currentText(), "function");
        if (action != QLatin1String("set")) {
            QVERIFY(g.gActSize.isEmpty());
            QVERIFY(p.txtHomeOffset->text().isEmpty());
            return;
        }
        QCOMPARE(g.gActSize, QStringLiteral("SP"));
        QCOMPARE(g.gActKindChar, QStringLiteral("L"));
        QCOMPARE(g.gActNumber, qint16(100));
        QVERIFY(g.gPgUse);
        QVERIFY(g.gDeviceSetDone && g.gDeviceKnown);
        QCOMPARE(p.txtHomeOffset->text(), QStringLiteral("30"));
        QCOMPARE(p.txtAxisPulse->text(), QStringLiteral("400"));
    }

    void printShownAndFromFile()
    {
        PageRig rig;
        QString pdf;
        bool tabsOn = true;
        bool menusOn = true;
        rig.controller().usePrinter([&](Printout& printout) {
            tabsOn = rig.window->SSTab1->tabBar()->isEnabled();
            menusOn = rig.window->mnuFileOpen->isEnabled();
            pdf = pdfText(PdfPrinter::render(printout));
            return true;
        });
        QTest::mouseClick(rig.page().cmdParaRead, Qt::LeftButton);
        QTest::mouseClick(rig.page().cmdParaPrint, Qt::LeftButton);
        QVERIFY(!tabsOn && !menusOn);
        QVERIFY(rig.window->SSTab1->tabBar()->isEnabled() && rig.window->mnuFileOpen->isEnabled());
        QVERIFY2(pdf.contains(QRegularExpression(QStringLiteral("1\\.OFFSET: +30\\n"))), qPrintable(pdf));
        QVERIFY(pdf.contains(QRegularExpression(QStringLiteral("3\\.MOTOR: +28\\n"))));
        QVERIFY(!pdf.contains(QStringLiteral("File Name:")));

        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("line-3.pmt"));
        rig.page().txtHomeVel->setText(QStringLiteral("33"));
        rig.files.setNextFileName(path);
        QTest::mouseClick(rig.page().cmdSaveParaFile, Qt::LeftButton);
        rig.page().txtHomeVel->setText(QStringLiteral("12"));
        rig.files.setNextFileName(path);
        pdf.clear();
        QTest::mouseClick(rig.page().cmdParaFilePrint, Qt::LeftButton);
        QVERIFY(!tabsOn && !menusOn);
        QVERIFY2(pdf.contains(QRegularExpression(QStringLiteral("File Name:line-3\\.pmt\\n"))), qPrintable(pdf));
        QVERIFY(pdf.contains(QRegularExpression(QStringLiteral("2\\.VEL: +33\\n"))));
        QCOMPARE(rig.page().txtHomeVel->text(), QStringLiteral("12"));

        // An empty box is refused before anything is printed.
        pdf.clear();
        rig.page().txtPgAlarm->clear();
        QTest::mouseClick(rig.page().cmdParaPrint, Qt::LeftButton);
        QVERIFY(pdf.isEmpty());
        QCOMPARE(rig.prompter.lastText(),
                 QStringLiteral("No data in some of parameters.\r\n Please fill the data in and try it again."));
    }
};

QTEST_MAIN(TestParaPage)
#include "tst_parapage.moc"
