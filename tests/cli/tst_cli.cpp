// ktrctl command lines run in-process against the built-in virtual
// controller (or one a test plays): exit status, stdout, stderr and the
// frames sent. The wire itself is checked against ktr-sim in tests/e2e.

#include "cli/CliProgram.h"
#include "cli/CliSession.h"
#include "cli/GlobalOptions.h"
#include "cli/Interrupt.h"
#include "common/DataFiles.h"
#include "link/QtSerialPort.h"
#include "print/PdfText.h"
#include "sim/SimController.h"
#include "sim/SimOptions.h"
#include "sim/SimSerialPort.h"
#include "support/ControllerFiles.h"
#include "support/FakeSerialPort.h"
#include "support/TempSettings.h"

#include <QDir>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTest>

#include <utility>

namespace {

struct CliRun {
    int exitCode = -1;
    QString out;
    QString err;
    QStringList frames;
};

QString usage(const QString& message)
{
    return message + QStringLiteral("\nRun ktrctl --help to see the commands.\n");
}

const QStringList ReadLines{"OFFSET=30", "VEL=10", "OFSVEL=10", "PULSE=400", "AUTODRIVE=0", "MOTOR=28L100", "FUNCTION=0",
                            "ALM=1000", "HOME OUT=0", "IN-P WID=10", "PG TIMER=10", "AUTO HOME=0", "LS TIMER=10",
                            "EMG LOGIC=0", "ALM1 CLEAR=0", "Reserved0=0", "Reserved1=0", "Reserved2=0", "Reserved3=0",
                            "Reserved4=0", "Reserved5=0", "Reserved6=0"};
const QStringList OpDataLines{"VEL=300", "ACC=1", "DIR=CW", "DIVISION=12", "GEAR=1", "SPEED=1"};

// One virtual controller for every run of a test, settings of its own, and
// the files the command lines name as @name.
class CliRig {
public:
    CliRig()
    {
        const QList<std::pair<QString, QByteArray>> fixtures{
            {"28.pmt", paraFile("28", 10)}, {"vel33.pmt", paraFile("28", 33)}, {"vel61.pmt", paraFile("28", 61)}, {"sp.pmt", paraFile("20", 10)}, {"sp33.pmt", paraFile("20", 33)}, {"notpara.pmt", "\"QM-KTR\",\"QMD\"\r\n6\r\n"}, {"in.qmd", OpDataFile}, {"point.qmd", "\"QM-B4\",\"Point\"\r\n"}};
        for (const auto& [name, bytes] : fixtures)
            writeFile(files, name, bytes);
    }

    QString path(const QString& name) const { return files.filePath(name); }
    // The next run talks to this played controller.
    FakeSerialPort& play() { return *(m_played = new FakeSerialPort); }

    CliRun run(QStringList args)
    {
        if (!args.contains(QStringLiteral("--lang")))
            args = QStringList{"--lang", "en"} + args;
        for (QString& arg : args)
            if (arg.startsWith(u'@'))
                arg = path(arg.mid(1));
        CliRun result;
        QTextStream out(&result.out);
        QTextStream err(&result.err);
        CliProgram program(out, err);
        program.setPortFactory([this](const GlobalOptions& options) -> SerialPort* {
            if (FakeSerialPort* played = std::exchange(m_played, nullptr))
                return played;
            return options.simulator ? static_cast<SerialPort*>(new SimSerialPort(&controller)) : new QtSerialPort;
        });
        program.setSessionHook([&result](CliSession& session) {
            QObject::connect(&session.link(), &Link::frameSent,
                             [&result](const QByteArray& frame) { result.frames << QString::fromLatin1(frame); });
        });
        QElapsedTimer clock;
        clock.start();
        result.exitCode = program.run(GlobalOptions::parse(args), m_interrupt, clock);
        out.flush();
        err.flush();
        return result;
    }

    SimController controller;
    QTemporaryDir files;

private:
    TempSettings m_settings;
    Interrupt m_interrupt;
    FakeSerialPort* m_played = nullptr;
};

} // namespace

