#include "opdata/Homing.h"
#include "opdata/IoBits.h"
#include "opdata/IoMonitor.h"
#include "opdata/MoveRun.h"
#include "opdata/MoveTestState.h"

#include "OpDataRig.h"

#include <QElapsedTimer>
#include <QTest>

namespace {

using Replies = QList<QByteArray>;
const QStringList MoveLocked{"MoveCMDBTN_Muko", "tabs off", "Menyu_Muko", "MoveCMDBTN_Yuko", "tabs on", "Menyu_Yuko"};
const QStringList HomeLocked{"HOMEBTN_Muko", "tabs off", "Menyu_Muko", "HOMEBTN_Yuko", "tabs on", "Menyu_Yuko"};

// The frame a reply answers: the status query, or the frame it echoes.
QString frameOf(const QString& reply)
{
    return reply.startsWith(u"0RA") ? QStringLiteral("0RA") : reply;
}

// A move test on a line that gives these replies in turn.
struct MoveRig : OpDataRig {
    MoveTestState state;
    MoveRun run{ctx, state, view};

    explicit MoveRig(const QStringList& replies, bool continuous = true)
    {
        view.shown.optCNT = continuous;
        for (const QString& reply : replies)
            answer(frameOf(reply).toLatin1().constData(), reply.toLatin1().constData());
    }
};

// A monitor on a scripted line; the mode switch and the first poll answered.
struct MonitorRig : OpDataRig {
    FakeIoView io;
    IoMonitor monitor{ctx, io};

    explicit MonitorRig(const char* inputs = "000", const char* outputs = "00", const char* modeReply = "0CM7")
    {
        answer("0CM7", modeReply);
        answer("0RI", QByteArray("0RI").append(inputs).constData());
        answer("0RO", QByteArray("0RO").append(outputs).constData());
    }
    ~MonitorRig() { monitor.timerInputOutput1.stop(); }
};

} // namespace

// The move test, homing and the I/O monitor of the operation data tab.
class TestMoveTest : public QObject {
    Q_OBJECT

private slots:
    // A run from the first status query, which must find the table at rest,
    // to its end. A series left stopped (at move `from`) starts again at one
    // and ends after fifteen moves.
    void moveRuns_data()
    {
        QTest::addColumn<bool>("continuous");
        QTest::addColumn<int>("from");
        QTest::addColumn<QStringList>("replies");
        QTest::addColumn<int>("moveNo");
        QTest::addColumn<bool>("moving");
        QTest::newRow("step") << false << 1 << QStringList{"0RA1", "0MP01", "0RA0", "0RA0", "0RA1"} << 2 << false;
        QTest::newRow("moving: nothing sent") << false << 1 << QStringList{"0RA0"} << 1 << false;
        QTest::newRow("status failure") << true << 1 << QStringList{"0RA1", "0MP01", "0RA5"} << 1 << true;
        QStringList series{"0RA1"};
        for (int i = 0; i < 15; ++i)
            series << "0MP01"
                   << "0RA1";
        QTest::newRow("stopped series") << true << 7 << series << 1 << false;
    }
    void moveRuns()
    {
        QFETCH(bool, continuous);
        QFETCH(int, from);
        QFETCH(QStringList, replies);
        MoveRig rig(replies, continuous);
        rig.state.mMoveNo = qint16(from);
        rig.state.mStopRequest = rig.state.mStopOther = from > 1;

        rig.run.run();

        QStringList frames;
        for (const QString& reply : replies)
            frames << frameOf(reply);
        QCOMPARE(rig.frames(), frames);
        QTEST(int(rig.state.mMoveNo), "moveNo");
        QTEST(rig.state.mMoving, "moving");
        QVERIFY(!rig.state.mStopRequest && !rig.state.mStopOther);
        QCOMPARE(rig.lock.calls, MoveLocked);
        QVERIFY(!ProgramState::instance().gCommBusy);
        QVERIFY(!rig.port.isOpen());
        QVERIFY(rig.prompter.shown.isEmpty());
    }

