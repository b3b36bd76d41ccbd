#include "common/Waiter.h"
#include "support/RawTerminalClient.h"
#include "support/SimProcess.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QByteArray OtherBlock = "0123456789ABCDEF0123456789ABCDEF";

struct Finished {
    int exitCode = -1;
    QByteArray out;
    QByteArray err;
};

// Runs ktr-sim to its end (for the options that end it at once).
Finished runToEnd(const QStringList& args)
{
    QProcess process;
    QObject::connect(&process, &QProcess::finished, [] { Waiter::wake(); });
    QObject::connect(&process, &QProcess::errorOccurred, [] { Waiter::wake(); });
    process.start(QStringLiteral(KTRSIM_PATH), args);
    Waiter::waitUntil([&] { return process.state() == QProcess::NotRunning; }, 10000);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput(), process.readAllStandardError()};
}

} // namespace

class TestSimProgram : public QObject {
    Q_OBJECT

private slots:
    void answersOnItsPtyUntilTerminated()
    {
        SimProcess sim(QStringLiteral(KTRSIM_PATH));
        QVERIFY2(sim.start({"--time-scale", "0.05"}), sim.standardError().constData());
        QVERIFY2(sim.devicePath().startsWith(QLatin1String("/dev/pts/")), qPrintable(sim.devicePath()));

        RawTerminalClient client;
        QVERIFY(client.open(sim.devicePath()));
        QCOMPARE(client.ask("0RV"), QByteArray("0RVK01100\r\n"));
        QCOMPARE(client.ask("0MP00"), QByteArray("0MP00\r\n"));
        QCOMPARE(client.ask("0RA"), QByteArray("0RA0\r\n"));
        Waiter::sleep(60);
        QCOMPARE(client.ask("0RA"), QByteArray("0RA1\r\n"));

        QCOMPARE(sim.stop(), 0);
        QVERIFY(sim.standardError().contains("Virtual controller ready on " + sim.devicePath().toLocal8Bit()));
    }

    void interruptEndsItCleanly()
    {
        SimProcess sim(QStringLiteral(KTRSIM_PATH));
        QVERIFY(sim.start());
        RawTerminalClient client;
        QVERIFY(client.open(sim.devicePath()));
        QCOMPARE(client.ask("0CM6"), QByteArray("0CM6\r\n"));
        // With the client still holding the device open.
        QCOMPARE(sim.interrupt(), 0);
        QVERIFY(!sim.isRunning());
    }

    void stateFileOutlivesTheProcess()
    {
        QTemporaryDir dir;
        const QString state = dir.filePath(QStringLiteral("ctl.state"));
        {
            SimProcess sim(QStringLiteral(KTRSIM_PATH));
            QVERIFY(sim.start({"--state", state}));
            RawTerminalClient client;
            QVERIFY(client.open(sim.devicePath()));
            QCOMPARE(client.ask("0WD1" + OtherBlock), QByteArray("0WD1\r\n"));
            QCOMPARE(client.ask("0WE"), QByteArray("0WE\r\n"));
            QCOMPARE(client.ask("0WD2" + OtherBlock), QByteArray("0WD2\r\n"));
            QCOMPARE(sim.stop(), 0);
        }
        SimProcess sim(QStringLiteral(KTRSIM_PATH));
        QVERIFY(sim.start({"--state", state}));
        RawTerminalClient client;
        QVERIFY(client.open(sim.devicePath()));
        QCOMPARE(client.ask("0RD1"), "0RD1" + OtherBlock + "\r\n");
        QCOMPARE(client.ask("0RD2"), QByteArray("0RD2000114020003E80007D00A0500000000\r\n"));
    }

    void faultOptionsReachTheController()
    {
        SimProcess sim(QStringLiteral(KTRSIM_PATH));
        QVERIFY(sim.start({"--error-reply", "RV:101", "--stop", "--extra-char", "RO"}));
        RawTerminalClient client;
        QVERIFY(client.open(sim.devicePath()));
        QCOMPARE(client.ask("0RV"), QByteArray("0%%101\r\n"));
        QCOMPARE(client.ask("0%C"), QByteArray("0%CK0110000000\r\n"));
        QCOMPARE(client.ask("0RI"), QByteArray("0RI200\r\n"));
        QCOMPARE(client.ask("0RO"), QByteArray("0RO300\r\n"));
    }

    void alarmAfterStartArrivesUnasked()
    {
        SimProcess sim(QStringLiteral(KTRSIM_PATH));
        QVERIFY(sim.start({"--alarm", "303@300"}));
        RawTerminalClient client;
        QVERIFY(client.open(sim.devicePath()));
        QCOMPARE(client.readLine(2000), QByteArray("0%%303\r\n"));
        QCOMPARE(client.ask("0RA"), QByteArray("0RA3\r\n"));
    }

    void wrongOptionIsAUsageError()
    {
        const Finished run = runToEnd({"--lang", "en", "--time-scale", "-1"});
        QCOMPARE(run.exitCode, 2);
        QVERIFY(run.out.isEmpty());
        QCOMPARE(run.err, QByteArray("Invalid value for --time-scale: -1\nRun ktr-sim --help to see the options.\n"));

        const Finished japanese = runToEnd({"--lang", "ja", "--bogus"});
        QCOMPARE(japanese.exitCode, 2);
        QVERIFY(japanese.err.startsWith(QStringLiteral("不明なオプションです: --bogus\n").toUtf8()));
    }

    void helpListsTheOptions()
    {
        const Finished run = runToEnd({"--help", "--lang", "en"});
        QCOMPARE(run.exitCode, 0);
        QVERIFY(run.out.startsWith("Usage: ktr-sim [--pty | --device DEV]"));
        QVERIFY(run.out.contains("--restart-after N"));
        QVERIFY(run.err.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestSimProgram)
#include "tst_simprogram.moc"
