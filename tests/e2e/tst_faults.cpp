// Faults on a real terminal line: the device going away in the middle of a
// transfer, noise and broken lines from the controller, and a controller
// that restarts while a parameter write is under way. The link runs on the
// program's own serial adapter, the controller is ktr-sim or a test's pty.

#include "KtrctlProcess.h"
#include "common/ProgramState.h"
#include "link/LinkRig.h"
#include "link/QtSerialPort.h"
#include "support/PtyController.h"
#include "support/SimProcess.h"

#include <QElapsedTimer>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <memory>

namespace {

const QString TimedOut = QStringLiteral("Communication timeout error!\r\n\r\nCheck the followings;\r\n"
                                        " 1.Power ON for controller?\r\n 2.Communication cables are connected?");
const QString LengthError = QStringLiteral("Communication data length error occurs!\r\nLength of data is wrong.");
const QString WriteFailed = QStringLiteral("Fail to Write parameters.");
const QString PortLost = QStringLiteral("The device of the communication port has gone away (was the cable or the USB "
                                        "adapter unplugged?).\r\nThe port has been released; the next command opens it again.");

// What ktrctl told its user: stderr without the lines of --trace.
QString told(const QString& err)
{
    QStringList lines = err.split(u'\n');
    lines.removeIf([](const QString& line) { return line.startsWith(u'+'); });
    return lines.join(u'\n');
}

// The messages as ktrctl prints them: every line ended by LF.
QString printed(const QStringList& messages)
{
    return messages.join(u'\n').replace(QStringLiteral("\r\n"), QStringLiteral("\n")) + u'\n';
}

// The factory parameter set of the virtual controller with VEL 33 instead
// of 10, as a parameter file.
QByteArray changedParaFile()
{
    return QByteArray("\"QM-KTR\",\"PRM\"|6|\"HOME\",5,1|30|30|33|10|10|\"AXIS\",7,1|65535|2|400|0|20|2|\"28L100\"|"
                      "\"PG\",2,1|0|1000|\"ETC\",8,1|0|2|1000|2000|10|5|1|20|\"SPECIAL\",6,1|10|0|10|0|0|0|"
                      "\"RESERVED\",7,1|0|0|0|0|0|0|0|")
        .replace('|', "\r\n");
}

// The link rig on the program's serial adapter, with the shipped error
// list and the port held open for the run.
struct PtyLink : LinkRig<QtSerialPort> {
    explicit PtyLink(const QString& device)
    {
        ProgramState::instance().gPortOccupy = true;
        errors.Get_ErrorList(prompter);
        link.setPortName(device);
        link.gTimeoutMs = 300;
    }
};

// A controller played by the test, reached under a name of its own that
// can be pointed at a new terminal, as an adapter plugged in again comes
// back under its old device name.
class Adapter {
public:
    // The serial port locks a device by its file name: one of its own per
    // test process.
    Adapter() : m_name(m_dir.filePath(QStringLiteral("ttyKTR%1").arg(QCoreApplication::applicationPid())))
    {
        plugIn();
    }

    QString name() const { return m_name; }
    PtyController& line() { return *m_line; }
    void pull() { m_line->hangUp(); }
    bool plugIn()
    {
        m_line = std::make_unique<PtyController>();
        QFile::remove(m_name);
        return QFile::link(m_line->device(), m_name);
    }

private:
    QTemporaryDir m_dir;
    QString m_name;
    std::unique_ptr<PtyController> m_line;
};

} // namespace

