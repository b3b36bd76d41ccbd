// ktrctl against ktr-sim or a played controller on a pseudo-terminal: the
// frames on the wire, their timing, and Ctrl-C. What the commands print is
// checked in-process (tests/cli).

#include "KtrctlProcess.h"
#include "print/PdfText.h"
#include "record/Journal.h"
#include "record/JournalQuery.h"
#include "support/ControllerFiles.h"
#include "support/PtyController.h"
#include "support/SimProcess.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

namespace {

// Block 0 of a file with VEL 33 (0x21): the factory block otherwise.
const QString Block0 = QStringLiteral("001E1E210A0A0003E8000A0A00000000");
const QString Block2 = QStringLiteral("000114020003E80007D00A0500000000");

QString journalFolder(const QTemporaryDir& dataHome)
{
    return dataHome.filePath(QStringLiteral("KTR-W5/journal"));
}

// The commands an entry's frames sent, a command polled over and over once.
QString commandsSent(const QStringList& frames)
{
    static const QRegularExpression sent(QStringLiteral("^\\+\\d+\\.\\d{3} > (\\d\\w\\w)"));
    QStringList commands;
    for (const QString& frame : frames) {
        const auto m = sent.match(frame);
        if (m.hasMatch() && (commands.isEmpty() || commands.last() != m.captured(1)))
            commands << m.captured(1);
    }
    return commands.join(u' ');
}

} // namespace

class TestKtrctl : public QObject {
    Q_OBJECT

private slots:
    // One run of each command's sequence; a controller without 0RV is asked the older way.
    void wireSequences_data()
    {
        QTest::addColumn<QStringList>("simArgs");
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<QStringList>("frames");
        const QStringList none;
        QTest::newRow("check") << none << QStringList{"check"} << QStringList{"0CM6"};
        QTest::newRow("version") << none << QStringList{"version"} << QStringList{"0CM6", "0RV"};
        QTest::newRow("version, older form") << QStringList{"--error-reply", "RV:101"} << QStringList{"version"}
                                             << QStringList{"0CM6", "0RV", "0%C"};
        QTest::newRow("status") << none << QStringList{"status"} << QStringList{"0RA"};
        QTest::newRow("reset") << none << QStringList{"reset"} << QStringList{"0AR"};
        QTest::newRow("params read") << none << QStringList{"params", "read"} << QStringList{"0RD0", "0RD1", "0RD2", "0RD7"};
        QTest::newRow("params verify") << none << QStringList{"params", "verify", "FACTORY"} << QStringList{"0RD0", "0RD1", "0RD2"};
        const QStringList write{"0RA", "0WD0" + Block0};
        QTest::newRow("params write, 28: four commands")
            << none << QStringList{"params", "write", "PMT28"}
            << write + QStringList{"0WD10202019000FFFF14001C4C0064000000", "0WD2" + Block2, "0WE"};
        QTest::newRow("params write --confirm: read back as verify reads")
            << none << QStringList{"params", "write", "PMT28", "--confirm"}
            << write + QStringList{"0WD10202019000FFFF14001C4C0064000000", "0WD2" + Block2, "0WE", "0RD0", "0RD1", "0RD2"};
        // 0.16 A x 1875 = 300 at data digits 13 to 16 of block 7.
        QTest::newRow("params write, special: seven commands")
            << none << QStringList{"params", "write", "PMT20", "--current", "0.16"}
            << write + QStringList{"0WD10202019000FFFF1400144C0064030000", "0WD2" + Block2, "0WE", "0RD7", "0WD7000000000000012C0000000000000000", "0WF"};
        QTest::newRow("opdata read") << none << QStringList{"opdata", "read"} << QStringList{"0CM6", "0RP01"};
        QTest::newRow("opdata write, values, CCW")
            << none << QStringList{"opdata", "write", "--speed", "1", "--acc", "1", "--division", "12", "--gear", "1", "--dir", "ccw"}
            << QStringList{"0RA", "0WP01012C100000010C01", "0WA0101"};
        QTest::newRow("opdata write, file") << none << QStringList{"opdata", "write", "QMD"}
                                            << QStringList{"0RA", "0WP012328100000000C01", "0WA0101"};
    }
    void wireSequences()
    {
        QFETCH(QStringList, simArgs);
        QFETCH(QStringList, args);
        QTemporaryDir files;
        args.replaceInStrings(QStringLiteral("PMT28"), writeFile(files, QStringLiteral("28.pmt"), paraFile("28", 33)));
        args.replaceInStrings(QStringLiteral("PMT20"), writeFile(files, QStringLiteral("20.pmt"), paraFile("20", 33)));
        args.replaceInStrings(QStringLiteral("FACTORY"), writeFile(files, QStringLiteral("10.pmt"), paraFile("28", 10)));
        args.replaceInStrings(QStringLiteral("QMD"), writeFile(files, QStringLiteral("in.qmd"), OpDataFile));
        SimProcess sim(QStringLiteral(KTRSIM_PATH));
        QVERIFY2(sim.start(simArgs), sim.standardError().constData());
        const CtlRun run = KtrctlProcess::run(QStringList{"--port", sim.devicePath(), "--trace"} + args);
        QCOMPARE(run.exitCode, 0);
        QTEST(sentFrames(run.err), "frames");
        // No window shows the transfer, so nothing pauses for the eye before the next request.
        const QList<TraceFrame> frames = traceFrames(run.err);
        for (qsizetype i = 1; i < frames.size(); ++i)
            QVERIFY2(frames[i].text.startsWith(u'<') || frames[i].ms - frames[i - 1].ms < 80, qPrintable(run.err));
    }

