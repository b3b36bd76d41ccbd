#include "opdata/Homing.h"
#include "opdata/MoveRun.h"
#include "opdata/MoveTestState.h"

#include "OpDataRig.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

namespace {

const QStringList MoveLocked{"MoveCMDBTN_Muko", "tabs off", "Menyu_Muko", "MoveCMDBTN_Yuko", "tabs on", "Menyu_Yuko"};
const QStringList HomeLocked{"HOMEBTN_Muko", "tabs off", "Menyu_Muko", "HOMEBTN_Yuko", "tabs on", "Menyu_Yuko"};

// A move the controller accepts and reports over after `busyPolls` status
// queries that still see it moving.
void scriptMove(OpDataRig& rig, int busyPolls = 0)
{
    rig.answer("0MP01", "0MP01");
    for (int i = 0; i < busyPolls; ++i)
        rig.answer("0RA", "0RA0");
    rig.answer("0RA", "0RA1");
}

// A move test whose first status query finds the table at rest.
struct MoveRig : OpDataRig {
    MoveTestState state;
    MoveRun run{ctx, state, view};

    explicit MoveRig(bool continuous = true, const char* firstStatus = "0RA1")
    {
        view.shown.optCNT = continuous;
        answer("0RA", firstStatus);
    }
    void dwell(const char* seconds)
    {
        view.shown.chkTimerUse = true;
        view.shown.txtTimer = QString::fromLatin1(seconds);
    }
    int moves() const { return frames().count(QStringLiteral("0MP01")); }
};

// Homing's mode switch accepted and the home move answered with `reply`.
void scriptHoming(OpDataRig& rig, const char* reply = "0MP00")
{
    rig.answer("0CM6", "0CM6");
    rig.answer("0MP00", reply);
}

} // namespace

class TestMoveTest : public QObject {
    Q_OBJECT

private slots:
    void stepModeMovesOnce()
    {
        MoveRig rig(false);
        scriptMove(rig, 2);

        rig.run.run();

        QCOMPARE(rig.frames(), (QStringList{"0RA", "0MP01", "0RA", "0RA", "0RA"}));
        QCOMPARE(rig.state.mMoveNo, 2);
        QVERIFY(!rig.state.mMoving);
        QCOMPARE(rig.lock.calls, MoveLocked);
        QVERIFY(!ProgramState::instance().gCommBusy);
        QVERIFY(!rig.port.isOpen());
        QVERIFY(rig.prompter.shown.isEmpty());
    }

    void continuousRunsFifteenMoves()
    {
        MoveRig rig(true, "0RA2");
        for (int i = 0; i < 20; ++i)
            scriptMove(rig);
        QSignalSpy finished(&rig.run, &MoveRun::moveFinished);

        rig.run.run();

        QCOMPARE(rig.moves(), 15);
        QCOMPARE(finished.size(), 15);
        QCOMPARE(finished.first().at(0).toInt(), 1);
        QCOMPARE(finished.last().at(0).toInt(), 15);
        QCOMPARE(rig.state.mMoveNo, 1);
    }

    void dwellBetweenMoves()
    {
        MoveRig rig;
        rig.dwell("5");
        scriptMove(rig);
        scriptMove(rig);

        QElapsedTimer clock;
        qint64 firstMoveOver = -1;
        qint64 secondMoveStarted = -1;
        connect(&rig.link, &Link::lineReceived, &rig.run, [&](const QByteArray& line) {
            if (line == "0RA1" && firstMoveOver < 0 && rig.port.frames.count("0MP01") == 1)
                firstMoveOver = clock.elapsed();
        });
        connect(&rig.link, &Link::frameSent, &rig.run, [&](const QByteArray& frame) {
            if (frame.startsWith("0MP01") && rig.port.frames.count("0MP01") == 2) {
                secondMoveStarted = clock.elapsed();
                rig.run.stop();
            }
        });
        clock.start();
        rig.run.run();

        QCOMPARE(rig.moves(), 2);
        QVERIFY(firstMoveOver >= 0);
        const qint64 dwell = secondMoveStarted - firstMoveOver;
        QVERIFY2(dwell >= 490 && dwell < 1500, qPrintable(QString::number(dwell)));
        QVERIFY(!rig.run.Timer2.isActive());
        QVERIFY(!rig.state.mDwellOver);
    }

