#include "KtrctlProcess.h"
#include "support/PtyController.h"
#include "support/SimProcess.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

class TestKtrctl : public QObject {
    Q_OBJECT

private slots:
    // The commands without arguments; a controller without 0RV is asked the older way.
    void plainCommands_data()
    {
        QTest::addColumn<QStringList>("simArgs");
        QTest::addColumn<QString>("command");
        QTest::addColumn<QStringList>("frames");
        QTest::addColumn<QString>("out");  // a pattern for all of stdout
        QTest::addColumn<QString>("told"); // a part of stderr
        QTest::newRow("version") << QStringList{} << "version" << QStringList{"0CM6", "0RV"} << "1\\.00\n"
                                 << "\nThe version of this controller is 1.00.\n";
        QTest::newRow("version, older form") << QStringList{"--error-reply", "RV:101"} << "version"
                                             << QStringList{"0CM6", "0RV", "0%C"} << "1\\.00\n"
                                             << "Communication error occurs!\nError No.101\n[101: Unknown command.]\n";
        QTest::newRow("status") << QStringList{} << "status" << QStringList{"0RA"} << "[0-3]\n"
                                << "";
        QTest::newRow("reset") << QStringList{} << "reset" << QStringList{"0AR"} << ""
                               << "";
        QTest::newRow("check") << QStringList{} << "check" << QStringList{"0CM6"} << ""
                               << "";
    }
    void plainCommands()
    {
        QFETCH(QStringList, simArgs);
        QFETCH(QString, command);
        QFETCH(QString, out);
        QFETCH(QString, told);
        SimProcess sim(QStringLiteral(KTRSIM_PATH));
        QVERIFY2(sim.start(simArgs), sim.standardError().constData());
        const CtlRun run = KtrctlProcess::run({"--port", sim.devicePath(), "--trace", command});
        QCOMPARE(run.exitCode, 0);
        QTEST(sentFrames(run.err), "frames");
        QVERIFY2(QRegularExpression(QRegularExpression::anchoredPattern(out)).match(run.out).hasMatch(), qPrintable(run.out));
        QVERIFY2(run.err.contains(told), qPrintable(run.err));
    }