    // The report of a special actuator whose current overflows the page's
    // arithmetic: one read of everything, the values as the controller holds
    // them, the journal of this unit only; then the same as pages.
    void reportOfTheUnit()
    {
        QTemporaryDir files;
        qputenv("XDG_DATA_HOME", files.path().toUtf8());
        SimProcess sim(QStringLiteral(KTRSIM_PATH));
        QVERIFY2(sim.start(), sim.standardError().constData());
        const QString pmt = writeFile(files, QStringLiteral("20.pmt"), paraFile("20", 33));
        QCOMPARE(KtrctlProcess::run({"--port", sim.devicePath(), "params", "write", pmt, "--current", "1.5"}, files.path()).exitCode, 0);
        Journal journal(Journal::defaultDirectory());
        for (const QString& unit : {QStringLiteral("Station 7"), QStringLiteral("Station 8")}) {
            JournalEntry entry;
            entry.time = QDateTime::currentDateTime().addSecs(-60);
            entry.port = sim.devicePath();
            entry.unit = unit;
            entry.action = JournalEntry::Home;
            entry.success = true;
            journal.append(entry);
        }

        const QString json = files.filePath(QStringLiteral("r.json"));
        const QStringList unit{"--port", sim.devicePath(), "--unit", "Station 7"};
        const CtlRun run = KtrctlProcess::run(unit + QStringList{"--trace", "report", "-o", json}, files.path());
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(sentFrames(run.err), (QStringList{"0CM6", "0RV", "0RD0", "0RD1", "0RD2", "0RD7", "0CM6", "0RP01", "0CM7", "0RI", "0RO", "0CM0"}));
        QFile file(json);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QJsonObject report = QJsonDocument::fromJson(file.readAll()).object();
        QCOMPARE(report["unit"].toString(), QStringLiteral("Station 7"));
        QCOMPARE(report["controller"].toObject()["version"].toString(), QStringLiteral("1.00"));
        QCOMPARE(report["currentA"].toDouble(), 2812 / 1875.0);
        const QJsonObject vel = report["parameters"].toArray()[1].toObject();
        QCOMPARE(vel, (QJsonObject{{"name", "VEL"}, {"value", 33}, {"standard", 10}, {"differs", true}}));
        QCOMPARE(report["parameters"].toArray()[5].toObject()["value"].toString(), QStringLiteral("20L100"));
        QCOMPARE(report["operationData"].toObject(), (QJsonObject{{"VEL", 300}, {"ACC", 1}, {"DIR", "CW"}, {"DIVISION", 12}, {"GEAR", 1}, {"SPEED", 1}}));
        QCOMPARE(report["io"].toObject()["RDY"].toBool(), true);
        QCOMPARE(report["io"].toObject()["ALM"].toBool(), false);
        QCOMPARE(report["journal"].toArray().size(), 1);
        QCOMPARE(report["journal"].toArray()[0].toObject()["unit"].toString(), QStringLiteral("Station 7"));

        const QString pdf = files.filePath(QStringLiteral("r.pdf"));
        QCOMPARE(KtrctlProcess::run(unit + QStringList{"report", "-o", pdf, "--paper", "letter", "--note", "Line 2"}, files.path()).exitCode, 0);
        QFile pages(pdf);
        QVERIFY(pages.open(QIODevice::ReadOnly));
        const QByteArray bytes = pages.readAll();
        QVERIFY(bytes.contains("/MediaBox [0 0 612.000000 792.000000]"));
        QString missing;
        const QStringList pieces{"Commissioning report", "Unit:", "Station 7", "Note:", "Line 2", "VEL", "33", "10", "*",
                                 "SP current:", "1.50 A", "VEL: 300", "● RDY", "homing", "done", "Commissioned by:", "Accepted by:"};
        QVERIFY2(findInOrder(pdfText(bytes), pieces, &missing) >= 0, qPrintable(missing));
    }

