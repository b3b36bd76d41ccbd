// ktrctl opdata, home, move and io against ktr-sim or a played controller.

#include "KtrctlProcess.h"
#include "print/PdfText.h"
#include "support/PtyController.h"
#include "support/SimProcess.h"

#include <QElapsedTimer>
#include <QTest>

namespace {

// VEL 9000, ACC 1, DIR 1 in the file (not taken), 12 divisions, gear 1.
const QByteArray OpDataFile = "\"QM-B4\",\"Position\"\r\n\"\",\"NEW\"\r\n0,\"9000\",\"1\",\"\",\"\",\"1\",\"12\",\"1\",\"\"\r\n";

} // namespace

class TestOpDataCtl : public QObject {
    Q_OBJECT

private slots:
    void writeThenReadBack_data()
    {
        QTest::addColumn<bool>("fromFile");
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<QString>("record");
        QTest::addColumn<QStringList>("readBack");
        QTest::newRow("values, CCW")
            << false << QStringList{"--speed", "1", "--acc", "1", "--division", "12", "--gear", "1", "--dir", "ccw"}
            << "01012C100000010C01"
            << QStringList{"VEL=300", "ACC=1", "DIR=CCW", "DIVISION=12", "GEAR=1", "SPEED=1"};
        QTest::newRow("file: its direction is not taken")
            << true << QStringList{} << "012328100000000C01"
            << QStringList{"VEL=9000", "ACC=1", "DIR=CW", "DIVISION=12", "GEAR=1", "SPEED=30"};
    }
    void writeThenReadBack()
    {
        QFETCH(bool, fromFile);
        QFETCH(QStringList, args);
        QFETCH(QString, record);
        QTemporaryDir dir;
        if (fromFile)
            args.prepend(writeFile(dir, QStringLiteral("in.qmd"), OpDataFile));
        SimProcess sim(QStringLiteral(KTRSIM_PATH));
        QVERIFY2(sim.start(), sim.standardError().constData());

        const CtlRun write = KtrctlProcess::run(QStringList{"--port", sim.devicePath(), "--trace", "opdata", "write"} + args);
        QCOMPARE(write.exitCode, 0);
        QCOMPARE(sentFrames(write.err), (QStringList{"0RA", "0WP" + record, "0WA0101"}));
        QVERIFY(write.out.isEmpty());

        const CtlRun read = KtrctlProcess::run({"--port", sim.devicePath(), "--trace", "opdata", "read"});
        QCOMPARE(read.exitCode, 0);
        QCOMPARE(sentFrames(read.err), (QStringList{"0CM6", "0RP01"}));
        QTEST(linesOf(read.out), "readBack");
        // No window shows the transfer, so nothing pauses for the eye.
        const QList<TraceFrame> frames = traceFrames(read.err);
        QVERIFY2(frames[2].ms - frames[1].ms < 80, qPrintable(read.err));
    }

    void readIntoAFile()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("KTRdata.qmd"));
        const CtlRun read = KtrctlProcess::run({"--simulator", "opdata", "read", "-o", path});
        QCOMPARE(read.exitCode, 0);
        QVERIFY(read.out.isEmpty());
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(),
                 QByteArray("\"QM-B4\",\"Position\"\r\n\"\",\"NEW\"\r\n0,\"300\",\"1\",\"0\",\"0\",\"0\",\"12\",\"1\",\"\"\r\n"));

        // A file that cannot be written does not lose the read.
        const QString nowhere = dir.filePath(QStringLiteral("missing/KTRdata.qmd"));
        const CtlRun lost = KtrctlProcess::run({"--simulator", "opdata", "read", "-o", nowhere});
        QVERIFY2(lost.exitCode == 1 && lost.err.contains(nowhere), qPrintable(lost.err));
        QCOMPARE(linesOf(lost.out), (QStringList{"VEL=300", "ACC=1", "DIR=CW", "DIVISION=12", "GEAR=1", "SPEED=1"}));
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

    void printOfAFile()
    {
        QTemporaryDir dir;
        const QString file = writeFile(dir, QStringLiteral("line-7.qmd"), OpDataFile);
        const QString pdf = dir.filePath(QStringLiteral("out.pdf"));
        const CtlRun print = KtrctlProcess::run({"opdata", "print", file, "-o", pdf});
        QCOMPARE(print.exitCode, 0);
        QFile out(pdf);
        QVERIFY(out.open(QIODevice::ReadOnly));
        QString missing;
        const QString text = pdfText(out.readAll());
        QVERIFY2(findInOrder(text, {"File Name:line-7.qmd (New)", "2.VEL:", "9000", "5.DIVISION:", "12"}, &missing) >= 0,
                 qPrintable(missing + "\n" + text));

        const QString other = writeFile(dir, QStringLiteral("other.qmd"), "\"QM-B4\",\"Point\"\r\n");
        const CtlRun rejected = KtrctlProcess::run({"opdata", "print", other, "-o", pdf});
        QCOMPARE(rejected.exitCode, 2);
        QCOMPARE(rejected.err, QStringLiteral("Not Position Data file for QM-B4.\n\nOpening file is canceled.\n"));
    }
};

QTEST_GUILESS_MAIN(TestOpDataCtl)
#include "tst_opdatactl.moc"
