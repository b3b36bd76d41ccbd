// ktrctl params against the virtual controller.

#include "KtrctlProcess.h"
#include "print/PdfText.h"
#include "support/SimProcess.h"

#include <QTest>

namespace {

// Block 0 of that file with VEL 33 (0x21): the factory block otherwise.
const QString Block0 = QStringLiteral("001E1E210A0A0003E8000A0A00000000");
const QString Block2 = QStringLiteral("000114020003E80007D00A0500000000");

} // namespace

class TestParamsCli : public QObject {
    Q_OBJECT

private slots:
    void writeSendsTheBlocks_data()
    {
        QTest::addColumn<QString>("size");
        QTest::addColumn<QStringList>("extra");
        QTest::addColumn<QStringList>("frames");
        const QStringList common{"0RA", "0WD0" + Block0};
        QTest::newRow("28: four commands")
            << "28" << QStringList{}
            << common + QStringList{"0WD10202019000FFFF14001C4C0064000000", "0WD2" + Block2, "0WE"};
        // 0.16 A x 1875 = 300 at data digits 13 to 16 of block 7.
        QTest::newRow("special: seven commands")
            << "20" << QStringList{"--current", "0.16"}
            << common + QStringList{"0WD10202019000FFFF1400144C0064030000", "0WD2" + Block2, "0WE", "0RD7", "0WD7000000000000012C0000000000000000", "0WF"};
    }
    void writeSendsTheBlocks()
    {
        QFETCH(QString, size);
        QFETCH(QStringList, extra);
        QTemporaryDir files;
        const QString file = writeFile(files, QStringLiteral("set.pmt"), paraFile(size, 33));
        SimProcess sim(QStringLiteral(KTRSIM_PATH));
        QVERIFY2(sim.start(), sim.standardError().constData());

        const CtlRun write = KtrctlProcess::run(QStringList{"--port", sim.devicePath(), "--trace", "params", "write", file} + extra);
        QCOMPARE(write.exitCode, 0);
        QTEST(sentFrames(write.err), "frames");
        QCOMPARE(write.out, QStringLiteral("Completed writing parameters.\n"));

        const CtlRun verify = KtrctlProcess::run({"--port", sim.devicePath(), "--trace", "params", "verify", file});
        QCOMPARE(verify.exitCode, 0);
        QCOMPARE(sentFrames(verify.err), (QStringList{"0RD0", "0RD1", "0RD2"}));
        QCOMPARE(verify.out, QStringLiteral("Result of Verify - OK\n"));
    }

    void readListsTheNamedParameters()
    {
        const CtlRun read = KtrctlProcess::run({"--simulator", "--trace", "params", "read"});
        QCOMPARE(read.exitCode, 0);
        QCOMPARE(sentFrames(read.err), (QStringList{"0RD0", "0RD1", "0RD2", "0RD7"}));
        QCOMPARE(read.out.split(u'\n', Qt::SkipEmptyParts),
                 (QStringList{"OFFSET=30", "VEL=10", "OFSVEL=10", "PULSE=400", "AUTODRIVE=0", "MOTOR=28L100",
                              "FUNCTION=0", "ALM=1000", "HOME OUT=0", "IN-P WID=10", "PG TIMER=10",
                              "AUTO HOME=0", "LS TIMER=10", "EMG LOGIC=0", "ALM1 CLEAR=0", "Reserved0=0",
                              "Reserved1=0", "Reserved2=0", "Reserved3=0", "Reserved4=0", "Reserved5=0",
                              "Reserved6=0"}));

        // Saved, the controller's set is the file the tool writes.
        QTemporaryDir files;
        const CtlRun save = KtrctlProcess::run({"--simulator", "params", "read", "-o", files.filePath(QStringLiteral("read.pmt"))});
        QCOMPARE(save.exitCode, 0);
        QCOMPARE(save.err, QStringLiteral("Completed save parameters into the file.\n"));
        QFile saved(files.filePath(QStringLiteral("read.pmt")));
        QVERIFY(saved.open(QIODevice::ReadOnly));
        QCOMPARE(saved.readAll(), paraFile("28", 10));

        // A file that cannot be written does not lose the read.
        const QString nowhere = files.filePath(QStringLiteral("missing/read.pmt"));
        const CtlRun lost = KtrctlProcess::run({"--simulator", "params", "read", "-o", nowhere});
        QVERIFY2(lost.exitCode == 1 && lost.err.contains(QStringLiteral("Cannot write %1: ").arg(nowhere)), qPrintable(lost.err));
        QCOMPARE(lost.out, read.out);
    }