    // Each action of ktrctl enters what it did, how it ended, what the user
    // was told and its frames; a controller that refuses it fails the entry.
    void journalEntryOfEachAction_data()
    {
        QTest::addColumn<QStringList>("simArgs");
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("commands");
        QTest::addColumn<QString>("message"); // empty: the action succeeded
        QTest::addColumn<int>("exitCode");
        const auto row = [](const char* name, const QString& fault, const QStringList& args, const QString& action,
                            const char* commands, const char* message) {
            QTest::newRow(name) << (fault.isEmpty() ? QStringList{} : QStringList{"--error-reply", fault}) << args << action
                                << QString(commands) << QString(message)
                                << (*message ? 1 : 0);
        };
        const QStringList values{"opdata", "write", "--speed", "1", "--acc", "1", "--division", "12", "--gear", "1"};
        row("params write", {}, {"params", "write", "PMT28"}, JournalEntry::ParamsWrite, "0RA 0WD 0WE", "");
        row("params write refused", "WE:101", {"params", "write", "PMT28"}, JournalEntry::ParamsWrite, "0RA 0WD 0WE", "Fail to Write parameters.");
        row("opdata write", {}, values, JournalEntry::OpDataWrite, "0RA 0WP 0WA", "");
        row("opdata write refused", "WA:101", values, JournalEntry::OpDataWrite, "0RA 0WP 0WA", "Unknown command.");
        row("output", {}, {"io", "--toggle", "OUT2"}, JournalEntry::OutputToggle, "0WO 0RI 0RO", "");
        row("output refused", "WO:101", {"io", "--toggle", "OUT2"}, JournalEntry::OutputToggle, "0WO", "Unknown command.");
        row("reset", {}, {"reset"}, JournalEntry::AlarmReset, "0AR", "");
        row("reset refused", "AR:101", {"reset"}, JournalEntry::AlarmReset, "0AR", "Unknown command.");
        row("home", {}, {"home"}, JournalEntry::Home, "0CM 0MP 0RA", "");
        row("home refused", "MP:101", {"home"}, JournalEntry::Home, "0CM 0MP", "Unknown command.");
        row("move", {}, {"move"}, JournalEntry::Move, "0RA 0MP 0RA", "");
        row("move refused", "MP:101", {"move"}, JournalEntry::Move, "0RA 0MP", "Unknown command.");
    }
    void journalEntryOfEachAction()
    {
        QFETCH(QStringList, simArgs);
        SimProcess sim(QStringLiteral(KTRSIM_PATH));
        QVERIFY2(sim.start(simArgs), sim.standardError().constData());
        QFETCH(QStringList, args);
        QFETCH(QString, message);
        QTemporaryDir data;
        args.replaceInStrings(QStringLiteral("PMT28"), writeFile(data, QStringLiteral("28.pmt"), paraFile("28", 33)));
        const CtlRun run = KtrctlProcess::run(QStringList{"--port", sim.devicePath(), "--unit", "Station 7"} + args, data.path());
        QTEST(run.exitCode, "exitCode");

        const JournalListing listing = JournalListing::read(journalFolder(data), {});
        QCOMPARE(listing.entries.size(), 1);
        const JournalEntry& entry = listing.entries.first();
        QTEST(entry.action, "action");
        QCOMPARE(entry.success, message.isEmpty());
        QVERIFY2(message.isEmpty() ? entry.message.isEmpty() : entry.message.contains(message), qPrintable(entry.message));
        QTEST(commandsSent(entry.frames), "commands");
        QCOMPARE(entry.unit, QStringLiteral("Station 7"));
        QCOMPARE(entry.port, sim.devicePath());
        QCOMPARE(entry.program, QStringLiteral("ktrctl"));
    }