class TestFaults : public QObject {
    Q_OBJECT

private slots:
    // The adapter pulled while a request waits for its reply (told as such
    // at once), then while the port is merely held open: each time the port
    // is let go, and the adapter plugged in again serves the next request.
    void pulledAdapterIsLetGoAndUsedAgain()
    {
        Adapter adapter;
        PtyLink rig(adapter.name());
        QTimer::singleShot(0, [&] {
            adapter.line().receive(5, 1000);
            adapter.pull();
        });
        QCOMPARE(rig.link.SendRecvCommand("0RA", 6, ""), 1);
        QCOMPARE(rig.prompter.texts(), QStringList{PortLost});
        QVERIFY(!rig.link.busy());
        QVERIFY(!rig.link.isPortOpen());

        for (int unplugged = 0; unplugged < 2; ++unplugged) {
            QVERIFY(adapter.plugIn());
            rig.prompter.clear();
            QTimer::singleShot(0, [&] { adapter.line().answer("0RA", "0RA1"); });
            QCOMPARE(rig.link.SendRecvCommand("0RA", 6, ""), 0);
            QCOMPARE(rig.link.gReply, QStringLiteral("0RA1\r\n"));
            QVERIFY(rig.prompter.shown.isEmpty());
            QVERIFY(rig.link.isPortOpen());

            adapter.pull();
            QTRY_VERIFY(!rig.link.isPortOpen());
        }
    }

    // ktr-sim ends while ktrctl waits for a reply in the middle of the
    // sequence: ktrctl tells that the line is gone and ends at once.
    void controllerGoneDuringTransfer_data()
    {
        QTest::addColumn<QString>("late");
        QTest::addColumn<QStringList>("command");
        QTest::addColumn<QString>("inFlight");
        QTest::addColumn<QStringList>("messages");
        QTest::newRow("params read") << "1000:RD" << QStringList{"read"} << "> 0RD1" << QStringList{PortLost};
        QTest::newRow("params write") << "1000:WD" << QStringList{"write", "FILE"} << "> 0WD1"
                                      << QStringList{PortLost, WriteFailed};
    }
    void controllerGoneDuringTransfer()
    {
        QFETCH(QString, late);
        QFETCH(QStringList, command);
        QFETCH(QString, inFlight);
        QFETCH(QStringList, messages);
        QTemporaryDir files;
        command.replaceInStrings(QStringLiteral("FILE"), writeFile(files, QStringLiteral("set.pmt"), changedParaFile()));
        SimProcess sim(QStringLiteral(KTRSIM_PATH));
        QVERIFY2(sim.start({"--late", late}), sim.standardError().constData());
        KtrctlProcess ktrctl;
        ktrctl.start(QStringList{"--port", sim.devicePath(), "--trace", "params"} + command);
        QVERIFY(ktrctl.waitForErr([&](const QString& err) { return err.contains(inFlight); }));

        QElapsedTimer clock;
        clock.start();
        sim.stop();
        const CtlRun run = ktrctl.finish(15000);

        QCOMPARE(run.exitCode, 1);
        QVERIFY(run.out.isEmpty());
        QCOMPARE(told(run.err), printed(messages));
        QVERIFY(sentFrames(run.err).last().startsWith(inFlight.mid(2)));
        QVERIFY2(clock.elapsed() < 8000, QByteArray::number(clock.elapsed()));
    }

    // Broken lines from the controller: each is told with the engine's own
    // message, and the link is ready for the next request at once.
    void brokenLinesLeaveTheLinkReady_data()
    {
        QTest::addColumn<QStringList>("faults");
        QTest::addColumn<QStringList>("messages");
        QTest::newRow("noise before the reply") << QStringList{"--garbage", "RA"} << QStringList{LengthError};
        QTest::newRow("CR and LF apart") << QStringList{"--split-crlf", "RA"} << QStringList{};
        QTest::newRow("one character too many") << QStringList{"--extra-char", "RA"} << QStringList{LengthError};
        QTest::newRow("half a line, then silence") << QStringList{"--restart-after", "1"} << QStringList{TimedOut};
        QTest::newRow("answer after the time-out") << QStringList{"--late", "400:RA"} << QStringList{TimedOut};
    }
    void brokenLinesLeaveTheLinkReady()
    {
        QFETCH(QStringList, faults);
        QFETCH(QStringList, messages);
        SimProcess sim(QStringLiteral(KTRSIM_PATH));
        QVERIFY2(sim.start(faults), sim.standardError().constData());
        PtyLink rig(sim.devicePath());

        QCOMPARE(rig.link.SendRecvCommand("0RA", 6, ""), messages.isEmpty() ? 0 : 1);
        QCOMPARE(rig.prompter.texts(), messages);
        QVERIFY(!rig.link.busy());

        // Whatever was still on its way (the late answer) arrives meanwhile
        // and must not pass for the next reply.
        QTest::qWait(200);
        rig.prompter.clear();
        QCOMPARE(rig.link.SendRecvCommand("0RV", 11, ""), 0);
        QCOMPARE(rig.link.gReply, QStringLiteral("0RVK01100\r\n"));
        QVERIFY(rig.prompter.shown.isEmpty());
    }

