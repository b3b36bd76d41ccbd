#include "SimWindowRig.h"
#include "opdata/widgets/OpDataPage.h"
#include "opdata/widgets/OpDataPageController.h"
#include "shell/widgets/MainWindowLock.h"
#include "shell/widgets/MainWindowProgress.h"
#include "shell/widgets/TransferWindow.h"

#include <QtWidgets>

namespace {

using Routine = void (ControlLock::*)();

// Every named control side by side as a check box (which the dwell choices
// can tick), so that every enabled change is one the routine made itself.
class FlatForm : public QWidget {
public:
    FlatForm()
    {
        QStringList names = MainWindowLock::commandButtons() + MainWindowLock::menusToEnable()
            + MainWindowLock::homeButtons() + MainWindowLock::moveButtons()
            + MainWindowLock::paraButtons();
        names.removeDuplicates();
        for (const QString& name : names) {
            auto* box = new QCheckBox(this);
            box->setObjectName(name);
            box->installEventFilter(this);
        }
    }

    QStringList changes;

protected:
    bool eventFilter(QObject* o, QEvent* e) override
    {
        if (e->type() == QEvent::EnabledChange)
            changes << o->objectName();
        return false;
    }
};

} // namespace

Q_DECLARE_METATYPE(Routine)

// The enabling routines act on their controls by name and in their order;
// the progress bar and the transfer window show the transfers.
class TestMainWindowLock : public QObject {
    Q_OBJECT

private slots:
    void init() { ProgramState::reset(); }

    // The move buttons come back with the dwell box only in continuous
    // mode, and with the dwell time only while the box is ticked.
    void routineTouchesItsListInOrder_data()
    {
        QTest::addColumn<Routine>("routine");
        QTest::addColumn<bool>("disables");
        QTest::addColumn<QStringList>("ticked");
        QTest::addColumn<QStringList>("order");
        const QStringList files = {"cmdFileOpen", "cmdSaveFile", "cmdLoadtoCt", "cmdGetfromCt", "cmdDataPrint",
                                   "cmdFilePrint", "Frame2"};
        const QStringList cmd = files + QStringList{"cmdMOVE", "cmdSTOP", "cmdHOME", "Frame1", "cmdIoMonitor", "Frame4", "cmdRESET"};
        const QStringList home = files + QStringList{"cmdIoMonitor", "Frame4", "cmdRESET", "cmdMOVE", "cmdSTOP", "optSTEP", "optCNT", "chkTimerUse"};
        const QStringList move = QStringList{"optSTEP", "optCNT", "cmdMOVE", "chkTimerUse", "txtTimer", "cmdHOME"} + files
            + QStringList{"cmdIoMonitor", "Frame4", "cmdRESET"};
        const QStringList para = {"cmdReadParaFile", "cmdSaveParaFile", "cmdConpareFile", "cmdParaFilePrint",
                                  "cmdParaPrint", "cmdIniPrm", "cmdParaRead", "cmdParaWrite", "cmdConpareCT"};
        const QStringList menus = {"mnuFileOpen", "mnuFileGetfromCt", "mnuFileSave", "mnuFileSaveAs",
                                   "mnuFileLoadtoCt", "mnuFilePrint"};
        const QStringList none;
        const auto moveWithout = [&](const QStringList& left) {
            QStringList out = move;
            for (const QString& name : left)
                out.removeOne(name);
            return out;
        };
        QTest::newRow("CMDBTN_Muko") << &ControlLock::CMDBTN_Muko << true << none << cmd;
        QTest::newRow("CMDBTN_Yuko") << &ControlLock::CMDBTN_Yuko << false << none << cmd;
        QTest::newRow("Menyu_Muko") << &ControlLock::Menyu_Muko << true << none
                                    << menus + QStringList{"mnuModeChange", "mnuView", "mnuCont"};
        QTest::newRow("Menyu_Yuko") << &ControlLock::Menyu_Yuko << false << none
                                    << menus + QStringList{"mnuShowCtversion", "mnuModeChange", "mnuView", "mnuCont"};
        QTest::newRow("HOMEBTN_Muko") << &ControlLock::HOMEBTN_Muko << true << none << home;
        QTest::newRow("HOMEBTN_Yuko") << &ControlLock::HOMEBTN_Yuko << false << none << home;
        QTest::newRow("MoveCMDBTN_Muko") << &ControlLock::MoveCMDBTN_Muko << true << none << move;
        QTest::newRow("MoveCMDBTN_Yuko step") << &ControlLock::MoveCMDBTN_Yuko << false << none
                                              << moveWithout({"chkTimerUse", "txtTimer"});
        QTest::newRow("MoveCMDBTN_Yuko continuous") << &ControlLock::MoveCMDBTN_Yuko << false << QStringList{"optCNT"}
                                                    << moveWithout({"txtTimer"});
        QTest::newRow("MoveCMDBTN_Yuko continuous with dwell") << &ControlLock::MoveCMDBTN_Yuko << false
                                                               << QStringList{"optCNT", "chkTimerUse"} << move;
        QTest::newRow("MoveCMDBTN_Yuko step, dwell still ticked") << &ControlLock::MoveCMDBTN_Yuko << false
                                                                  << QStringList{"chkTimerUse"} << moveWithout({"chkTimerUse"});
        QTest::newRow("ParaCMDBTN_Muko") << &ControlLock::ParaCMDBTN_Muko << true << none << para;
        QTest::newRow("ParaCMDBTN_Yuko") << &ControlLock::ParaCMDBTN_Yuko << false << none << para;
    }
    void routineTouchesItsListInOrder()
    {
        QFETCH(Routine, routine);
        QFETCH(bool, disables);
        QFETCH(QStringList, ticked);
        QFETCH(QStringList, order);
        FlatForm form;
        MainWindowLock lock(&form);
        const QList<QCheckBox*> boxes = form.findChildren<QCheckBox*>();
        for (QCheckBox* box : boxes) {
            box->setChecked(ticked.contains(box->objectName()));
            box->setEnabled(disables);
        }
        form.changes.clear();

        (lock.*routine)();

        QCOMPARE(form.changes, order);
        for (QCheckBox* box : boxes)
            QCOMPARE(box->isEnabled(), order.contains(box->objectName()) != disables);
    }

