#include "SimWindowRig.h"
#include "common/FileBytes.h"
#include "common/Settings.h"
#include "common/Waiter.h"
#include "common/widgets/Lamp.h"
#include "link/CommLog.h"
#include "link/PortNaming.h"
#include "link/SequenceContext.h"
#include "opdata/widgets/OpDataPage.h"
#include "opdata/widgets/OpDataPageController.h"
#include "params/widgets/ParaPage.h"
#include "record/Journal.h"
#include "record/JournalQuery.h"
#include "record/JournalText.h"
#include "record/ReportPrintout.h"
#include "record/widgets/JournalTableModel.h"
#include "record/widgets/JournalWindow.h"
#include "record/widgets/ReportDialog.h"
#include "record/widgets/ReportMenuCommand.h"
#include "shell/widgets/CommLogWindow.h"
#include "shell/widgets/OptionsDialog.h"
#include "sim/SimSerialPort.h"
#include "support/FileSizeLimit.h"
#include "support/PtyController.h"

#include <QElapsedTimer>
#include <QtWidgets>

#include <optional>

#include <sys/resource.h>

namespace {

void setLanguage(qint16 language)
{
    ProgramState& s = ProgramState::instance();
    s.gLanguage = language;
    s.gMsgBase = language == 1 ? 0 : MessageTable::EnglishBase;
}

// A wait that spins serves no timer, so no test can end it: QtTest's watchdog
// ends the run instead, long before ctest's limit.
[[maybe_unused]] const bool g_watchdog = qputenv("QTEST_FUNCTION_TIMEOUT", "150000");

// Processor time this process has used so far.
qint64 cpuMs()
{
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    return qint64(u.ru_utime.tv_sec + u.ru_stime.tv_sec) * 1000 + (u.ru_utime.tv_usec + u.ru_stime.tv_usec) / 1000;
}

using SimWindow = SimWindowRig<OpDataPage, OpDataPageController>;

// Runs check on the options dialog while the menu item holds it open.
void withOptionsDialog(MainWindow& w, const std::function<void(OptionsDialog&)>& check)
{
    whenDialogOpens<OptionsDialog>([check](OptionsDialog& d) {
        check(d);
        if (d.isVisible())
            d.cmdOK->click();
    });
    w.mnuOption->trigger();
}

} // namespace

// The main window: its Load and closing, its status displays, its line to
// the controller (on the built-in virtual controller) with the waits that
// closing must end, and the options dialog.
class TestMainWindow : public QObject {
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

    // The window is placed where stored (in twips); the help contents exist
    // in Japanese only, and a stored 0 leaves them as built.
    void loadFillsListsAndCaptions_data()
    {
        QTest::addColumn<int>("language");
        QTest::addColumn<QStringList>("stored");
        QTest::addColumn<QPoint>("position");
        QTest::addColumn<QStringList>("shown");
        QTest::addColumn<bool>("help");
        const QStringList english = {"1. Drive-OFF", "&File"};
        QTest::newRow("English") << 2 << QStringList{} << QPoint(67, 67) << english << false;
        QTest::newRow("stored 0") << 0 << QStringList{"3000", "1500"} << QPoint(200, 100) << english << true;
        QTest::newRow("Japanese") << 1 << QStringList{"1522.5", "0"} << QPoint(102, 0)
                                  << QStringList{"1. ドライブOFF", "ファイル(&F)"} << true;
    }
    void loadFillsListsAndCaptions()
    {
        QFETCH(int, language);
        QFETCH(QStringList, stored);
        setLanguage(qint16(language));
        if (!stored.isEmpty()) {
            Settings::writeText(Setting::MainLeft, stored[0]);
            Settings::writeText(Setting::MainTop, stored[1]);
        }
        MainWindow w;
        w.Form_Load();
        QTEST(w.pos(), "position");
        const OpDataPage& op = *w.opData;
        const ParaPage& para = *w.para;
        // Both choices show "1"; their values stay empty until the user chooses.
        QCOMPARE((QStringList{op.comboVEL->currentText(), op.comboACC->currentText(), op.txtVEL->text(),
                              op.txtACC->text()}),
                 (QStringList{"1", "1", "", ""}));
        // The size list starts empty and takes the first size of the shipped device list.
        QCOMPARE(para.comboActSize->currentText(), QStringLiteral("28"));
        const QStringList shown = {para.comboAxisAutoDrv->itemText(1), w.findChild<QMenu*>("mnuFile")->title()};
        QTEST(shown, "shown");
        QTEST(w.findChild<QAction*>("mnuHelpContents")->isEnabled(), "help");

        // Nothing is left showing its message number.
        for (QAction* a : w.findChildren<QAction*>())
            QVERIFY2(a->text().isEmpty() || !a->text()[0].isDigit(), qPrintable(a->text()));
        for (QLabel* l : w.findChildren<QLabel*>())
            QVERIFY2(!l->property("tag").isValid() || !l->text().isEmpty(), qPrintable(l->objectName()));
    }