    // A ktrctl killed while its third move runs leaves the moves before it
    // entered whole; the journal lists them, as a table or as JSON, and
    // counts a damaged line.
    void killedRunKeepsItsEntries()
    {
        QTemporaryDir data;
        SimProcess sim(QStringLiteral(KTRSIM_PATH));
        QVERIFY2(sim.start(), sim.standardError().constData());
        KtrctlProcess ktrctl(data.path());
        ktrctl.start({"--port", sim.devicePath(), "--trace", "move", "--continuous"});
        QVERIFY(ktrctl.waitForErr([](const QString& err) { return sentFrames(err).count(QStringLiteral("0MP01")) == 3; }));
        ktrctl.kill();
        ktrctl.finish();

        const QString file = QDir(journalFolder(data)).filePath(Journal::fileName(QDate::currentDate()));
        QFile journal(file);
        QVERIFY(journal.open(QIODevice::Append));
        journal.write("{\"time\":\"2026-11-0\n");
        journal.close();
        const CtlRun table = KtrctlProcess::run({"journal"}, data.path());
        QCOMPARE(table.exitCode, 0);
        const QStringList rows = linesOf(table.out);
        QCOMPARE(rows.size(), 3);
        QVERIFY2(rows[0].startsWith("Time ") && rows[2].contains(QRegularExpression("  move +done +move=2$")), qPrintable(table.out));
        QCOMPARE(table.err, QStringLiteral("1 damaged lines of the journal were skipped.\n"));
        const CtlRun json = KtrctlProcess::run({"journal", "--json", "--port", sim.devicePath()}, data.path());
        QCOMPARE(linesOf(json.out).size(), 2);
        QCOMPARE(QJsonDocument::fromJson(linesOf(json.out)[0].toUtf8())["written"].toObject(), (QJsonObject{{"move", 1}}));
        QCOMPARE(linesOf(KtrctlProcess::run({"journal", "--since", "2999-01-01"}, data.path()).out).size(), 1);
    }

    // A unit that cannot be read gets no report.
    void reportNotWrittenWhenTheReadFails()
    {
        QTemporaryDir files;
        SimProcess sim(QStringLiteral(KTRSIM_PATH));
        QVERIFY2(sim.start({"--error-reply", "RP:101"}), sim.standardError().constData());
        const QString json = files.filePath(QStringLiteral("r.json"));
        const CtlRun run = KtrctlProcess::run({"--port", sim.devicePath(), "report", "-o", json});
        QCOMPARE(run.exitCode, 1);
        QVERIFY2(run.err.endsWith(QStringLiteral("The report was not written: the controller could not be read.\n")), qPrintable(run.err));
        QVERIFY(!QFile::exists(json));
    }

    // Ctrl-C while the third move runs: it completes, no fourth starts.
    // Between a move's end and the next start lies the dwell of 0.5 s.
    void dwellBetweenMovesAndCtrlCStops()
    {
        SimProcess sim(QStringLiteral(KTRSIM_PATH));
        QVERIFY2(sim.start(), sim.standardError().constData());
        KtrctlProcess ktrctl;
        ktrctl.start({"--port", sim.devicePath(), "--trace", "move", "--continuous", "--dwell", "5"});
        QVERIFY(ktrctl.waitForErr([](const QString& err) { return sentFrames(err).count(QStringLiteral("0MP01")) == 3; }));
        ktrctl.interrupt();
        const CtlRun run = ktrctl.finish();
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(linesOf(run.out), (QStringList{"Move 1 finished.", "Move 2 finished.", "Move 3 finished."}));
        QCOMPARE(traceFrames(run.err).last().text, QStringLiteral("< 0RA1"));

        int lastEnd = -1;
        int gaps = 0;
        for (const TraceFrame& f : traceFrames(run.err)) {
            if (f.text == u"< 0RA1") {
                lastEnd = f.ms;
            } else if (f.text == u"> 0MP01" && gaps++ > 0) {
                const int gap = f.ms - lastEnd;
                QVERIFY2(gap >= 490 && gap <= 800, qPrintable(QString::number(gap)));
            }
        }
        QCOMPARE(gaps, 3); // every move sent, no fourth
    }