    void usageErrors_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<QString>("message");
        QTest::newRow("unknown option") << QStringList{"--fast", "check"} << "Unknown option: --fast";
        QTest::newRow("missing value") << QStringList{"--port"} << "The option --port needs a value.";
        QTest::newRow("bad language") << QStringList{"--lang", "fr", "check"} << "Invalid value for --lang: fr";
        QTest::newRow("port and simulator") << QStringList{"--simulator", "--port", "/dev/ttyS0", "check"}
                                            << "--port and --simulator cannot be used together.";
        QTest::newRow("no command") << QStringList{"--simulator"} << "No command given.";
        QTest::newRow("unknown command") << QStringList{"--simulator", "spin"} << "Unknown command: spin";
        QTest::newRow("extra argument") << QStringList{"--simulator", "check", "now"} << "Unexpected argument: now";
        QTest::newRow("speed out of range")
            << QStringList{"--simulator", "opdata", "write", "--speed", "31", "--acc", "1", "--division", "12", "--gear", "1"}
            << "--speed takes a whole number from 1 to 30.";
        QTest::newRow("values missing") << QStringList{"--simulator", "opdata", "write", "--speed", "3"}
                                        << "Give either an operation data file or all of --speed, --acc, --division and --gear.";
        QTest::newRow("bad direction") << QStringList{"--simulator", "opdata", "write", "x.qmd", "--dir", "up"}
                                       << "Invalid value for --dir: up";
        QTest::newRow("dwell of a step") << QStringList{"--simulator", "move", "--dwell", "5"} << "--dwell needs --continuous.";
        QTest::newRow("not an output") << QStringList{"--simulator", "io", "--toggle", "STB"} << "Invalid value for --toggle: STB";
        QTest::newRow("no pdf") << QStringList{"opdata", "print", "x.qmd"} << "-o is missing.";
    }
    void usageErrors()
    {
        QFETCH(QStringList, args);
        QFETCH(QString, message);
        const CtlRun run = KtrctlProcess::run(args);
        QCOMPARE(run.exitCode, 2);
        QCOMPARE(linesOf(run.err), (QStringList{message, "Run ktrctl --help to see the commands."}));
        QVERIFY(run.out.isEmpty());
    }

    // The whole help lists every command; each command's own shows its line.
    void helpListsTheCommands()
    {
        const CtlRun run = KtrctlProcess::run({"--lang", "en", "--help"});
        QCOMPARE(run.exitCode, 0);
        QVERIFY(run.out.startsWith(QStringLiteral("Usage: ktrctl")));
        for (const char* command : {"check", "version", "status", "reset", "params read", "params write", "params verify",
                                    "params diff", "params print", "opdata read", "opdata write", "opdata print", "home",
                                    "move", "io"}) {
            QVERIFY2(run.out.contains(QStringLiteral("\n  %1 ").arg(QLatin1String(command))), command);
            const CtlRun own = KtrctlProcess::run(QString::fromLatin1(command).split(u' ') << "--help");
            QCOMPARE(own.exitCode, 0);
            QVERIFY2(own.out.contains(QStringLiteral("\n  %1 ").arg(QLatin1String(command))), qPrintable(own.err));
        }
        const CtlRun io = KtrctlProcess::run({"io", "--help"});
        QVERIFY(io.out.contains(QStringLiteral("--watch prints the line once at start and again on every change")));
    }

    // A list file that is missing or broken is named, with where it was
    // looked for, before anything is sent (a frame would be traced first).
    void listFilesAreCheckedFirst()
    {
        QTemporaryDir dir;
        const QString program = dir.filePath(QStringLiteral("ktrctl"));
        QVERIFY(QFile::copy(QStringLiteral(KTRCTL_PATH), program));
        const QList<QPair<QString, QString>> steps = {
            {"ja", QStringLiteral("リストファイル errorjpn.lst が見つかりません。次の場所を探しました:\n  %1\n").arg(dir.path())},
            {"en", QStringLiteral("The list file nqmdevice.lst was not found. It was looked for in:\n  %1\n").arg(dir.path())},
            {"en", QStringLiteral("The list file %1 could not be read").arg(dir.filePath("nqmdevice.lst"))}};
        for (const auto& [language, message] : steps) {
            KtrctlProcess ktrctl;
            ktrctl.start({"--lang", language, "--simulator", "--trace", "params", "read"}, program);
            const CtlRun read = ktrctl.finish();
            QVERIFY2(read.exitCode == 2 && read.err.startsWith(message) && read.out.isEmpty(), qPrintable(read.err));
            // The next step finds the file this one missed, or a broken device list.
            if (!QFile::exists(dir.filePath("erroreng.lst")))
                QVERIFY(QFile::copy(QFileInfo(QStringLiteral(KTRCTL_PATH)).dir().filePath("erroreng.lst"), dir.filePath("erroreng.lst")));
            else
                writeFile(dir, QStringLiteral("nqmdevice.lst"), "\"28L-100\"\r\n");
        }
    }

    void portThatCannotOpen()
    {
        const CtlRun run = KtrctlProcess::run({"--lang", "en", "--port", "/dev/ktr-no-such-port", "check"});
        QCOMPARE(run.exitCode, 1);
        QCOMPARE(run.err, QStringLiteral("Failed in opening of a communication port.\n"));
    }

    void statusDigitOutsideTheKnownOnes()
    {
        PtyController controller;
        KtrctlProcess ktrctl;
        ktrctl.start({"--lang", "en", "--port", controller.device(), "status"});

        QVERIFY(controller.answer("0RA", "0RA5"));
        const CtlRun run = ktrctl.finish();

        QCOMPARE(run.exitCode, 1);
        QVERIFY(run.out.isEmpty());
        QCOMPARE(run.err, QStringLiteral("The controller answered an unknown run status: 5\n"));
    }
};

QTEST_GUILESS_MAIN(TestKtrctl)
#include "tst_ktrctl.moc"
