// Faults on a real terminal line, through the program's own serial adapter;
// the controller is ktr-sim or a test's pty.

#include "KtrctlProcess.h"
#include "common/ProgramState.h"
#include "link/LinkRig.h"
#include "link/QtSerialPort.h"
#include "support/ControllerFiles.h"
#include "support/PtyController.h"
#include "support/SimProcess.h"

#include <QElapsedTimer>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <memory>

namespace {

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

// The shipped error list, the port held open for the run.
struct PtyLink : LinkRig<QtSerialPort> {
    explicit PtyLink(const QString& device)
    {
        ProgramState::instance().gPortOccupy = true;
        errors.Get_ErrorList(prompter);
        link.setPortName(device);
        link.setTimeoutMs(300);
    }
};

// A played controller under a link name that can be pointed at a new
// terminal, as a re-plugged adapter comes back under its old name; one name
// per test process, as the serial port locks a device by its file name.
class Adapter {
public:
    Adapter()
        : m_name(m_dir.filePath(QStringLiteral("ttyKTR%1").arg(QCoreApplication::applicationPid())))
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
    // Pulled during a request (told at once), then while merely held open:
    // each time the port is let go and the re-plugged adapter serves again.
    void pulledAdapterIsLetGoAndUsedAgain()
    {
        Adapter adapter;
        PtyLink rig(adapter.name());
        QTimer::singleShot(0, [&] {
            adapter.line().receive(5, 1000);
            adapter.pull();
        });
        QVERIFY(!rig.link.SendRecvCommand("0RA", 6, "").ok());
        QCOMPARE(rig.prompter.texts(), QStringList{PortLost});
        QVERIFY(!rig.link.busy());
        QVERIFY(!rig.link.isPortOpen());

        for (int unplugged = 0; unplugged < 2; ++unplugged) {
            QVERIFY(adapter.plugIn());
            rig.prompter.clear();
            QTimer::singleShot(0, [&] { adapter.line().answer("0RA", "0RA1"); });
            QVERIFY(rig.link.SendRecvCommand("0RA", 6, "").ok());
            QCOMPARE(rig.link.lastReply(), QStringLiteral("0RA1\r\n"));
            QVERIFY(rig.prompter.shown.isEmpty());
            QVERIFY(rig.link.isPortOpen());

            adapter.pull();
            QTRY_VERIFY(!rig.link.isPortOpen());
        }
    }

    // ktr-sim ends while ktrctl waits for a reply mid-sequence.
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
        command.replaceInStrings(QStringLiteral("FILE"), writeFile(files, QStringLiteral("set.pmt"), paraFile("28", 33)));
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

    // Each broken line is told with its own message; the link is ready at once.
    void brokenLinesLeaveTheLinkReady_data()
    {
        QTest::addColumn<QStringList>("faults");
        QTest::addColumn<QStringList>("messages");
        QTest::newRow("noise before the reply") << QStringList{"--garbage", "RA"} << QStringList{LengthError};
        QTest::newRow("CR and LF apart") << QStringList{"--split-crlf", "RA"} << QStringList{};
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

        QCOMPARE(rig.link.SendRecvCommand("0RA", 6, "").ok(), messages.isEmpty());
        QCOMPARE(rig.prompter.texts(), messages);
        QVERIFY(!rig.link.busy());

        // The late answer arriving meanwhile must not pass for the next reply.
        QTest::qWait(200);
        rig.prompter.clear();
        QVERIFY(rig.link.SendRecvCommand("0RV", 11, "").ok());
        QCOMPARE(rig.link.lastReply(), QStringLiteral("0RVK01100\r\n"));
        QVERIFY(rig.prompter.shown.isEmpty());
    }

    // An error line of the controller's own as a request goes out (cut by it,
    // or whole and unread) is told as such; the reply after it is accepted.
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
            QCOMPARE(Waiter::waitUntil([&] { return !rig.link.pendingInput().isEmpty(); }, 5000), Waiter::Result::Done);
        else
            QThread::msleep(400);

        QVERIFY(rig.link.SendRecvCommand("0RV", 11, "").ok());

        QCOMPARE(rig.link.lastReply(), QStringLiteral("0RVK01100\r\n"));
        QCOMPARE(rig.prompter.texts(), QStringList{"The controller reported an error of its own accord (not in reply to "
                                                   "a command).\r\nCommunication error occurs!\r\nError No.301\r\n"
                                                   "[301: Overload alarm.]"});
        QVERIFY(rig.alarms.alarm);
    }

    // A restart during the write (after the 0RA): the write fails, and verify
    // shows what was kept (lost between the blocks, kept after the 0WE).
    void restartDuringParameterWrite_data()
    {
        QTest::addColumn<QString>("restartAt");
        QTest::addColumn<QString>("lastFrame");
        QTest::addColumn<int>("verifyStatus");
        QTest::addColumn<QString>("report");
        QTest::newRow("between the blocks") << "3"
                                            << "0WD1" << 3 << "Result of Verify - NG\n<HOME Parameter> :VEL,\n";
        QTest::newRow("at the closing 0WE") << "5"
                                            << "0WE" << 0 << "Result of Verify - OK\n";
    }
    void restartDuringParameterWrite()
    {
        QFETCH(QString, restartAt);
        QFETCH(QString, lastFrame);
        QTemporaryDir files;
        const QString file = writeFile(files, QStringLiteral("set.pmt"), paraFile("28", 33));
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