    void stopDuringMoveLetsItComplete()
    {
        MoveRig rig;
        scriptMove(rig, 3);
        scriptMove(rig);
        connect(&rig.link, &Link::frameSent, &rig.run, [&](const QByteArray& frame) {
            if (frame.startsWith("0MP01"))
                rig.run.stop();
        });

        rig.run.run();

        QCOMPARE(rig.frames(), (QStringList{"0RA", "0MP01", "0RA", "0RA", "0RA", "0RA"}));
        QVERIFY(rig.state.mStopRequest);
        QCOMPARE(rig.state.mMoveNo, 2);
        QCOMPARE(rig.lock.calls, MoveLocked);
    }

    void stopDuringDwellEndsAtOnce()
    {
        MoveRig rig;
        rig.dwell("600");
        scriptMove(rig);
        scriptMove(rig);
        connect(&rig.run, &MoveRun::moveFinished, &rig.run, [&] {
            QTimer::singleShot(100, &rig.run, [&] { rig.run.stop(); });
        });

        QElapsedTimer clock;
        clock.start();
        rig.run.run();

        QVERIFY2(clock.elapsed() < 5000, "a one-minute dwell was cut short");
        QCOMPARE(rig.moves(), 1);
        QVERIFY(!rig.run.Timer2.isActive());
    }

    void stoppedSeriesStartsAgainAtOne()
    {
        MoveRig rig;
        rig.state.mMoveNo = 7;
        rig.state.mStopRequest = true;
        rig.state.mStopOther = true;
        for (int i = 0; i < 15; ++i)
            scriptMove(rig);

        rig.run.run();

        QCOMPARE(rig.moves(), 15);
        QVERIFY(!rig.state.mStopRequest);
        QVERIFY(!rig.state.mStopOther);
        QCOMPARE(rig.state.mMoveNo, 1);
    }

    void notAtRestSendsNothing_data()
    {
        QTest::addColumn<QByteArray>("status");
        QTest::newRow("moving") << QByteArray("0RA0");
        QTest::newRow("status 3") << QByteArray("0RA3");
    }
    void notAtRestSendsNothing()
    {
        QFETCH(QByteArray, status);
        MoveRig rig(false, status.constData());

        rig.run.run();

        QCOMPARE(rig.frames(), QStringList{"0RA"});
        QVERIFY(rig.prompter.shown.isEmpty());
        QCOMPARE(rig.lock.calls, MoveLocked);
        QVERIFY(!rig.port.isOpen());
    }

    void statusFailureEndsTheRun()
    {
        MoveRig rig;
        rig.answer("0MP01", "0MP01");
        rig.answer("0RA", "0RA5");
        for (int i = 0; i < 3; ++i)
            scriptMove(rig);

        rig.run.run();

        QCOMPARE(rig.frames(), (QStringList{"0RA", "0MP01", "0RA"}));
        QCOMPARE(rig.state.mMoveNo, 1);
        QVERIFY(rig.state.mMoving);
    }

