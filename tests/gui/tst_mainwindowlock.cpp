#include "SimWindowRig.h"
#include "opdata/widgets/OpDataPage.h"
#include "opdata/widgets/OpDataPageController.h"
#include "shell/widgets/MainWindowProgress.h"
#include "shell/widgets/TransferWindow.h"

#include <QtWidgets>

// The enabling routines keep the dwell rule and the version item quirk;
// the progress bar and the transfer window show the transfers.
class TestMainWindowLock : public QObject {
    Q_OBJECT

private slots:
    void init() { ProgramState::reset(); }

    // Unlocking after a move brings the dwell box back only in continuous
    // mode and the dwell time only while the box is ticked.
    void moveUnlockFollowsTheDwellChoice_data()
    {
        QTest::addColumn<bool>("continuous");
        QTest::addColumn<bool>("dwell");
        QTest::newRow("continuous") << true << false;
        QTest::newRow("step, dwell still ticked") << false << true;
    }
    void moveUnlockFollowsTheDwellChoice()
    {
        QFETCH(bool, continuous);
        QFETCH(bool, dwell);
        MainWindow w;
        (continuous ? w.opData->optCNT : w.opData->optSTEP)->setChecked(true);
        w.opData->chkTimerUse->setChecked(dwell);
        w.lock().MoveCMDBTN_Muko();
        QVERIFY(!w.opData->cmdMOVE->isEnabled() && !w.opData->chkTimerUse->isEnabled());
        w.lock().MoveCMDBTN_Yuko();
        QVERIFY(w.opData->cmdMOVE->isEnabled() && w.opData->Frame4->isEnabled());
        QCOMPARE(w.opData->chkTimerUse->isEnabled(), continuous);
        QCOMPARE(w.opData->txtTimer->isEnabled(), dwell);
    }

    // A command never disables the version item, yet enables it again.
    void versionItemComesBackWithTheMenus()
    {
        MainWindow w;
        w.lock().Menyu_Muko();
        QVERIFY(w.mnuShowCtversion->isEnabled() && w.lock().held());
        w.mnuShowCtversion->setEnabled(false);
        w.lock().Menyu_Yuko();
        QVERIFY(w.mnuFileOpen->isEnabled() && w.mnuShowCtversion->isEnabled() && !w.lock().held());
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
        MainWindow w;
        w.Form_Load();
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        auto& progress = static_cast<MainWindowProgress&>(w.progress());
        QVERIFY(!w.ProgressBar1->isVisible());

        progress.Disp_ProgressBar(4);
        QVERIFY(w.ProgressBar1->isVisible());
        QCOMPARE(w.ProgressBar1->maximum(), 4);
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
        QCOMPARE(t->ProgressBar1->maximum(), 7);
        progress.setTransferProgress(5);
        QCOMPARE(t->ProgressBar1->value(), 5);
        t->close();
        QVERIFY(t->isVisible());
        progress.hideTransfer();
        QVERIFY(!t->isVisible());
        progress.showTransfer(Msg(368), 3);
        QCOMPARE(t->ProgressBar1->value(), 0);
        QCOMPARE(t->lblMessage->text(), Msg(368));
    }

private:
    TempSettings m_settings;
};

QTEST_MAIN(TestMainWindowLock)
#include "tst_mainwindowlock.moc"