    // Closing (twice here) stores the port and the language, switched once
    // when asked, closes the other windows and leaves the position unwritten.
    void unloadStoresPortAndLanguage_data()
    {
        QTest::addColumn<int>("language");
        QTest::addColumn<bool>("pending");
        QTest::addColumn<QString>("stored");
        QTest::newRow("English, no change") << 2 << false << "2";
        QTest::newRow("Japanese to English") << 1 << true << "2";
        QTest::newRow("stored 0 switched") << 0 << true << "1";
    }
    void unloadStoresPortAndLanguage()
    {
        QFETCH(int, language);
        QFETCH(bool, pending);
        setLanguage(qint16(language));
        ProgramState& s = ProgramState::instance();
        MainWindow w;
        w.Form_Load();
        s.gPortNo = 4;
        s.gLanguageChangePending = pending;
        QWidget other;
        other.show();
        for (int i = 0; i < 2; ++i) {
            w.show();
            QVERIFY(w.close());
        }

        QCOMPARE(Settings::readText(Setting::PortNo), QStringLiteral("4"));
        QTEST(Settings::readText(Setting::Language), "stored");
        QVERIFY(!other.isVisible());
        QCOMPARE(Settings::readText(Setting::MainLeft), QString());
    }

    // The virtual controller is named in the title and the status bar.
    void alarmOutsideTransactionAndReset()
    {
        SimWindow w;
        QCOMPARE(w.window->windowTitle(), QStringLiteral("KTR-W5 - virtual controller (simulator)"));
        QCOMPARE(w.window->lblPort->text(), QStringLiteral("Port: Simulator"));
        // Port-occupy keeps the port open after the first command, so the
        // controller's own alarm line is heard while nothing is sent.
        w.window->mnuShowCtversion->trigger();
        QCOMPARE(w.prompter.texts(), QStringList{"The version of this controller is 1.00."});
        QVERIFY(w.link().isPortOpen());
        const QRect place = w.window->imgAlarmGreen->geometry();
        w.sim().raiseAlarm("301");
        QTRY_VERIFY(w.window->imgAlarmLed->isVisible() && !w.window->imgAlarmGreen->isVisible());
        QCOMPARE(w.window->lblstatus->text(), QStringLiteral("301: Overload alarm."));
        QCOMPARE(w.prompter.shown.size(), 1);

        // The red lamp takes the green one's place, so nothing beside it moves.
        QCOMPARE(w.window->imgAlarmLed->color(), Lamp::Color::Red);
        QTRY_COMPARE(w.window->imgAlarmLed->geometry(), place);

        QTest::mouseClick(w.window->opData->cmdRESET, Qt::LeftButton);
        QVERIFY(w.window->imgAlarmGreen->isVisible() && !w.window->imgAlarmLed->isVisible());
        QCOMPARE(w.window->imgAlarmGreen->color(), Lamp::Color::Green);
        QTRY_COMPARE(w.window->imgAlarmGreen->geometry(), place);
        QCOMPARE(w.window->lblstatus->text(), QString());
        QCOMPARE(w.prompter.shown.size(), 1);
        QVERIFY(w.window->opData->cmdRESET->isEnabled());

        // File, Exit does nothing while a transfer runs; then it lets go of
        // the port although port-occupy holds it.
        ProgramState::instance().gCommBusy = true;
        w.window->mnuFileExit->trigger();
        QVERIFY(w.window->isVisible() && w.link().isPortOpen());
        ProgramState::instance().gCommBusy = false;
        w.window->mnuFileExit->trigger();
        QVERIFY(!w.window->isVisible() && !w.link().isPortOpen());
    }