class TestCli : public QObject {
    Q_OBJECT

private slots:
    // Whole runs: what each command prints, where, with which status.
    void commandLines_data()
    {
        QTest::addColumn<QStringList>("faults"); // of the virtual controller
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("out");
        QTest::addColumn<QString>("err");
        const auto row = [](const char* name, const QStringList& args, int exitCode, const QString& out, const QString& err,
                            const QStringList& faults = {}) { QTest::newRow(name) << faults << args << exitCode << out << err; };
        const QString version = QStringLiteral("The version of this controller is 1.00.\n");
        row("version", {"--simulator", "version"}, 0, "1.00\n", version);
        row("version, older form", {"--simulator", "version"}, 0, "1.00\n",
            "Communication error occurs!\nError No.101\n[101: Unknown command.]\n" + version, {"--error-reply", "RV:101"});
        row("status", {"--simulator", "status"}, 0, "1\n", "");
        row("decoded trace of an error reply", {"--simulator", "--trace=decoded", "status"}, 1, "",
            "+ > 0RA\tread run status\n+ < 0%%101\terror reply 101 (101: Unknown command.)\n"
            "Communication error occurs!\nError No.101\n[101: Unknown command.]\n",
            {"--error-reply", "RA:101"});
        row("decoded trace of a length error", {"--simulator", "--trace=decoded", "check"}, 1, "",
            "+ > 0CM6\tcommunication check\n+ < 0CM60\tacknowledged\n+ > 0CM6\tcommunication check\n"
            "+ < 0CM60\tacknowledged\n+ !\tlength error: the reply has the wrong length or echo\n"
            "Communication data length error occurs!\nLength of data is wrong.\n",
            {"--extra-char", "CM"});
        row("reset", {"--simulator", "reset"}, 0, "", "");
        row("check", {"--simulator", "check"}, 0, "", "");
        row("io, output write refused", {"--simulator", "io", "--toggle", "OUT1"}, 1, "STB=0 STOP=0 ALM=0 RDY=1 IN-P=1 OUT1=0 OUT2=0\n",
            "Communication error occurs!\nError No.104\n[104: Value out of range.]\nCommunication error occurs!\n\ntransmit data is wrong\n",
            {"--error-reply", "WO:104"});
        row("params read", {"--simulator", "params", "read"}, 0, ReadLines.join(u'\n') + u'\n', "");
        row("opdata read", {"--simulator", "opdata", "read"}, 0, OpDataLines.join(u'\n') + u'\n', "");
        row("params diff, equal", {"params", "diff", "@28.pmt", "@28.pmt"}, 0, "Result of Verify - OK\n", "");
        row("params diff, VEL differs", {"params", "diff", "@28.pmt", "@vel33.pmt"}, 3,
            "Result of Verify - NG\n<HOME Parameter> :VEL,\n", "");
        row("port that cannot open", {"--port", "/dev/ktr-no-such-port", "check"}, 1, "",
            "Failed in opening of a communication port.\n");

        const auto refused = [&](const char* name, const QStringList& args, const QString& err) { row(name, args, 2, "", err); };
        refused("unknown option", {"--fast", "check"}, usage("Unknown option: --fast"));
        refused("missing value", {"--port"}, usage("The option --port needs a value."));
        refused("bad language", {"--lang", "fr", "check"}, usage("Invalid value for --lang: fr"));
        refused("port and simulator", {"--simulator", "--port", "/dev/ttyS0", "check"},
                usage("--port and --simulator cannot be used together."));
        refused("no command", {"--simulator"}, usage("No command given."));
        refused("unknown command", {"--simulator", "spin"}, usage("Unknown command: spin"));
        refused("extra argument", {"--simulator", "check", "now"}, usage("Unexpected argument: now"));
        refused("speed out of range",
                {"--simulator", "opdata", "write", "--speed", "31", "--acc", "1", "--division", "12", "--gear", "1"},
                usage("--speed takes a whole number from 1 to 30."));
        refused("values missing", {"--simulator", "opdata", "write", "--speed", "3"},
                usage("Give either an operation data file or all of --speed, --acc, --division and --gear."));
        refused("bad direction", {"--simulator", "opdata", "write", "x.qmd", "--dir", "up"}, usage("Invalid value for --dir: up"));
        refused("dwell of a step", {"--simulator", "move", "--dwell", "5"}, usage("--dwell needs --continuous."));
        refused("not an output", {"--simulator", "io", "--toggle", "STB"}, usage("Invalid value for --toggle: STB"));
        refused("no pdf", {"opdata", "print", "x.qmd"}, usage("-o is missing."));
        refused("special without current", {"--simulator", "params", "write", "@sp.pmt"},
                usage("This parameter file is for the special actuator (SP): give its operating current with --current AMPS."));
        refused("current for size 28", {"--simulator", "params", "write", "@28.pmt", "--current", "1.5"},
                usage("--current applies only to a parameter file of the special actuator (SP)."));
        refused("current not a number", {"--simulator", "params", "write", "@sp.pmt", "--current", "abc"},
                usage("Invalid value for --current: abc"));
        refused("no file", {"--simulator", "params", "verify"}, usage("Missing argument: FILE.pmt"));
        refused("VEL out of range", {"--simulator", "params", "write", "@vel61.pmt"},
                "Invalid value in some parameters.\nConfirm the value, and try it again.\n");
        refused("not a parameter file", {"--simulator", "params", "verify", "@notpara.pmt"},
                "Not parameter file for QM-B4.\nOpening file is canceled.\nFail to open parameter file.\n");
        refused("not an operation data file", {"opdata", "print", "@point.qmd", "-o", "@out.pdf"},
                "Not Position Data file for QM-B4.\n\nOpening file is canceled.\n");
    }
    void commandLines()
    {
        QFETCH(QStringList, faults);
        CliRig rig;
        QString error;
        const std::optional<SimOptions> sim = SimOptions::parse(faults, &error);
        QVERIFY2(sim, qPrintable(error));
        rig.controller.setFaults(sim->faults);
        QFETCH(QStringList, args);
        const CliRun run = rig.run(args);
        // A trace line's time is the machine's.
        QTEST(QString(run.err).replace(QRegularExpression(QStringLiteral("^\\+\\d+\\.\\d{3} "), QRegularExpression::MultilineOption),
                                       QStringLiteral("+ ")),
              "err");
        QTEST(run.out, "out");
        QTEST(run.exitCode, "exitCode");
        // Refused before anything is sent; the frames of a run are the wire tests' (tests/e2e).
        QVERIFY(run.exitCode != 2 || run.frames.isEmpty());
    }

