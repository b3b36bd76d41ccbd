#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "common/Waiter.h"
#include "link/Link.h"
#include "link/PortNaming.h"
#include "link/SequenceContext.h"
#include "opdata/widgets/OpDataPage.h"
#include "shell/Settings.h"
#include "shell/widgets/ControllerSession.h"
#include "shell/widgets/Lamp.h"
#include "shell/widgets/MainWindow.h"
#include "shell/widgets/OptionsDialog.h"
#include "sim/SimController.h"
#include "support/PtyController.h"
#include "support/ScriptedPrompter.h"
#include "support/TempSettings.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QtTest>

#include <functional>
#include <optional>

namespace {

void setLanguage(qint16 language)
{
    ProgramState& s = ProgramState::instance();
    s.gLanguage = language;
    s.gMsgBase = language == 1 ? 0 : MessageTable::EnglishBase;
}

StartupOptions simulated()
{
    StartupOptions o;
    o.simulator = true;
    return o;
}

// A window on the built-in virtual controller, loaded, with scripted boxes.
struct SimWindow {
    SimWindow() : window(simulated())
    {
        window.usePrompter(prompter);
        window.Form_Load();
        window.show();
    }
    SimController& sim() { return *window.session().simulator(); }
    Link& link() { return window.session().link(); }

    ScriptedPrompter prompter;
    MainWindow window;
};

// Runs check on the options dialog while the menu item holds it open.
void withOptionsDialog(MainWindow& w, const std::function<void(OptionsDialog&)>& check)
{
    QTimer::singleShot(0, &w, [&] {
        auto* dialog = qobject_cast<OptionsDialog*>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        check(*dialog);
        if (dialog->isVisible())
            dialog->cmdOK->click();
    });
    w.mnuOption->trigger();
}

} // namespace