    // The communication log, opened from the View menu (asked again: the
    // same window), stays beside the main window and shows a version query's
    // frames and replies with their meanings. Copied and saved, the rows are the lines
    // of the trace; a failed save says so and leaves the old file.
    void communicationLog()
    {
        SimWindow w;
        QAction* item = w.window->findChild<QAction*>("mnuViewCommLog");
        item->trigger();
        item->trigger();
        QCOMPARE(w.window->findChildren<CommLogWindow*>().size(), 1);
        CommLogWindow& log = *w.window->findChild<CommLogWindow*>();
        QVERIFY(log.isVisible() && log.isWindow() && !log.isModal());

        w.window->mnuShowCtversion->trigger();
        QTRY_COMPARE(log.log->rowCount(), 4);
        const QString lines = "> 0CM6\tcommunication check\n< 0CM6\tacknowledged\n"
                              "> 0RV\tread version\n< 0RVK01100\tversion 1.00 (type K01)\n";
        log.lstCommLog->selectAll();
        QTest::keyClick(log.lstCommLog, Qt::Key_C, Qt::ControlModifier);
        const QRegularExpression time("^\\+0\\.\\d\\d\\d ", QRegularExpression::MultilineOption);
        QCOMPARE(QApplication::clipboard()->text().remove(time), lines);
        QTemporaryDir dir;
        const QString path = dir.filePath("field.txt");
        w.files.setNextFileName(path);
        log.cmdSave->click();
        const QByteArray saved = ReadBytes(path);
        QCOMPARE(QString::fromUtf8(saved).remove(time), lines);

        w.files.setNextFileName(path);
        {
            const FileSizeLimit limit(16);
            log.cmdSave->click();
        }
        QCOMPARE(ReadBytes(path), saved);
        QVERIFY(w.prompter.lastText().startsWith("The communication log could not be saved."));
        log.cmdClear->click();
        QCOMPARE(log.log->rowCount(), 0);
    }

    // An alarm reset and a parameter write enter the unit given to the port
    // in Options; the write names only the value changed since the read. The
    // journal window lists them newest first, with the frames of the one
    // selected, and filters them.
    void journalOfTheWindow()
    {
        SimWindow w;
        withOptionsDialog(*w.window, [](OptionsDialog& d) { d.txtUnit->setText(QStringLiteral("Station 7")); });
        QTest::mouseClick(w.window->opData->cmdRESET, Qt::LeftButton);
        auto* para = w.window->findChild<ParaPage*>();
        w.window->SSTab1->setCurrentWidget(para);
        QTest::mouseClick(para->cmdParaRead, Qt::LeftButton);
        para->txtHomeVel->setText(QStringLiteral("33"));
        QTest::mouseClick(para->cmdParaWrite, Qt::LeftButton);

        const QList<JournalEntry> entries = JournalListing::read(Journal::defaultDirectory(), {}).entries;
        QCOMPARE(entries.size(), 2);
        QCOMPARE(entries[0].action, JournalEntry::AlarmReset);
        QCOMPARE(entries[1].written, (QJsonObject{{"changed", QJsonObject{{"VEL", 33}}}}));
        for (const JournalEntry& e : entries)
            QVERIFY(e.success && e.unit == u"Station 7" && e.port == u"simulator" && e.program == u"ktr-w5");

        w.window->findChild<QAction*>("mnuViewJournal")->trigger();
        auto* journal = w.window->findChild<JournalWindow*>();
        QVERIFY(journal && journal->isVisible() && !journal->isModal());
        QCOMPARE(journal->model->rowCount(), 2);
        QCOMPARE(journal->model->index(0, JournalText::Action).data().toString(), QStringLiteral("parameter write"));
        QCOMPARE(journal->model->index(0, JournalText::Written).data().toString(), QStringLiteral("VEL=33"));
        journal->tblJournal->selectRow(0);
        QVERIFY2(journal->txtFrames->toPlainText().contains("> 0WE\tstore the written parameters"),
                 qPrintable(journal->txtFrames->toPlainText()));
        QTest::keyClicks(journal->txtFilter, QStringLiteral("reset"));
        QCOMPARE(journal->model->rowCount(), 1);
        QCOMPARE(journal->lblCount->text(), QStringLiteral("1 of 2 entries"));
    }