    // COMMAND --help and GROUP --help print those commands' lines and no others.
    void commandHelp_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<QStringList>("shown");
        QTest::addColumn<QString>("notShown");
        QTest::newRow("io") << QStringList{"io", "--help"} << QStringList{"  io [--watch]", "--watch prints the line once"} << "  status";
        QTest::newRow("params") << QStringList{"params", "--help"} << QStringList{"  params read", "  params diff"} << "  opdata read";
    }
    void commandHelp()
    {
        QFETCH(QStringList, args);
        QFETCH(QStringList, shown);
        QFETCH(QString, notShown);
        const CliRun run = CliRig().run(QStringList{"--lang", "en"} + args);
        QCOMPARE(run.exitCode, 0);
        for (const QString& text : shown + QStringList{"Exit status: "})
            QVERIFY2(run.out.contains(text), qPrintable(run.out));
        QVERIFY(!run.out.contains(notShown));
    }

    // What was written is what the controller then holds: --confirm reads it
    // back (confirmed, the differences, or a read-back that failed); without
    // it the write is as it always was.
    void confirmedWrites_data()
    {
        QTest::addColumn<QStringList>("faults");
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("out");
        QTest::addColumn<QString>("errEnd");
        QTest::addColumn<QStringList>("frames");
        const QStringList sp{"params", "write", "@sp33.pmt", "--current", "0.16"};
        const QStringList vel33{"params", "write", "@vel33.pmt", "--confirm"};
        const QStringList acc2{"opdata", "write", "--speed", "1", "--acc", "2", "--division", "12", "--gear", "1", "--confirm"};
        const QStringList block0{"0RA", "0WD0001E1E210A0A0003E8000A0A00000000"};
        const QStringList block2{"0WD2000114020003E80007D00A0500000000", "0WE"};
        const QStringList spWrite = block0 + QStringList{"0WD10202019000FFFF1400144C0064030000"} + block2
            + QStringList{"0RD7", "0WD7000000000000012C0000000000000000", "0WF"};
        const QStringList write28 = block0 + QStringList{"0WD10202019000FFFF14001C4C0064000000"} + block2;
        const QStringList readBack{"0RD0", "0RD1", "0RD2"};
        const QStringList opWrite{"0RA", "0WP01012C200000000C01", "0WA0101", "0CM6", "0RP01"};
        const QString done = QStringLiteral("Written and confirmed.\n");
        const QString lost = QStringLiteral("The values were written, but reading them back failed: they are not confirmed.\n");
        const QString paraNg = QStringLiteral("Result of Verify - NG\n<HOME Parameter> :VEL,\n");
        const QString opNg = QStringLiteral("Result of Verify - NG\nACC: written 2, read 1\n");
        const QStringList notTaken{"--writes-not-taken"};
        const auto row = [](const char* name, const QStringList& faults, const QStringList& args, int exitCode, const QString& out,
                            const QString& errEnd, const QStringList& frames) {
            QTest::newRow(name) << faults << args << exitCode << out << errEnd << frames;
        };
        row("params, without --confirm", {}, sp, 0, "Completed writing parameters.\n", "Completed writing parameters.\n", spWrite);
        row("params, special, confirmed", {}, sp + QStringList{"--confirm"}, 0, done, done, spWrite + readBack);
        row("params, not taken", notTaken, vel33, 3, paraNg, paraNg + u'\n', write28 + readBack);
        row("params, read-back lost", {"--silent", "RD"}, vel33, 1, "", lost, write28 + readBack.first(1));
        row("opdata, file, confirmed", {}, {"opdata", "write", "@in.qmd", "--confirm"}, 0, done, done,
            QStringList{"0RA", "0WP012328100000000C01", "0WA0101", "0CM6", "0RP01"});
        row("opdata, not taken", notTaken, acc2, 3, opNg, opNg, opWrite);
        row("opdata, read-back lost", {"--silent", "RP"}, acc2, 1, "", lost, opWrite);
    }
    void confirmedWrites()
    {
        QFETCH(QStringList, faults);
        QFETCH(QString, errEnd);
        CliRig rig;
        QString error;
        rig.controller.setFaults(SimOptions::parse(faults, &error)->faults);
        QFETCH(QStringList, args);
        const CliRun run = rig.run(QStringList{"--simulator"} + args);
        QTEST(run.exitCode, "exitCode");
        QTEST(run.out, "out");
        QVERIFY2(run.err.endsWith(errEnd), qPrintable(run.err));
        QTEST(run.frames, "frames");
    }

    // 1.5 A overflows the display's 16 bits: the rest is printed, the exit status tells.
    void currentTooLargeKeepsTheParameters()
    {
        CliRig rig;
        QCOMPARE(rig.run({"--simulator", "params", "write", "@sp33.pmt", "--current", "1.5"}).exitCode, 0);
        const CliRun read = rig.run({"--simulator", "params", "read"});
        QCOMPARE(read.exitCode, 1);
        QCOMPARE(read.err, QStringLiteral("The operating current in the controller is too large to be shown. "
                                          "The other parameters have been read.\n"));
        QStringList lines = ReadLines;
        lines[1] = QStringLiteral("VEL=33");
        lines[5] = QStringLiteral("MOTOR=20L100");
        QCOMPARE(read.out.split(u'\n', Qt::SkipEmptyParts), lines);
    }

    // Saved, the controller's data is the file the tool writes; a file that
    // cannot be written does not lose the read.
    void readIntoAFile_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("saved");
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QStringList>("lines");
        QTest::newRow("params") << QString("params") << QString("read.pmt") << QString("Completed save parameters into the file.\n")
                                << paraFile("28", 10) << ReadLines;
        QTest::newRow("opdata") << QString("opdata") << QString("KTRdata.qmd") << QString()
                                << QByteArray("\"QM-B4\",\"Position\"\r\n\"\",\"NEW\"\r\n0,\"300\",\"1\",\"0\",\"0\",\"0\",\"12\",\"1\",\"\"\r\n")
                                << OpDataLines;
    }
    void readIntoAFile()
    {
        QFETCH(QString, command);
        QFETCH(QString, name);
        CliRig rig;
        const CliRun save = rig.run({"--simulator", command, "read", "-o", rig.path(name)});
        QCOMPARE(save.exitCode, 0);
        QVERIFY(save.out.isEmpty());
        QTEST(save.err, "saved");
        QFile saved(rig.path(name));
        QVERIFY(saved.open(QIODevice::ReadOnly));
        QTEST(saved.readAll(), "file");

        const QString nowhere = rig.path(QStringLiteral("missing/") + name);
        const CliRun lost = rig.run({"--simulator", command, "read", "-o", nowhere});
        QVERIFY2(lost.exitCode == 1 && lost.err.contains(nowhere), qPrintable(lost.err));
        QTEST(lost.out.split(u'\n', Qt::SkipEmptyParts), "lines");
    }

    // The sheet's layout is the printouts' own test; here, that the named file is printed.
    void printWritesThePdf_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<QStringList>("pieces");
        QTest::newRow("params") << QStringList{"params", "print", "@sp33.pmt"}
                                << QStringList{"File Name:sp33.pmt", " 2.VEL:", "33", " 3.MOTOR:", "SP", "<< SP Parameter >>"};
        QTest::newRow("opdata") << QStringList{"opdata", "print", "@in.qmd"}
                                << QStringList{"File Name:in.qmd (New)", "2.VEL:", "9000", "5.DIVISION:", "12"};
    }
    void printWritesThePdf()
    {
        QFETCH(QStringList, args);
        QFETCH(QStringList, pieces);
        CliRig rig;
        const CliRun print = rig.run(args << "-o"
                                          << "@out.pdf");
        QVERIFY2(print.exitCode == 0 && print.err.isEmpty() && print.frames.isEmpty(), qPrintable(print.err));
        QFile out(rig.path(QStringLiteral("out.pdf")));
        QVERIFY(out.open(QIODevice::ReadOnly));
        const QString text = pdfText(out.readAll());
        QString missing;
        QVERIFY2(findInOrder(text, pieces, &missing) >= 0, qPrintable(missing + u'\n' + text));
    }

    // A list file that is missing or broken is named, with where it was
    // looked for, before anything is sent.
    void listFilesAreCheckedFirst()
    {
        CliRig rig;
        QTemporaryDir dir;
        DataFiles::setProgramFolder(dir.path());
        const QList<std::pair<QString, QString>> steps = {
            {"ja", QStringLiteral("リストファイル errorjpn.lst が見つかりません。次の場所を探しました:\n  %1\n").arg(dir.path())},
            {"en", QStringLiteral("The list file nqmdevice.lst was not found. It was looked for in:\n  %1\n").arg(dir.path())},
            {"en", QStringLiteral("The list file %1 could not be read").arg(dir.filePath("nqmdevice.lst"))}};
        for (const auto& [language, message] : steps) {
            const CliRun read = rig.run({"--lang", language, "--simulator", "params", "read"});
            QVERIFY2(read.exitCode == 2 && read.err.startsWith(message) && read.out.isEmpty() && read.frames.isEmpty(),
                     qPrintable(read.err));
            // The next step finds the file this one missed, or a broken device list.
            if (!QFile::exists(dir.filePath("erroreng.lst")))
                QVERIFY(QFile::copy(QDir(QCoreApplication::applicationDirPath()).filePath("erroreng.lst"), dir.filePath("erroreng.lst")));
            else
                writeFile(dir, QStringLiteral("nqmdevice.lst"), "\"28L-100\"\r\n");
        }
        DataFiles::setProgramFolder({});
    }

    void statusDigitOutsideTheKnownOnes()
    {
        CliRig rig;
        rig.play().answer("0RA", "0RA5\r\n");
        const CliRun run = rig.run({"--port", "played", "status"});
        QCOMPARE(run.exitCode, 1);
        QVERIFY(run.out.isEmpty());
        QCOMPARE(run.err, QStringLiteral("The controller answered an unknown run status: 5\n"));
    }
};

QTEST_MAIN(TestCli)
#include "tst_cli.moc"