// The main window's line to the controller: the version display, alarms
// and their reset, time-outs and closing in the middle of a wait, on the
// built-in virtual controller; and the options dialog.
class TestWiring : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        ProgramState::reset();
        setLanguage(2);
        m_settings.emplace();
    }

    void cleanup()
    {
        m_settings.reset();
        Waiter::clearAbort();
        ProgramState::reset();
    }

    void versionAndSimulatorShownPlainly_data()
    {
        QTest::addColumn<int>("language");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("title");
        QTest::newRow("English") << 2 << "The version of this controller is 1.00."
                                 << "KTR-W5 - virtual controller (simulator)";
        QTest::newRow("Japanese") << 1 << "このｺﾝﾄﾛｰﾗのﾊﾞｰｼﾞｮﾝは、1.00です。"
                                  << "KTR-W5 - 仮想コントローラ（シミュレータ）";
    }
    void versionAndSimulatorShownPlainly()
    {
        QFETCH(int, language);
        setLanguage(qint16(language));
        SimWindow w;
        QTEST(w.window.windowTitle(), "title");

        w.window.mnuShowCtversion->trigger();
        QTEST(w.prompter.texts().join('|'), "message");
        QVERIFY(w.window.mnuShowCtversion->isEnabled());
        QVERIFY(w.window.opData->cmdRESET->isEnabled());
        QVERIFY(!ProgramState::instance().gCommBusy);
    }

    void alarmOutsideTransactionAndReset()
    {
        SimWindow w;
        // Port-occupy keeps the port open after the first command, so the
        // controller's own alarm line is heard while nothing is sent.
        w.window.mnuShowCtversion->trigger();
        QVERIFY(w.link().isPortOpen());
        w.sim().raiseAlarm("301");
        QTRY_VERIFY(w.window.imgAlarmLed->isVisible());
        QVERIFY(!w.window.imgAlarmGreen->isVisible());
        QCOMPARE(w.window.lblstatus->text(), QStringLiteral("301: Overload alarm."));
        QCOMPARE(w.prompter.shown.size(), 1);

        QTest::mouseClick(w.window.opData->cmdRESET, Qt::LeftButton);
        QVERIFY(w.window.imgAlarmGreen->isVisible());
        QVERIFY(!w.window.imgAlarmLed->isVisible());
        QCOMPARE(w.window.lblstatus->text(), QString());
        QCOMPARE(w.prompter.shown.size(), 1);
        QVERIFY(w.window.SSTab1->isEnabled());
        QVERIFY(w.window.opData->cmdRESET->isEnabled());

        // File, Exit lets go of the port although port-occupy holds it.
        w.window.mnuFileExit->trigger();
        QVERIFY(!w.link().isPortOpen());
    }

    void timeoutShowsWhatToCheck()
    {
        SimWindow w;
        SimFaults faults;
        faults.silence = *CommandMatch::parse(QStringLiteral("CM"));
        w.sim().setFaults(faults);

        w.window.mnuShowCtversion->trigger();
        QCOMPARE(w.prompter.texts(),
                 QStringList{"Communication timeout error!\r\n\r\nCheck the followings;\r\n"
                             " 1.Power ON for controller?\r\n 2.Communication cables are connected?"});
        QVERIFY(w.window.mnuShowCtversion->isEnabled());
        QVERIFY(w.window.opData->cmdRESET->isEnabled());
    }

    void closingMidWaitUnwindsFirst_data()
    {
        QTest::addColumn<QString>("silent");
        QTest::addColumn<QString>("tooLong");
        QTest::addColumn<bool>("reset");
        // The communication check waits out its 2-second time-out.
        QTest::newRow("transaction wait") << "CM" << QString() << false;
        // A reply one character too long is followed by "0CM6", whose wait has
        // no time limit.
        QTest::newRow("untimed wait") << "CM" << "AR" << true;
    }
    void closingMidWaitUnwindsFirst()
    {
        QFETCH(QString, silent);
        QFETCH(QString, tooLong);
        QFETCH(bool, reset);
        SimWindow w;
        SimFaults faults;
        faults.silence = *CommandMatch::parse(silent);
        if (!tooLong.isEmpty())
            faults.extraChar = *CommandMatch::parse(tooLong);
        w.sim().setFaults(faults);

        QTimer::singleShot(200, &w.window, [&] { w.window.close(); });
        // Should closing not end the wait, this ends it, late, so the test fails
        // instead of hanging.
        QTimer::singleShot(4000, &w.window, [&] {
            w.link().gAbortWait = true;
            w.link().gTimedOut = true;
            Waiter::wake();
        });
        QElapsedTimer clock;
        clock.start();
        if (reset)
            QTest::mouseClick(w.window.opData->cmdRESET, Qt::LeftButton);
        else
            w.window.mnuShowCtversion->trigger();

        QVERIFY2(clock.elapsed() < 1500, qPrintable(QString::number(clock.elapsed())));
        QVERIFY(w.prompter.shown.isEmpty());
        QVERIFY(!ProgramState::instance().gCommBusy);
        QTRY_VERIFY(!w.window.isVisible());
        // What a sequence would still ask while unwinding gets "no" at once.
        QCOMPARE(w.window.context().prompter.ask(QStringLiteral("?"), Prompter::Buttons::YesNo,
                                                 Prompter::Icon::Question),
                 Prompter::Answer::No);
        QVERIFY(w.prompter.shown.isEmpty());
    }

    void portNumberFromListEntry_data()
    {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<int>("number");
        QTest::newRow("COM12") << "COM12" << 12;
        QTest::newRow("blanks around") << " COM3 " << 3;
        QTest::newRow("device beside it") << "COM1  (/dev/ttyUSB0)" << 1;
        QTest::newRow("above 32") << "COM33" << 0;
        QTest::newRow("zero") << "COM0" << 0;
    }
    void portNumberFromListEntry()
    {
        QFETCH(QString, entry);
        QTEST(OptionsDialog::portNumberOf(entry), "number");
    }

    void emptyPortListFailsWith110()
    {
        ScriptedPrompter prompter;
        MainWindow w;
        w.usePrompter(prompter);
        w.session().link().setPortNaming([](int) { return QString(); });
        w.Form_Load();
        // A number in range is read again from the store when the dialog opens.
        ProgramState::instance().gPortNo = 4;
        Settings::writeInt(QStringLiteral("PortNo"), 5);
        withOptionsDialog(w, [](OptionsDialog& d) {
            QCOMPARE(d.comboPortNo->count(), 0);
            d.chkPortOccupy->setChecked(false);
        });
        QCOMPARE(prompter.texts(), QStringList{"Communication port No. is not correct."});
        QCOMPARE(int(ProgramState::instance().gPortNo), 5);
        // Only the port is left as it was.
        QCOMPARE(Settings::readText(QStringLiteral("PortOccupy")), QStringLiteral("0"));
    }

    void portOccupyStoredAtOnce_data()
    {
        QTest::addColumn<bool>("checked");
        QTest::addColumn<QString>("stored");
        QTest::newRow("unchecked") << false << "0";
        QTest::newRow("checked") << true << "1";
    }
    // On the virtual controller the port list names it alone.
    void portOccupyStoredAtOnce()
    {
        QFETCH(bool, checked);
        ProgramState::instance().gPortOccupy = !checked;
        SimWindow w;
        withOptionsDialog(w.window, [checked](OptionsDialog& d) {
            QCOMPARE(d.chkPortOccupy->isChecked(), !checked);
            QCOMPARE(d.comboPortNo->count(), 1);
            QCOMPARE(d.comboPortNo->currentText(), QStringLiteral("Virtual controller (simulator)"));
            QVERIFY(d.findChild<QLabel*>(QStringLiteral("lblSimulatorNote"))->isVisible());
            d.chkPortOccupy->setChecked(checked);
        });
        QTEST(Settings::readText(QStringLiteral("PortOccupy")), "stored");
        QCOMPARE(ProgramState::instance().gPortOccupy, checked);
        QVERIFY(w.prompter.shown.isEmpty());
    }

    // Port 1 is held open; the user picks port 3 and then a device by name.
    // Each time the old device is let go and the next command goes to the new
    // one.
    void newPortReleasesTheOldOne()
    {
        PtyController first, third, named;
        QVERIFY(!first.device().isEmpty() && !third.device().isEmpty());
        ScriptedPrompter prompter;
        MainWindow w;
        w.usePrompter(prompter);
        Link& link = w.session().link();
        link.gTimeoutMs = 50;
        link.setPortNaming([&](int n) {
            return n == 1 ? first.device() : n == 3 ? third.device() : QString();
        });
        w.Form_Load();
        QCOMPARE(link.OpenCommPort(), 0);
        QVERIFY(link.isPortOpen());

        withOptionsDialog(w, [&](OptionsDialog& d) {
            QCOMPARE(d.comboPortNo->count(), 2);
            QCOMPARE(d.comboPortNo->itemText(1), QStringLiteral("COM3  (%1)").arg(third.device()));
            d.comboPortNo->setCurrentIndex(1);
        });
        QCOMPARE(int(ProgramState::instance().gPortNo), 3);
        QVERIFY(!link.isPortOpen());
        QCOMPARE(w.lblPort->text(), QStringLiteral("Port: COM3"));
        QCOMPARE(link.OpenCommPort(), 0);
        link.SendRecvCommand(QStringLiteral("0CM"), 6, QStringLiteral("6"));
        QCOMPARE(third.receive(6), QByteArray("0CM6\r\n"));
        QVERIFY(first.receive(1, 0).isEmpty());

        withOptionsDialog(w, [&](OptionsDialog& d) { d.comboPortName->setCurrentText(named.device()); });
        QCOMPARE(PortNaming::storedName(), named.device());
        QCOMPARE(w.lblPort->text(), QStringLiteral("Port: %1").arg(named.device()));
        prompter.clear();
        link.SendRecvCommand(QStringLiteral("0CM"), 6, QStringLiteral("6"));
        QCOMPARE(named.receive(6), QByteArray("0CM6\r\n"));
    }

    void languageChoice_data()
    {
        QTest::addColumn<bool>("foreign");
        QTest::addColumn<int>("language");
        QTest::addColumn<bool>("japaneseEnabled");
        QTest::addColumn<bool>("japaneseChecked");
        QTest::newRow("foreign system") << true << 2 << false << false;
        QTest::newRow("Japanese system, English") << false << 2 << true << false;
        QTest::newRow("Japanese system, Japanese") << false << 1 << true << true;
    }
    // On OK the other language is asked for; it is taken at the next start.
    void languageChoice()
    {
        QFETCH(bool, foreign);
        QFETCH(int, language);
        QFETCH(bool, japaneseEnabled);
        QFETCH(bool, japaneseChecked);
        ProgramState::instance().gForeignOs = foreign;
        setLanguage(qint16(language));
        SimWindow w;
        withOptionsDialog(w.window, [&](OptionsDialog& d) {
            QCOMPARE(d.optLanguege_0->isEnabled(), japaneseEnabled);
            QCOMPARE(d.optLanguege_0->isChecked(), japaneseChecked);
            QCOMPARE(d.optLanguege_1->isChecked(), !japaneseChecked);
            QCOMPARE(d.SSTabOption->tabText(2), Msg(2508));
            d.optLanguege_0->click();
        });
        QCOMPARE(ProgramState::instance().gLanguageChangePending, japaneseEnabled && !japaneseChecked);
    }

    void roundingTakenAtClickAndKeptOnCancel()
    {
        SimWindow w;
        ProgramState& s = ProgramState::instance();
        withOptionsDialog(w.window, [&](OptionsDialog& d) {
            QVERIFY(d.optSutiSyori_0->isChecked());
            QVERIFY(d.framDispUnit->isHidden());
            d.SSTabOption->setCurrentIndex(1);
            d.optSutiSyori_1->click();
            QVERIFY(!s.gMmRoundUp);
            d.optDispPos_1->setChecked(true);
            d.cmdCancel->click();
        });
        QVERIFY(!s.gMmRoundUp);
        QVERIFY(s.gDispMmUnit);
    }

private:
    std::optional<TempSettings> m_settings;
};

QTEST_MAIN(TestWiring)
#include "tst_wiring.moc"