    void stopDuringDwellEndsAtOnce()
    {
        MoveRig rig({"0RA1", "0MP01", "0RA1", "0MP01", "0RA1"});
        rig.view.shown.chkTimerUse = true;
        rig.view.shown.txtTimer = QStringLiteral("600");
        connect(&rig.run, &MoveRun::moveFinished, &rig.run, [&] {
            QTimer::singleShot(100, &rig.run, [&] { rig.run.stop(); });
        });

        QElapsedTimer clock;
        clock.start();
        rig.run.run();

        QVERIFY2(clock.elapsed() < 5000, "a one-minute dwell was cut short");
        QCOMPARE(rig.frames().count(QStringLiteral("0MP01")), 1);
        QVERIFY(!rig.run.Timer2.isActive());
    }

    // Homing, refused or accepted; then the status polls decide the end.
    // STOP, pressed at the last of them, gives up only a stop short of home
    // (offered then), and says so.
    void homing_data()
    {
        QTest::addColumn<QByteArray>("reply"); // to the home move
        QTest::addColumn<Replies>("statuses");
        QTest::addColumn<QString>("offered");
        QTest::addColumn<QString>("message");
        const QString givenUp = QStringLiteral("Homing did not finish: the controller stopped part-way (status %1). "
                                               "Remove the cause; an alarm is cleared with the alarm reset.");
        const QByteArray home("0MP00");
        QTest::newRow("reaches home") << home << Replies{"0RA0", "0RA1"} << QString() << QString();
        QTest::newRow("status failure") << home << Replies{"0RA9"} << QString() << QString();
        QTest::newRow("alarm") << home << Replies{"0RA0", "0RA3", "0RA3"} << "cmdSTOP 1" << givenUp.arg(3);
        QTest::newRow("STOP input") << home << Replies{"0RA2", "0RA2"} << "cmdSTOP 1" << givenUp.arg(2);
        QTest::newRow("refused") << QByteArray("0%%0B3") << Replies{} << "cmdHOME 1"
                                 << "Communication error occurs!\r\nError No.0B3\r\n"
                                    "[Homing refused while an alarm is active.]";
    }
    void homing()
    {
        QFETCH(QByteArray, reply);
        QFETCH(Replies, statuses);
        QFETCH(QString, offered);
        OpDataRig rig;
        rig.answer("0CM6", "0CM6");
        rig.answer("0MP00", reply.constData());
        for (const QByteArray& status : statuses)
            rig.answer("0RA", status.constData());
        Homing homing(rig.ctx, rig.view);
        connect(&rig.link, &Link::lineReceived, &rig.link, [&] {
            if (rig.port.frames.size() == 2 + statuses.size())
                homing.stop();
        });

        homing.run();

        QCOMPARE(rig.frames(), QStringList({"0CM6", "0MP00"}) + QStringList(statuses.size(), "0RA"));
        QVERIFY(!ProgramState::instance().gCommBusy);
        QCOMPARE(rig.lock.calls, HomeLocked);
        QCOMPARE(rig.view.calls, QStringList({"cmdRESET 0", offered}).filter(QStringLiteral("cmd")));
        QTEST(rig.prompter.texts().join('|'), "message");
        QVERIFY(!rig.port.isOpen());
    }

    void lamps_data()
    {
        QTest::addColumn<QString>("inputs");
        QTest::addColumn<QString>("outputs");
        QTest::addColumn<QStringList>("lit");
        const auto row = [](const char* name, const char* inputs, const char* outputs, const QStringList& lit) {
            QTest::newRow(name) << QString(inputs) << QString(outputs) << lit;
        };
        row("inputs A00", "A00", "00", QStringList{"imgInputStb", "imgInputStop"});
        row("inputs 5FF", "5FF", "00", QStringList{});
        row("outputs 43", "000", "43", QStringList{"imgOutputAlm", "imgOutputOut1", "imgOutputOut2"});
        row("outputs 70", "000", "70", QStringList{"imgOutputAlm", "imgOutputRdy", "imgOutputInp"});
        row("outputs 8C", "000", "8C", QStringList{});
    }
    void lamps()
    {
        QFETCH(QString, inputs);
        QFETCH(QString, outputs);
        IoBits::InputTable in{};
        IoBits::OutputTable out{};
        IoBits::decode(inputs, in);
        IoBits::decode(outputs, out);
        QStringList on;
        for (IoLamp lamp : AllIoLamps)
            if (IoBits::lampOn(lamp, in, out))
                on << IoBits::objectName(lamp);
        QTEST(on, "lit");
    }