    // The outputs read 00; a click on OUT1 writes 02 and reads it back.
    void ioTogglesAnOutput()
    {
        PtyController controller;
        KtrctlProcess ktrctl;
        ktrctl.start({"--port", controller.device(), "--trace", "io", "--toggle", "OUT1"});
        const QList<QPair<QByteArray, QByteArray>> exchange{{"0CM7", "0CM7"}, {"0RI", "0RI000"}, {"0RO", "0RO00"}, {"0WO02", "0WO02"}, {"0RI", "0RI800"}, {"0RO", "0RO02"}, {"0CM0", "0CM0"}};
        for (const auto& [request, reply] : exchange)
            QVERIFY2(controller.answer(request, reply), request.constData());
        const CtlRun run = ktrctl.finish();
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(sentFrames(run.err), (QStringList{"0CM7", "0RI", "0RO", "0WO02", "0RI", "0RO", "0CM0"}));
        QCOMPARE(run.out, QStringLiteral("STB=1 STOP=0 ALM=0 RDY=0 IN-P=0 OUT1=1 OUT2=0\n"));
    }

    // Ctrl-C ends every wait within a second: watch, homing held by STOP, a long
    // move (the second Ctrl-C; the first is STOP), the endless wait after a wrong length.
    void ctrlCEndsTheWait_data()
    {
        QTest::addColumn<QStringList>("simArgs");
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<QString>("seen");
        QTest::addColumn<int>("interrupts");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("lastLine"); // of stderr
        QTest::newRow("io --watch") << QStringList{} << QStringList{"io", "--watch"} << "< 0RO" << 1 << 0 << "< 0CM0";
        QTest::newRow("home, STOP held") << QStringList{"--stop"} << QStringList{"home"} << "< 0RA2" << 1 << 1 << "Interrupted.";
        QTest::newRow("move of 11 s") << QStringList{"--time-scale", "20"} << QStringList{"move"} << "< 0RA0" << 2 << 1
                                      << "Interrupted.";
        QTest::newRow("endless wait") << QStringList{"--extra-char", "RA", "--silent", "CM"} << QStringList{"status"}
                                      << "> 0CM6" << 1 << 1 << "> 0CM6\nInterrupted.";
    }
    void ctrlCEndsTheWait()
    {
        QFETCH(QStringList, simArgs);
        QFETCH(QStringList, args);
        QFETCH(QString, seen);
        QFETCH(int, interrupts);
        QFETCH(QString, lastLine);
        SimProcess sim(QStringLiteral(KTRSIM_PATH));
        QVERIFY2(sim.start(simArgs), sim.standardError().constData());
        KtrctlProcess ktrctl;
        ktrctl.start(QStringList{"--port", sim.devicePath(), "--trace"} + args);
        QVERIFY(ktrctl.waitForErr([&](const QString& err) { return err.contains(seen); }));
        QElapsedTimer clock;
        for (int i = 0; i < interrupts; ++i) {
            QTest::qWait(200);
            clock.start();
            ktrctl.interrupt();
        }
        const CtlRun run = ktrctl.finish(3000);
        QVERIFY2(clock.elapsed() < 1000, qPrintable(QString::number(clock.elapsed())));
        QTEST(run.exitCode, "exitCode");
        QVERIFY2(run.err.trimmed().endsWith(lastLine), qPrintable(run.err));
    }

    // Stopped part-way (status 3): the first Ctrl-C gives the move up and says why.
    void ctrlCGivesUpAMoveStoppedShort()
    {
        PtyController controller;
        KtrctlProcess ktrctl;
        ktrctl.start({"--port", controller.device(), "move"});
        QVERIFY(controller.answer("0RA", "0RA1"));
        QVERIFY(controller.answer("0MP01", "0MP01"));
        QVERIFY(controller.answer("0RA", "0RA3"));
        QElapsedTimer clock;
        clock.start();
        ktrctl.interrupt();
        for (int polls = 0; polls < 50 && controller.answer("0RA", "0RA3", 200); ++polls) {}
        const CtlRun run = ktrctl.finish(2000);
        QVERIFY2(clock.elapsed() < 1000, qPrintable(QString::number(clock.elapsed())));
        QCOMPARE(run.exitCode, 1);
        QCOMPARE(linesOf(run.err), QStringList{"The move did not finish: the controller stopped part-way (status 3). "
                                               "Remove the cause; an alarm is cleared with the alarm reset."});
    }
};

QTEST_GUILESS_MAIN(TestKtrctl)
#include "tst_ktrctl.moc"
