#include "SimWindowRig.h"
#include "common/MessageTable.h"
#include "opdata/widgets/OpDataPageController.h"
#include "common/ProgramState.h"
#include "opdata/widgets/OpDataPage.h"
#include "params/widgets/ParaPage.h"
#include "shell/widgets/Lamp.h"
#include "shell/widgets/MainWindow.h"
#include "shell/widgets/MainWindowLock.h"
#include "shell/widgets/MainWindowProgress.h"
#include "shell/widgets/TransferWindow.h"
#include "support/TempSettings.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QtTest>

namespace {

// A form whose controls lie side by side, so that every enabled change
// is one the routine made itself.
class FlatForm : public QWidget {
public:
    FlatForm()
    {
        QStringList names = MainWindowLock::commandButtons() + MainWindowLock::menusToEnable()
                            + MainWindowLock::homeButtons() + MainWindowLock::moveButtons()
                            + MainWindowLock::paraButtons();
        names.removeDuplicates();
        for (const QString& n : names)
            add(n);
        auto* tabs = new QTabWidget(this);
        tabs->setObjectName("SSTab1");
    }

    void setAll(bool on)
    {
        for (QObject* o : controls)
            o->setProperty("enabled", on);
        changes.clear();
    }

    QObject* control(const QString& name) const { return findChild<QObject*>(name); }

    QStringList changes;
    QList<QObject*> controls;

protected:
    bool eventFilter(QObject* o, QEvent* e) override
    {
        if (e->type() == QEvent::EnabledChange)
            changes << o->objectName();
        return false;
    }

private:
    void add(const QString& name)
    {
        QObject* o = nullptr;
        if (name.startsWith("mnu")) {
            auto* a = new QAction(this);
            connect(a, &QAction::enabledChanged, this, [this, a] { changes << a->objectName(); });
            o = a;
        } else {
            QWidget* w = nullptr;
            if (name.startsWith("opt"))
                w = new QRadioButton(this);
            else if (name.startsWith("chk"))
                w = new QCheckBox(this);
            else if (name.startsWith("txt"))
                w = new QLineEdit(this);
            else if (name.startsWith("Frame"))
                w = new QGroupBox(this);
            else
                w = new QPushButton(this);
            w->installEventFilter(this);
            o = w;
        }
        o->setObjectName(name);
        controls << o;
    }
};

QStringList moveOrder()
{
    return {"optSTEP", "optCNT", "cmdMOVE", "chkTimerUse", "txtTimer", "cmdHOME", "cmdFileOpen",
            "cmdSaveFile", "cmdLoadtoCt", "cmdGetfromCt", "cmdDataPrint", "cmdFilePrint", "Frame2",
            "cmdIoMonitor", "Frame4", "cmdRESET"};
}

} // namespace

// The enabling routines act on their controls by name and in their order;
// the progress bar and the transfer window show the transfers.
class TestMainWindowLock : public QObject {
    Q_OBJECT

private slots:
    void init() { ProgramState::reset(); }

