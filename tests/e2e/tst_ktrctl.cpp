#include "KtrctlProcess.h"
#include "support/PtyController.h"
#include "support/SimProcess.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

class TestKtrctl : public QObject {
    Q_OBJECT

private slots:
    // The commands without arguments, on the built-in virtual controller.
    void plainCommands_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QStringList>("frames");
        QTest::addColumn<QString>("out");    // a pattern for all of stdout
        QTest::addColumn<QString>("told");   // a part of stderr
        QTest::newRow("version") << "version" << QStringList{"0CM6", "0RV"} << "1\\.00\n"
                                 << "\nThe version of this controller is 1.00.\n";
        QTest::newRow("status") << "status" << QStringList{"0RA"} << "[0-3]\n" << "";
        QTest::newRow("reset") << "reset" << QStringList{"0AR"} << "" << "";
        QTest::newRow("check") << "check" << QStringList{"0CM6"} << "" << "";
    }
    void plainCommands()
    {
        QFETCH(QString, command);
        QFETCH(QString, out);
        QFETCH(QString, told);
        const CtlRun run = KtrctlProcess::run({"--simulator", "--trace", command});
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
        QVERIFY(!controller.device().isEmpty());
        KtrctlProcess ktrctl;
        ktrctl.start({"--lang", "en", "--port", controller.device(), "status"});

        QVERIFY(controller.answer("0RA", "0RA5"));
        const CtlRun run = ktrctl.finish();

        QCOMPARE(run.exitCode, 1);
        QVERIFY(run.out.isEmpty());
        QCOMPARE(run.err, QStringLiteral("The controller answered an unknown run status: 5\n"));
    }

    void versionFallsBackToTheOlderQuery()
    {
        SimProcess sim(QStringLiteral(KTRSIM_PATH));
        QVERIFY2(sim.start({"--error-reply", "RV:101"}), sim.standardError().constData());

        const CtlRun run = KtrctlProcess::run({"--lang", "en", "--trace", "--port", sim.devicePath(), "version"});

        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.out, QStringLiteral("1.00\n"));
        QCOMPARE(sentFrames(run.err), (QStringList{"0CM6", "0RV", "0%C"}));
        QVERIFY(run.err.contains(QStringLiteral("Communication error occurs!\nError No.101\n[101: Unknown command.]\n")));
    }

    // After a reply of the wrong length the controller is waited for without
    // a time limit; Ctrl-C ends the wait and the program.
    void ctrlCEndsAnEndlessWait()
    {
        SimProcess sim(QStringLiteral(KTRSIM_PATH));
        QVERIFY2(sim.start({"--extra-char", "RA", "--silent", "CM"}), sim.standardError().constData());
        KtrctlProcess ktrctl;
        ktrctl.start({"--lang", "en", "--port", sim.devicePath(), "status"});
        QTest::qWait(3000);

        ktrctl.interrupt();
        const CtlRun run = ktrctl.finish(5000);

        QCOMPARE(run.exitCode, 1);
        QCOMPARE(run.err, QStringLiteral("Interrupted.\n"));
    }
};

QTEST_GUILESS_MAIN(TestKtrctl)
#include "tst_ktrctl.moc"