    // An output clicked once the first poll is in: its write is refused.
    void failedOutputWriteIsReported()
    {
        MonitorRig rig;
        rig.answer("0WO01", "0%%104");
        rig.answer("0RI", "0RI000");
        rig.answer("0RO", "0RO00");
        rig.monitor.start();
        QTRY_COMPARE(rig.port.frames.size(), 3);
        rig.monitor.outputClicked(IoLamp::OutputOut2);
        QTRY_COMPARE(rig.port.frames.size(), 6);

        QCOMPARE(rig.prompter.lastText(), QStringLiteral("Communication error occurs!\r\n\r\ntransmit data is wrong"));
        QVERIFY2(rig.monitor.mIoRunning, "the monitor goes on reading");
    }

    // Stopped while a read waits for its reply: the other commands come back
    // only after the mode switch back, and the button does nothing meanwhile.
    void commandsComeBackAfterTheMonitorHasLeftItsMode()
    {
        MonitorRig rig("800", "70");
        rig.port.answer("0RI", {"0RI800\r\n"}, 300);
        rig.answer("0RO", "0RO70");
        rig.answer("0CM0", "0CM0");
        bool othersWhileStopping = true;
        QStringList lockWhileStopping;
        QObject::connect(&rig.link, &Link::frameSent, [&] {
            if (rig.port.frames.size() != 4)
                return;
            rig.monitor.toggle();
            rig.monitor.toggle();
            othersWhileStopping = rig.io.othersEnabled;
            lockWhileStopping = rig.lock.calls;
        });
        rig.monitor.start();
        QTRY_VERIFY(!rig.monitor.mIoRunning);
        QVERIFY(!othersWhileStopping);
        QCOMPARE(lockWhileStopping, (QStringList{"tabs off", "Menyu_Muko"}));
        QCOMPARE(rig.frames(), (QStringList{"0CM7", "0RI", "0RO", "0RI", "0RO", "0CM0"}));
        QCOMPARE(rig.io.caption, QStringLiteral("Start Monitor"));
        QVERIFY(rig.io.othersEnabled);
        QCOMPARE(rig.lock.calls.mid(2), (QStringList{"tabs on", "Menyu_Yuko"}));
    }

    // However the monitor ends (the user, a refused mode switch, a refused
    // read), it ends stopped: lamps off, the commands back, no more polls.
    void monitorEndsStopped_data()
    {
        QTest::addColumn<bool>("userStops");
        QTest::addColumn<QByteArray>("modeReply");
        QTest::addColumn<QByteArray>("secondInputs");
        QTest::addColumn<QStringList>("frames");
        QTest::newRow("stopped by the user") << true << QByteArray("0CM7") << QByteArray()
                                             << QStringList{"0CM7", "0RI", "0RO", "0CM0"};
        QTest::newRow("mode switch refused") << false << QByteArray("0%%101") << QByteArray() << QStringList{"0CM7"};
        QTest::newRow("read refused") << false << QByteArray("0CM7") << QByteArray("0%%101")
                                      << QStringList{"0CM7", "0RI", "0RO", "0RI"};
    }
    void monitorEndsStopped()
    {
        QFETCH(bool, userStops);
        QFETCH(QByteArray, modeReply);
        QFETCH(QByteArray, secondInputs);
        MonitorRig rig("800", "70", modeReply.constData());
        rig.answer("0CM0", "0CM0");
        if (!secondInputs.isEmpty())
            rig.answer("0RI", secondInputs.constData());

        rig.monitor.start();
        if (userStops) {
            QTRY_COMPARE(rig.io.lit(), 4);
            rig.monitor.toggle();
        }
        QTRY_VERIFY(!rig.monitor.mIoRunning);
        QTest::qWait(3 * IoMonitor::PollIntervalMs);
        QTEST(rig.frames(), "frames");
        QCOMPARE(rig.io.lit(), 0);
        QCOMPARE(rig.io.caption, QStringLiteral("Start Monitor"));
        QVERIFY(rig.io.othersEnabled);
        QCOMPARE(rig.lock.calls, (QStringList{"tabs off", "Menyu_Muko", "tabs on", "Menyu_Yuko"}));
        QVERIFY(!rig.monitor.mIoStopRequest);
        QVERIFY(!rig.monitor.mIoFirstPoll);
        QVERIFY(!rig.port.isOpen());
    }
};

QTEST_GUILESS_MAIN(TestMoveTest)
#include "tst_movetest.moc"