    // Commissioning report: the unit asked for (proposed again on the same
    // port), the controller read once with the menus held, the pages shown
    // with what was read; cancelling the question reads nothing.
    void reportReadsTheUnitIntoThePreview()
    {
        SimWindow w;
        std::optional<ReportData> shown;
        QAction* control = w.window->findChild<QMenu*>(QStringLiteral("mnuCont"))->menuAction();
        int sentWhileHeld = 0;
        QObject::connect(&w.link(), &Link::frameSent, [&] { sentWhileHeld += control->isEnabled() ? 0 : 1; });
        QStringList frames;
        w.window->report->showPreview = [&](ReportPrintout& printout) { shown = printout.data(); };
        for (const bool accepted : {true, false}) {
            whenDialogOpens<ReportDialog>([accepted](ReportDialog& d) {
                QCOMPARE(d.txtReportUnit->text(), accepted ? QString() : QStringLiteral("Station 7"));
                QTest::keyClicks(d.txtReportUnit, QStringLiteral("Station 7"));
                QTest::keyClicks(d.txtReportNote, QStringLiteral("belt fitted"));
                accepted ? d.accept() : d.reject();
            });
            w.frames.clear();
            w.window->mnuReport->trigger();
            frames << w.frames;
        }
        QCOMPARE(frames.size(), 12);
        QCOMPARE(sentWhileHeld, 12);
        QVERIFY(control->isEnabled());
        QVERIFY(shown);
        QCOMPARE(shown->unit, QStringLiteral("Station 7"));
        QCOMPARE(shown->note, QStringLiteral("belt fitted"));
        QCOMPARE(shown->controllerVersion, QStringLiteral("1.00"));
        QCOMPARE(shown->parameters.at(0).value, QVariant(30));
        QCOMPARE(shown->opData.vel, 300);
        QVERIFY(shown->lamps[size_t(IoBits::index(IoLamp::OutputRdy))]);
        QCOMPARE(w.prompter.shown.size(), 0);
    }

