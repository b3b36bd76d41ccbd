#include "common/Waiter.h"
#include "support/RawTerminalClient.h"
#include "support/SimProcess.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QByteArray OtherBlock = "0123456789ABCDEF0123456789ABCDEF";
const QByteArray OtherRecord = "2328100000000C01";

// ktr-sim started with args and a raw client on its pseudo-terminal.
struct SimClient {
    explicit SimClient(const QStringList& args = {})
    {
        if (sim.start(args))
            client.open(sim.devicePath());
    }
    SimProcess sim{KTRSIM_PATH};
    RawTerminalClient client;
};

} // namespace

class TestSimProgram : public QObject {
    Q_OBJECT

private slots:
    void answersOnItsPtyUntilInterrupted()
    {
        SimClient run({"--time-scale", "0.05"});
        QVERIFY2(run.client.isOpen(), run.sim.standardError().constData());
        QCOMPARE(run.client.ask("0RV"), QByteArray("0RVK01100\r\n"));
        QCOMPARE(run.client.ask("0MP00"), QByteArray("0MP00\r\n"));
        QCOMPARE(run.client.ask("0RA"), QByteArray("0RA0\r\n"));
        Waiter::sleep(60);
        QCOMPARE(run.client.ask("0RA"), QByteArray("0RA1\r\n"));
        // Ctrl-C with the client still holding the device open (SIGTERM: the state file test).
        QCOMPARE(run.sim.interrupt(), 0);
        QVERIFY(run.sim.standardError().contains("Virtual controller ready on " + run.sim.devicePath().toLocal8Bit()));
    }

    void stateFileOutlivesTheProcess()
    {
        QTemporaryDir dir;
        const QStringList args{"--state", dir.filePath("ctl.state")};
        {
            SimClient first(args);
            QCOMPARE(first.client.ask("0WD1" + OtherBlock), QByteArray("0WD1\r\n"));
            QCOMPARE(first.client.ask("0WE"), QByteArray("0WE\r\n"));
            QCOMPARE(first.client.ask("0WP01" + OtherRecord), QByteArray("0WP01\r\n"));
            QCOMPARE(first.client.ask("0WA0101"), QByteArray("0WA\r\n"));
            QCOMPARE(first.client.ask("0WD2" + OtherBlock), QByteArray("0WD2\r\n"));
            QCOMPARE(first.sim.stop(), 0);
        }
        SimClient second(args);
        QCOMPARE(second.client.ask("0RD1"), "0RD1" + OtherBlock + "\r\n");
        QCOMPARE(second.client.ask("0RP01"), "0RP01" + OtherRecord + "\r\n");
        QCOMPARE(second.client.ask("0RD2"), QByteArray("0RD2000114020003E80007D00A0500000000\r\n"));
    }

    void alarmFromTheCommandLine()
    {
        SimClient run({"--alarm", "303@300"});
        QCOMPARE(run.client.readLine(2000), QByteArray("0%%303\r\n"));
    }

    void optionsThatEndItAtOnce_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QByteArray>("out");
        QTest::addColumn<QByteArray>("err");
        QTest::newRow("wrong value") << QStringList{"--lang", "en", "--time-scale", "-1"} << 2 << QByteArray()
                                     << QByteArray("Invalid value for --time-scale: -1\nRun ktr-sim --help to see the options.\n");
        QTest::newRow("unknown, Japanese") << QStringList{"--lang", "ja", "--bogus"} << 2 << QByteArray()
                                           << QStringLiteral("不明なオプションです: --bogus\n").toUtf8();
        QTest::newRow("help") << QStringList{"--help", "--lang", "en"} << 0 << QByteArray("Usage: ktr-sim [--pty | --device DEV]")
                              << QByteArray();
    }
    void optionsThatEndItAtOnce()
    {
        QFETCH(QStringList, args);
        QFETCH(QByteArray, out);
        QFETCH(QByteArray, err);
        QProcess process;
        process.start(KTRSIM_PATH, args);
        QVERIFY(process.waitForFinished(10000));
        QTEST(process.exitCode(), "exitCode");
        const auto begins = [](const QByteArray& actual, const QByteArray& start) {
            return start.isEmpty() ? actual.isEmpty() : actual.startsWith(start);
        };
        QVERIFY(begins(process.readAllStandardOutput(), out));
        QVERIFY(begins(process.readAllStandardError(), err));
    }
};

QTEST_GUILESS_MAIN(TestSimProgram)
#include "tst_simprogram.moc"