    void everyNamedControlExistsOnTheMainWindow()
    {
        MainWindow w;
        QCOMPARE(static_cast<MainWindowLock&>(w.lock()).missingControls(), QStringList());
    }

    // The version item stays enabled while the I/O monitor runs (and the
    // options item may be chosen just as it stops): choosing one is refused
    // with a notice, and the monitor, its controls and the port are left as
    // they are.
    void commandsRefusedWhileTheMonitorRuns_data()
    {
        QTest::addColumn<QString>("item");
        QTest::newRow("version") << "mnuShowCtversion";
        QTest::newRow("options and its port scan") << "mnuOption";
    }
    void commandsRefusedWhileTheMonitorRuns()
    {
        QFETCH(QString, item);
        SimWindowRig<OpDataPage, OpDataPageController> rig;
        QTest::mouseClick(rig.page().cmdIoMonitor, Qt::LeftButton);
        QTRY_VERIFY(rig.count("0RI") >= 1);
        // A dialog opened against the refusal must not hang the test.
        QTimer::singleShot(500, rig.window.get(), [] {
            if (QWidget* modal = QApplication::activeModalWidget())
                modal->close();
        });

        rig.window->findChild<QAction*>(item)->trigger();

        const int polls = rig.count("0RI");
        QTRY_VERIFY(rig.count("0RI") > polls + 1);
        QCOMPARE(rig.frames.filter(QRegularExpression("^0(CM6|RV)")), QStringList());
        QVERIFY(rig.window->session().link().isPortOpen());
        QCOMPARE(rig.prompter.texts(), QStringList{Msg(5200)});
        QVERIFY(!rig.page().cmdMOVE->isEnabled());
        QVERIFY(!rig.window->mnuFileOpen->isEnabled());
        QVERIFY(!rig.window->SSTab1->tabBar()->isEnabled());
        QTest::mouseClick(rig.page().cmdIoMonitor, Qt::LeftButton);
        QTRY_COMPARE(rig.count("0CM0"), 1);
        QVERIFY(rig.page().cmdMOVE->isEnabled());
    }

    // The bar shows in the status bar beside the port text, which stays
    // readable; the transfer window cannot be closed while it shows.
    void progressDisplays()
    {
        ProgramState::instance().gMsgBase = MessageTable::EnglishBase;
        MainWindow w;
        w.Form_Load();
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        auto& progress = static_cast<MainWindowProgress&>(w.progress());
        QVERIFY(!w.ProgressBar1->isVisible());

        progress.Disp_ProgressBar(4);
        QVERIFY(w.ProgressBar1->isVisible());
        QCOMPARE(w.ProgressBar1->parentWidget(), static_cast<QWidget*>(w.sbStatusBar));
        QCOMPARE(w.ProgressBar1->maximum(), 4);
        QCOMPARE(w.ProgressBar1->value(), 0);
        const QRect bar = w.ProgressBar1->geometry();
        QVERIFY(w.lblPort->isVisible() && bar.left() > w.lblPort->geometry().right());
        QCOMPARE(bar, QRect(bar.left(), 2, w.sbStatusBar->width() - bar.left(), w.sbStatusBar->height() - 2));
        progress.setProgress(3);
        w.resize(w.width() + 100, w.height());
        QTRY_COMPARE(w.ProgressBar1->geometry().right(), w.sbStatusBar->width() - 1);
        progress.Hide_ProgressBar();
        QVERIFY(!w.ProgressBar1->isVisible());
        QCOMPARE(w.ProgressBar1->value(), 0);

        progress.showTransfer(Msg(383), 7);
        TransferWindow* t = progress.transferWindow();
        QVERIFY(t && t->isVisible());
        QCOMPARE(t->windowTitle(), QStringLiteral("Communicating"));
        QCOMPARE(t->ProgressBar1->maximum(), 7);
        progress.setTransferProgress(5);
        QCOMPARE(t->ProgressBar1->value(), 5);
        t->close();
        QVERIFY(t->isVisible());
        progress.hideTransfer();
        QVERIFY(!t->isVisible());
        progress.showTransfer(Msg(368), 3);
        QCOMPARE(t->ProgressBar1->value(), 0);
        QCOMPARE(t->lblMessage->text(), QStringLiteral("Reading data from controller..."));
    }

private:
    TempSettings m_settings;
};

QTEST_MAIN(TestMainWindowLock)
#include "tst_mainwindowlock.moc"