    // Closing the window (or File, Exit where it acts) while a sequence waits:
    // the wait ends, the stack unwinds, the window closes and the event loop
    // returns within a second, without a core spinning meanwhile. The sim
    // answers at once or at the pace of the line.
    void closingEndsEveryWait_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("silent");
        QTest::addColumn<QString>("tooLong");
        QTest::addColumn<bool>("dwell");
        QTest::addColumn<bool>("exitMenu");
        QTest::addColumn<bool>("paced");
        for (const bool paced : {false, true}) {
            const char* line = paced ? "paced" : "instant";
            const auto row = [&](const char* name, const char* button, const char* silent, const char* tooLong, bool dwell,
                                 bool exitMenu) {
                QTest::addRow("%s, %s", name, line) << QString(button) << QString(silent) << QString(tooLong) << dwell << exitMenu << paced;
            };
            row("reply time-out", "cmdRESET", "AR", "", false, false);
            // A reply one character too long is followed by "0CM6", whose wait has no time limit.
            row("untimed resync wait", "cmdRESET", "CM", "AR", false, false);
            row("I/O monitor", "cmdIoMonitor", "", "", false, false);
            row("I/O monitor, File Exit", "cmdIoMonitor", "", "", false, true);
            row("move poll", "cmdMOVE", "", "", false, false);
            row("dwell", "cmdMOVE", "", "", true, false);
        }
    }
    void closingEndsEveryWait()
    {
        QFETCH(QString, button);
        QFETCH(QString, silent);
        QFETCH(QString, tooLong);
        QFETCH(bool, dwell);
        QFETCH(bool, exitMenu);
        QFETCH(bool, paced);
        SimWindow w;
        w.window->findChild<SimSerialPort*>()->setPacing(paced);
        SimFaults faults;
        faults.silence = CommandMatch::parse(silent).value_or(CommandMatch());
        faults.extraChar = CommandMatch::parse(tooLong).value_or(CommandMatch());
        w.sim().setFaults(faults);
        // A move of eleven seconds, or of a twentieth of a second before a one-minute dwell.
        w.sim().setTimeScale(dwell ? 0.1 : 20);
        OpDataPage& page = *w.window->opData;
        page.optCNT->setChecked(dwell);
        page.chkTimerUse->setChecked(true);
        page.txtTimer->setText(QStringLiteral("600"));
        QTimer::singleShot(0, page.findChild<QPushButton*>(button), &QPushButton::click);
        QElapsedTimer sinceClose;
        QTimer::singleShot(600, w.window.get(), [&] {
            sinceClose.start();
            exitMenu ? w.window->mnuFileExit->trigger() : void(w.window->close());
        });

        QElapsedTimer clock;
        clock.start();
        const qint64 cpuBefore = cpuMs();
        QApplication::exec();
        const double cpuShare = double(cpuMs() - cpuBefore) / double(qMax<qint64>(1, clock.elapsed()));

        QVERIFY2(sinceClose.elapsed() < 1000, qPrintable(QString::number(sinceClose.elapsed())));
        QVERIFY(!w.window->isVisible());
        QVERIFY2(cpuShare < 0.5, qPrintable(QString::number(cpuShare)));
        QVERIFY(!ProgramState::instance().gCommBusy);
        QVERIFY(w.prompter.shown.isEmpty());
        // What a sequence would still ask while unwinding gets "no" at once.
        if (button != u"cmdIoMonitor")
            QCOMPARE(w.window->context().prompter.ask(QStringLiteral("?"), Prompter::Buttons::YesNo,
                                                      Prompter::Icon::Question),
                     Prompter::Answer::No);
    }

    // An alarm part-way through a move or homing: the status polls go on,
    // STOP (offered for homing once the alarm shows) gives the wait up,
    // ALARM RESET and the menus come back, and after the reset a move runs
    // to its end.
    void stopThenResetAfterAnAlarm_data()
    {
        QTest::addColumn<QString>("button");
        QTest::newRow("move") << "cmdMOVE";
        QTest::newRow("homing") << "cmdHOME";
    }
    void stopThenResetAfterAnAlarm()
    {
        QFETCH(QString, button);
        SimWindow w;
        OpDataPage& page = *w.window->opData;
        QList<QByteArray> lines;
        connect(&w.link(), &Link::lineReceived, w.window.get(), [&](const QByteArray& line) {
            lines << line;
            // Raised between two polls, so that the controller's alarm line is not taken for a reply.
            if (line == "0RA0" && lines.count(line) == 1)
                QTimer::singleShot(0, w.window.get(), [&] { w.sim().raiseAlarm("301"); });
            if (line == "0RA3" && lines.count(line) == 3)
                QTimer::singleShot(0, w.window.get(), [&] { QTest::mouseClick(page.cmdSTOP, Qt::LeftButton); });
        });
        // Should STOP not end the wait, this does, late, so the test fails instead of hanging.
        QTimer::singleShot(5000, w.window.get(), [] { Waiter::abortAll(); });

        QTest::mouseClick(page.findChild<QPushButton*>(button), Qt::LeftButton);
        QVERIFY(!Waiter::aborted());
        QCOMPARE(w.prompter.texts().size(), 1);
        QVERIFY(w.prompter.lastText().contains("stopped part-way (status 3)"));
        QVERIFY(page.cmdRESET->isEnabled());
        QVERIFY(w.window->mnuFileOpen->isEnabled());

        QTest::mouseClick(page.cmdRESET, Qt::LeftButton);
        QTest::mouseClick(page.cmdMOVE, Qt::LeftButton);
        QCOMPARE(lines.last(), QByteArray("0RA1"));
        QCOMPARE(w.prompter.texts().size(), 1);
    }

    // The application ending under a wait (a monitor tick just after the
    // window closed) ends the wait rather than spinning in it.
    void quittingEndsAWait()
    {
        Waiter::Result result = Waiter::Result::Done;
        QTimer::singleShot(0, [&] { result = Waiter::waitUntil([] { return false; }, 5000); });
        QTimer::singleShot(50, [] { QCoreApplication::exit(0); });
        QApplication::exec();
        QCOMPARE(result, Waiter::Result::Aborted);
    }

    // With no port to offer, OK says so (110) and only the port is left as
    // it was. Then port 1 is held open; the user picks port 3 and then a
    // device by name. Each time the old device is let go and the next
    // command goes to the new one.
    void portChoice()
    {
        PtyController first, third, named;
        QVERIFY(!first.device().isEmpty() && !third.device().isEmpty());
        ScriptedPrompter prompter;
        MainWindow w;
        w.usePrompter(prompter);
        Link& link = w.session().link();
        link.setTimeoutMs(50);
        link.setPortNaming([](int) { return QString(); });
        w.Form_Load();
        // A number in range is read again from the store when the dialog opens.
        ProgramState::instance().gPortNo = 4;
        Settings::write(Setting::PortNo, 1);
        withOptionsDialog(w, [](OptionsDialog& d) {
            QCOMPARE(d.comboPortNo->count(), 0);
            d.chkPortOccupy->setChecked(false);
        });
        QCOMPARE(prompter.texts(), QStringList{"Communication port No. is not correct."});
        QCOMPARE(int(ProgramState::instance().gPortNo), 1);
        QCOMPARE(Settings::readText(Setting::PortOccupy), QStringLiteral("0"));

        link.setPortNaming([&](int n) { return n == 1 ? first.device() : n == 3 ? third.device()
                                                                                : QString(); });
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
    // OK asks for the other language at the next start and stores port-occupy;
    // on the virtual controller the port list names it alone.
    void languageChoice()
    {
        QFETCH(bool, foreign);
        QFETCH(int, language);
        QFETCH(bool, japaneseEnabled);
        QFETCH(bool, japaneseChecked);
        SimWindow w;
        ProgramState& s = ProgramState::instance();
        s.gForeignOs = foreign;
        s.gPortOccupy = false;
        setLanguage(qint16(language));
        withOptionsDialog(*w.window, [&](OptionsDialog& d) {
            QCOMPARE(d.optLanguege_0->isEnabled(), japaneseEnabled);
            QCOMPARE(d.optLanguege_0->isChecked(), japaneseChecked);
            QCOMPARE(d.optLanguege_1->isChecked(), !japaneseChecked);
            d.optLanguege_0->click();
            QCOMPARE(d.comboPortNo->count(), 1);
            QCOMPARE(d.comboPortNo->currentText(), Msg(5001));
            QVERIFY(d.findChild<QLabel*>(QStringLiteral("lblSimulatorNote"))->isVisible());
            QVERIFY(!d.chkPortOccupy->isChecked());
            d.chkPortOccupy->setChecked(true);
        });
        QCOMPARE(s.gLanguageChangePending, japaneseEnabled && !japaneseChecked);
        QCOMPARE(Settings::readText(Setting::PortOccupy), QStringLiteral("1"));
        QVERIFY(s.gPortOccupy);
        QVERIFY(w.prompter.shown.isEmpty());
    }

    // The Options check box (off, and not stored, until chosen) reads every
    // write back on the virtual controller: one box after the question,
    // confirmed or the differences. Off, the frames and the boxes are the
    // write's own.
    void confirmedWrites_data()
    {
        QTest::addColumn<bool>("confirm");
        QTest::addColumn<bool>("taken");
        QTest::addColumn<QStringList>("paraRead"); // after the write's frames
        QTest::addColumn<QStringList>("paraBoxes");
        QTest::addColumn<QStringList>("opDataRead");
        QTest::addColumn<QStringList>("opDataBoxes");
        const QStringList paraRead{"0RD0", "0RD1", "0RD2"};
        const QStringList opDataRead{"0CM6", "0RP01"};
        const QStringList done{"Written and confirmed."};
        QTest::newRow("off") << false << true << QStringList{} << QStringList{"Completed writing parameters."} << QStringList{}
                             << QStringList{};
        QTest::newRow("on") << true << true << paraRead << done << opDataRead << done;
        QTest::newRow("on, not taken") << true << false << paraRead << QStringList{"Result of Verify - NG\r\n<HOME Parameter> :VEL,\r\n"}
                                       << opDataRead << QStringList{"Result of Verify - NG\r\nACC: written 2, read 1"};
    }
    void confirmedWrites()
    {
        QFETCH(bool, confirm);
        QFETCH(bool, taken);
        SimWindow w;
        withOptionsDialog(*w.window, [&](OptionsDialog& d) {
            QVERIFY(!d.chkConfirmWrites->isChecked());
            d.chkConfirmWrites->setChecked(confirm);
        });
        QCOMPARE(Settings::readText(Setting::ConfirmWrites), confirm ? QStringLiteral("1") : QString());
        SimFaults faults;
        faults.writesNotTaken = !taken;
        w.sim().setFaults(faults);

        auto* para = w.window->findChild<ParaPage*>();
        w.window->SSTab1->setCurrentWidget(para);
        QTest::mouseClick(para->cmdParaRead, Qt::LeftButton);
        para->txtHomeVel->setText(QStringLiteral("33"));
        w.frames.clear();
        w.prompter.clear();
        QTest::mouseClick(para->cmdParaWrite, Qt::LeftButton);
        QFETCH(QStringList, paraRead);
        QCOMPARE(w.frames, (QStringList{"0RA", "0WD0001E1E210A0A0003E8000A0A00000000", "0WD10202019000FFFF14001C4C0064000000", "0WD2000114020003E80007D00A0500000000", "0WE"} + paraRead));
        QFETCH(QStringList, paraBoxes);
        QCOMPARE(w.prompter.texts(), QStringList{"Send parameters to controller?"} + paraBoxes);

        w.window->SSTab1->setCurrentWidget(&w.page());
        QTest::mouseClick(w.page().cmdGetfromCt, Qt::LeftButton);
        w.page().txtACC->setText(QStringLiteral("2"));
        w.frames.clear();
        w.prompter.clear();
        QTest::mouseClick(w.page().cmdLoadtoCt, Qt::LeftButton);
        QFETCH(QStringList, opDataRead);
        QCOMPARE(w.frames, QStringList({"0RA", "0WP01012C200000000C01", "0WA0101"}) + opDataRead);
        QFETCH(QStringList, opDataBoxes);
        QCOMPARE(w.prompter.texts(), QStringList{"Data is transmitted to controller,Yes?"} + opDataBoxes);
    }

    void roundingTakenAtClickAndKeptOnCancel()
    {
        SimWindow w;
        ProgramState& s = ProgramState::instance();
        withOptionsDialog(*w.window, [&](OptionsDialog& d) {
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

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