    // On a paced line the controller sends an error line on its own just as
    // a request goes out (cut in two by it, or whole and not yet read): it is
    // told as the controller's own report, and the reply after it is the
    // request's, accepted as it is.
    void ownErrorLineAsARequestGoesOut_data()
    {
        QTest::addColumn<bool>("cut");
        QTest::newRow("cut") << true;
        QTest::newRow("whole, still with the system") << false;
    }
    void ownErrorLineAsARequestGoesOut()
    {
        QFETCH(bool, cut);
        SimProcess sim(QStringLiteral(KTRSIM_PATH));
        QVERIFY2(sim.start({"--pace", "--error-line", "301@150"}), sim.standardError().constData());
        PtyLink rig(sim.devicePath());
        QCOMPARE(rig.link.OpenCommPort(), 0);
        QObject::connect(&rig.port, &SerialPort::readyRead, [] { Waiter::wake(); });
        if (cut)
            QCOMPARE(Waiter::waitUntil([&] { return !rig.link.gRxBuffer.isEmpty(); }, 5000), Waiter::Result::Done);
        else
            QThread::msleep(400);

        QCOMPARE(rig.link.SendRecvCommand("0RV", 11, ""), 0);

        QCOMPARE(rig.link.gReply, QStringLiteral("0RVK01100\r\n"));
        QCOMPARE(rig.prompter.texts(), QStringList{"The controller reported an error of its own accord (not in reply to "
                                                   "a command).\r\nCommunication error occurs!\r\nError No.301\r\n"
                                                   "[301: Overload alarm.]"});
        QVERIFY(rig.alarms.alarm);
    }

    // The controller restarts while it answers one of the write's requests
    // (the 0RA comes first): the write is not called done, and the
    // verification shows the set the controller really kept. A restart
    // between the blocks loses them; one after the 0WE was carried out
    // keeps them, though the write was reported failed.
    void restartDuringParameterWrite_data()
    {
        QTest::addColumn<QString>("restartAt");
        QTest::addColumn<QString>("lastFrame");
        QTest::addColumn<int>("verifyStatus");
        QTest::addColumn<QString>("report");
        QTest::newRow("between the blocks") << "3" << "0WD1" << 3 << "Result of Verify - NG\n<HOME Parameter> :VEL,\n";
        QTest::newRow("at the closing 0WE") << "5" << "0WE" << 0 << "Result of Verify - OK\n";
    }
    void restartDuringParameterWrite()
    {
        QFETCH(QString, restartAt);
        QFETCH(QString, lastFrame);
        QTemporaryDir files;
        const QString file = writeFile(files, QStringLiteral("set.pmt"), changedParaFile());
        SimProcess sim(QStringLiteral(KTRSIM_PATH));
        QVERIFY2(sim.start({"--restart-after", restartAt}), sim.standardError().constData());

        const CtlRun write = KtrctlProcess::run({"--port", sim.devicePath(), "--trace", "params", "write", file});
        QCOMPARE(write.exitCode, 1);
        QVERIFY(write.out.isEmpty());
        QCOMPARE(told(write.err), printed({TimedOut, WriteFailed}));
        QVERIFY(sentFrames(write.err).last().startsWith(lastFrame));

        const CtlRun verify = KtrctlProcess::run({"--port", sim.devicePath(), "params", "verify", file});
        QTEST(verify.exitCode, "verifyStatus");
        QTEST(verify.out, "report");
    }
};

QTEST_GUILESS_MAIN(TestFaults)
#include "tst_faults.moc"