    // The controller stops short of the end: polled on until STOP (offered
    // for homing only then), which gives the wait up and says so.
    void stopGivesUpAStopShortOfTheEnd_data()
    {
        QTest::addColumn<bool>("homing");
        QTest::addColumn<QByteArray>("status");
        QTest::addColumn<QString>("message");
        const QString part = QStringLiteral(" did not finish: the controller stopped part-way (status %1). "
                                            "Remove the cause; an alarm is cleared with the alarm reset.");
        QTest::newRow("move, alarm") << false << QByteArray("0RA3") << "The move" + part.arg(3);
        QTest::newRow("homing, alarm") << true << QByteArray("0RA3") << "Homing" + part.arg(3);
        QTest::newRow("homing, STOP input") << true << QByteArray("0RA2") << "Homing" + part.arg(2);
    }
    void stopGivesUpAStopShortOfTheEnd()
    {
        QFETCH(bool, homing);
        QFETCH(QByteArray, status);
        OpDataRig rig;
        MoveTestState state;
        MoveRun move(rig.ctx, state, rig.view);
        Homing home(rig.ctx, rig.view);
        rig.answer("0RA", homing ? "0RA0" : "0RA1");
        homing ? scriptHoming(rig) : rig.answer("0MP01", "0MP01");
        for (int i = 0; i < 20; ++i)
            rig.answer("0RA", status.constData());
        int stoppedShort = 0;
        connect(&rig.link, &Link::lineReceived, &move, [&](const QByteArray& line) {
            if (line == status && ++stoppedShort == 3) {
                move.stop();
                home.stop();
            }
        });

        homing ? home.run() : int(move.run());

        const QStringList started = homing ? QStringList{"0CM6", "0MP00", "0RA"} : QStringList{"0RA", "0MP01"};
        QCOMPARE(rig.frames(), started + QStringList(3, "0RA"));
        QTEST(rig.prompter.texts().join('|'), "message");
        QCOMPARE(rig.lock.calls, homing ? HomeLocked : MoveLocked);
        QCOMPARE(rig.view.calls.contains("cmdSTOP 1"), homing);
        QVERIFY(!ProgramState::instance().gCommBusy);
    }

    // Homing that the controller accepts; the status polls decide the end.
    void homing_data()
    {
        QTest::addColumn<QList<QByteArray>>("statuses");
        QTest::addColumn<bool>("blocked");
        QTest::addColumn<bool>("requested");
        QTest::newRow("reaches home") << QList<QByteArray>{"0RA0", "0RA1"} << false << true;
        QTest::newRow("request blocked") << QList<QByteArray>{"0RA1"} << true << false;
        QTest::newRow("status failure") << QList<QByteArray>{"0RA9"} << false << false;
    }
    void homing()
    {
        QFETCH(QList<QByteArray>, statuses);
        QFETCH(bool, blocked);
        OpDataRig rig;
        scriptHoming(rig);
        for (const QByteArray& status : statuses)
            rig.answer("0RA", status.constData());
        ProgramState::instance().gHomeFailed = true;
        ProgramState::instance().gHomeRequestBlock = blocked;
        ProgramState::instance().gHomeRequested = blocked;

        Homing(rig.ctx, rig.view).run();

        QCOMPARE(rig.frames(), QStringList({"0CM6", "0MP00"}) + QStringList(statuses.size(), "0RA"));
        QTEST(ProgramState::instance().gHomeRequested, "requested");
        QVERIFY(!ProgramState::instance().gHomeFailed);
        QVERIFY(!ProgramState::instance().gCommBusy);
        QCOMPARE(rig.lock.calls, HomeLocked);
        QCOMPARE(rig.view.calls, QStringList{"cmdRESET 0"});
        QVERIFY(!rig.port.isOpen());
    }

    void homingRefusedByController()
    {
        OpDataRig rig;
        scriptHoming(rig, "0%%0B3");

        Homing(rig.ctx, rig.view).run();

        const QString refused = QStringLiteral("Homing refused while an alarm is active.");
        QCOMPARE(rig.frames(), (QStringList{"0CM6", "0MP00"}));
        QVERIFY(!ProgramState::instance().gHomeRequested);
        QVERIFY(ProgramState::instance().gHomeFailed);
        QVERIFY(rig.alarms.alarm);
        QCOMPARE(rig.alarms.status, refused);
        QCOMPARE(rig.prompter.shown.size(), 1);
        QVERIFY(rig.prompter.lastText().contains(refused));
        QCOMPARE(rig.view.calls, (QStringList{"cmdRESET 0", "cmdHOME 1"}));
        QCOMPARE(rig.lock.calls, HomeLocked);
    }

};

QTEST_GUILESS_MAIN(TestMoveTest)
#include "tst_movetest.moc"