    void routineTouchesItsListInOrder_data()
    {
        QTest::addColumn<QString>("routine");
        QTest::addColumn<bool>("disables");
        QTest::addColumn<QStringList>("order");

        const QStringList cmd = {"cmdFileOpen", "cmdSaveFile", "cmdLoadtoCt", "cmdGetfromCt",
            "cmdDataPrint", "cmdFilePrint", "Frame2", "cmdMOVE", "cmdSTOP", "cmdHOME", "Frame1",
            "cmdIoMonitor", "Frame4", "cmdRESET"};
        const QStringList home = {"cmdFileOpen", "cmdSaveFile", "cmdLoadtoCt", "cmdGetfromCt",
            "cmdDataPrint", "cmdFilePrint", "Frame2", "cmdIoMonitor", "Frame4", "cmdRESET", "cmdMOVE",
            "cmdSTOP", "optSTEP", "optCNT", "chkTimerUse"};
        const QStringList para = {"cmdReadParaFile", "cmdSaveParaFile", "cmdConpareFile",
            "cmdParaFilePrint", "cmdParaPrint", "cmdIniPrm", "cmdParaRead", "cmdParaWrite", "cmdConpareCT"};

        QTest::newRow("CMDBTN_Muko") << "CMDBTN_Muko" << true << cmd;
        QTest::newRow("CMDBTN_Yuko") << "CMDBTN_Yuko" << false << cmd;
        QTest::newRow("Menyu_Muko") << "Menyu_Muko" << true << QStringList{"mnuFileOpen",
            "mnuFileGetfromCt", "mnuFileSave", "mnuFileSaveAs", "mnuFileLoadtoCt", "mnuFilePrint",
            "mnuModeChange", "mnuView", "mnuCont"};
        QTest::newRow("Menyu_Yuko") << "Menyu_Yuko" << false << QStringList{"mnuFileOpen",
            "mnuFileGetfromCt", "mnuFileSave", "mnuFileSaveAs", "mnuFileLoadtoCt", "mnuFilePrint",
            "mnuShowCtversion", "mnuModeChange", "mnuView", "mnuCont"};
        QTest::newRow("HOMEBTN_Muko") << "HOMEBTN_Muko" << true << home;
        QTest::newRow("HOMEBTN_Yuko") << "HOMEBTN_Yuko" << false << home;
        QTest::newRow("MoveCMDBTN_Muko") << "MoveCMDBTN_Muko" << true << moveOrder();
        QTest::newRow("ParaCMDBTN_Muko") << "ParaCMDBTN_Muko" << true << para;
        QTest::newRow("ParaCMDBTN_Yuko") << "ParaCMDBTN_Yuko" << false << para;
    }
    void routineTouchesItsListInOrder()
    {
        QFETCH(QString, routine);
        QFETCH(bool, disables);
        FlatForm form;
        MainWindowLock lock(&form);
        QVERIFY(lock.missingControls().isEmpty());
        form.setAll(disables);

        const QHash<QString, void (MainWindowLock::*)()> routines = {
            {"CMDBTN_Muko", &MainWindowLock::CMDBTN_Muko}, {"CMDBTN_Yuko", &MainWindowLock::CMDBTN_Yuko},
            {"Menyu_Muko", &MainWindowLock::Menyu_Muko}, {"Menyu_Yuko", &MainWindowLock::Menyu_Yuko},
            {"HOMEBTN_Muko", &MainWindowLock::HOMEBTN_Muko}, {"HOMEBTN_Yuko", &MainWindowLock::HOMEBTN_Yuko},
            {"MoveCMDBTN_Muko", &MainWindowLock::MoveCMDBTN_Muko},
            {"ParaCMDBTN_Muko", &MainWindowLock::ParaCMDBTN_Muko},
            {"ParaCMDBTN_Yuko", &MainWindowLock::ParaCMDBTN_Yuko}};
        (lock.*routines.value(routine))();

        QTEST(form.changes, "order");
        QFETCH(QStringList, order);
        for (QObject* o : form.controls)
            QCOMPARE(o->property("enabled").toBool(), order.contains(o->objectName()) != disables);
    }

    void moveEnableFollowsTheDwellChoices_data()
    {
        QTest::addColumn<bool>("continuous");
        QTest::addColumn<bool>("dwell");
        QTest::addColumn<bool>("dwellBox");
        QTest::addColumn<bool>("dwellTime");

        QTest::newRow("step") << false << false << false << false;
        QTest::newRow("continuous") << true << false << true << false;
        QTest::newRow("continuous with dwell") << true << true << true << true;
        QTest::newRow("step, dwell still ticked") << false << true << false << true;
    }
    void moveEnableFollowsTheDwellChoices()
    {
        QFETCH(bool, continuous);
        QFETCH(bool, dwell);
        FlatForm form;
        MainWindowLock lock(&form);
        qobject_cast<QRadioButton*>(form.control("optCNT"))->setChecked(continuous);
        qobject_cast<QCheckBox*>(form.control("chkTimerUse"))->setChecked(dwell);
        form.setAll(false);
        lock.MoveCMDBTN_Yuko();

        QFETCH(bool, dwellBox);
        QFETCH(bool, dwellTime);
        QStringList expected = moveOrder();
        if (!dwellBox)
            expected.removeOne("chkTimerUse");
        if (!dwellTime)
            expected.removeOne("txtTimer");
        QCOMPARE(form.changes, expected);
        QCOMPARE(form.control("chkTimerUse")->property("enabled").toBool(), dwellBox);
        QCOMPARE(form.control("txtTimer")->property("enabled").toBool(), dwellTime);
    }

    void everyNamedControlExistsOnTheMainWindow()
    {
        MainWindow w;
        QCOMPARE(static_cast<MainWindowLock&>(w.lock()).missingControls(), QStringList());
    }

    void commandButtonsLockTheMoveTest()
    {
        MainWindow w;
        w.Form_Load();
        const QList<QWidget*> moveTest = {w.opData->cmdSTOP, w.opData->optCNT, w.opData->cmdRESET,
                                          w.opData->comboVEL, w.opData->imgOutputOut1};
        w.lock().CMDBTN_Muko();
        for (QWidget* c : moveTest)
            QVERIFY2(!c->isEnabled(), qPrintable(c->objectName()));
        QVERIFY(w.para->cmdParaRead->isEnabled());
        w.lock().CMDBTN_Yuko();
        for (QWidget* c : moveTest)
            QVERIFY2(c->isEnabled(), qPrintable(c->objectName()));
    }