    // 1.5 A overflows the display's 16 bits: the rest is printed, the exit status tells.
    void currentTooLargeKeepsTheParameters()
    {
        QTemporaryDir files;
        const QString file = writeFile(files, QStringLiteral("sp.pmt"), paraFile("20", 33));
        SimProcess sim(QStringLiteral(KTRSIM_PATH));
        QVERIFY2(sim.start(), sim.standardError().constData());
        QCOMPARE(KtrctlProcess::run({"--port", sim.devicePath(), "params", "write", file, "--current", "1.5"}).exitCode, 0);

        const CtlRun read = KtrctlProcess::run({"--port", sim.devicePath(), "params", "read"});
        QCOMPARE(read.exitCode, 1);
        QVERIFY(read.err.contains(QStringLiteral("The operating current in the controller is too large to be shown.")));
        QCOMPARE(linesOf(read.out).size(), 22);
        QVERIFY(read.out.contains(QStringLiteral("\nVEL=33\n")) && read.out.contains(QStringLiteral("\nMOTOR=20L100\n")));
    }

    void diffComparesTwoFiles_data()
    {
        QTest::addColumn<int>("velB");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("report");
        QTest::newRow("equal") << 10 << 0 << "Result of Verify - OK\n";
        QTest::newRow("VEL differs") << 33 << 3 << "Result of Verify - NG\n<HOME Parameter> :VEL,\n";
    }
    void diffComparesTwoFiles()
    {
        QFETCH(int, velB);
        QFETCH(int, exitCode);
        QTemporaryDir files;
        const QString a = writeFile(files, QStringLiteral("a.pmt"), paraFile("28", 10));
        const QString b = writeFile(files, QStringLiteral("b.pmt"), paraFile("28", velB));
        const CtlRun diff = KtrctlProcess::run({"--trace", "params", "diff", a, b});
        QCOMPARE(diff.exitCode, exitCode);
        QTEST(diff.out, "report");
        QVERIFY(sentFrames(diff.err).isEmpty());
    }

    void printWritesThePdf()
    {
        QTemporaryDir files;
        const QString file = writeFile(files, QStringLiteral("line-3.pmt"), paraFile("20", 33));
        const QString pdf = files.filePath(QStringLiteral("out.pdf"));
        const CtlRun print = KtrctlProcess::run({"params", "print", file, "-o", pdf});
        QCOMPARE(print.exitCode, 0);
        QFile out(pdf);
        QVERIFY(out.open(QIODevice::ReadOnly));
        const QString text = pdfText(out.readAll());
        QString missing;
        QVERIFY2(findInOrder(text, {"QM-KTR", "Parameters", "File Name:line-3.pmt", "<< HOMING PARAMETER >>", " 2.VEL:", "33", "<< AXIS PARAMETER >>", " 3.MOTOR:", "SP", "<< SP Parameter >>", " 5. ALM1 CLEAR:", "0. Disable"}, &missing) >= 0,
                 qPrintable(missing + QStringLiteral("\n") + text));
    }

    // Refused before anything is sent: exit status 2.
    void refusedInput_data()
    {
        QTest::addColumn<QByteArray>("contents");
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<QString>("message");
        QTest::newRow("special without current") << paraFile("20", 10) << QStringList{"write", "FILE"}
                                                 << "This parameter file is for the special actuator (SP): give its operating current with --current AMPS.";
        QTest::newRow("current for size 28") << paraFile("28", 10) << QStringList{"write", "FILE", "--current", "1.5"}
                                             << "--current applies only to a parameter file of the special actuator (SP).";
        QTest::newRow("current not a number") << paraFile("20", 10) << QStringList{"write", "FILE", "--current", "abc"}
                                              << "Invalid value for --current: abc";
        QTest::newRow("no file") << QByteArray() << QStringList{"verify"} << "Missing argument: FILE.pmt";
        QTest::newRow("VEL out of range") << paraFile("28", 61) << QStringList{"write", "FILE"}
                                          << "Invalid value in some parameters.\nConfirm the value, and try it again.";
        QTest::newRow("not a parameter file") << QByteArray("\"QM-KTR\",\"QMD\"\r\n6\r\n") << QStringList{"verify", "FILE"}
                                              << "Not parameter file for QM-B4.\nOpening file is canceled.\nFail to open parameter file.";
    }
    void refusedInput()
    {
        QFETCH(QByteArray, contents);
        QFETCH(QStringList, args);
        QFETCH(QString, message);
        QTemporaryDir files;
        args.replaceInStrings(QStringLiteral("FILE"), writeFile(files, QStringLiteral("in.pmt"), contents));
        const CtlRun run = KtrctlProcess::run(QStringList{"--simulator", "--trace", "params"} + args);
        QCOMPARE(run.exitCode, 2);
        QVERIFY(sentFrames(run.err).isEmpty());
        QVERIFY2(run.err.contains(message + u'\n'), qPrintable(run.err));
        QVERIFY(run.out.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestParamsCli)
#include "tst_paramscli.moc"