    void moveRunKeepsStopUsable()
    {
        MainWindow w;
        w.Form_Load();
        w.lock().MoveCMDBTN_Muko();
        w.lock().setTabsEnabled(false);
        QVERIFY(!w.SSTab1->tabBar()->isEnabled());
        QVERIFY(w.opData->isEnabled());
        QVERIFY(w.opData->cmdSTOP->isEnabled());
        QVERIFY(!w.opData->cmdMOVE->isEnabled());
        QVERIFY(!w.opData->Frame2->isEnabled());
        w.lock().MoveCMDBTN_Yuko();
        w.lock().setTabsEnabled(true);
        QVERIFY(w.SSTab1->tabBar()->isEnabled());
        QVERIFY(w.opData->cmdMOVE->isEnabled());
        QVERIFY(w.opData->comboVEL->isEnabled());
    }

    void menusDisableWholeMenus()
    {
        MainWindow w;
        w.Form_Load();
        w.lock().Menyu_Muko();
        QVERIFY(!w.mnuView->menuAction()->isEnabled());
        QVERIFY(!w.mnuCont->menuAction()->isEnabled());
        QVERIFY(!w.mnuModeChange->menuAction()->isEnabled());
        QVERIFY(!w.mnuFileOpen->isEnabled());
        QVERIFY(w.mnuFile->menuAction()->isEnabled());
        QVERIFY(w.mnuFileExit->isEnabled());
        w.lock().Menyu_Yuko();
        QVERIFY(w.mnuCont->menuAction()->isEnabled());
        QVERIFY(w.mnuFileOpen->isEnabled());
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

    void progressBarOverStatusBar()
    {
        MainWindow w;
        w.Form_Load();
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QVERIFY(!w.ProgressBar1->isVisible());

        w.progress().Disp_ProgressBar(4);
        QVERIFY(w.ProgressBar1->isVisible());
        QCOMPARE(w.ProgressBar1->parentWidget(), static_cast<QWidget*>(w.sbStatusBar));
        QCOMPARE(w.ProgressBar1->minimum(), 0);
        QCOMPARE(w.ProgressBar1->maximum(), 4);
        QCOMPARE(w.ProgressBar1->value(), 0);
        // Beside the port text, which stays readable.
        const QRect bar = w.ProgressBar1->geometry();
        QVERIFY(w.lblPort->isVisible() && bar.left() > w.lblPort->geometry().right());
        QCOMPARE(bar, QRect(bar.left(), 2, w.sbStatusBar->width() - bar.left(), w.sbStatusBar->height() - 2));

        w.progress().setProgress(3);
        QCOMPARE(w.progress().progress(), 3);
        w.resize(w.width() + 100, w.height());
        QTRY_COMPARE(w.ProgressBar1->geometry().right(), w.sbStatusBar->width() - 1);

        w.progress().Hide_ProgressBar();
        QVERIFY(!w.ProgressBar1->isVisible());
        QCOMPARE(w.ProgressBar1->value(), 0);
    }

    void transferWindow()
    {
        ProgramState::instance().gMsgBase = MessageTable::EnglishBase;
        MainWindow w;
        w.Form_Load();
        w.show();
        auto& progress = static_cast<MainWindowProgress&>(w.progress());
        progress.showTransfer(Msg(383), 7);
        TransferWindow* t = progress.transferWindow();
        QVERIFY(t && t->isVisible());
        QCOMPARE(t->objectName(), QStringLiteral("frmTrance"));
        QCOMPARE(t->windowTitle(), QStringLiteral("Communicating"));
        QCOMPARE(t->lblMessage->text(), QStringLiteral("Sending Data to the controller..."));
        QCOMPARE(t->ProgressBar1->maximum(), 7);
        QCOMPARE(t->ProgressBar1->value(), 0);
        progress.setTransferProgress(5);
        QCOMPARE(t->ProgressBar1->value(), 5);

        // The user cannot close it while the transfer runs.
        t->close();
        QVERIFY(t->isVisible());
        progress.hideTransfer();
        QVERIFY(!t->isVisible());

        progress.showTransfer(Msg(368), 3);
        QCOMPARE(progress.transferWindow(), t);
        QCOMPARE(t->ProgressBar1->value(), 0);
        QCOMPARE(t->lblMessage->text(), QStringLiteral("Reading data from controller..."));
    }

private:
    TempSettings m_settings;
};

QTEST_MAIN(TestMainWindowLock)
#include "tst_mainwindowlock.moc"
