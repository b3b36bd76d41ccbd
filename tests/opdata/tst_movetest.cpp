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

} // namespace

class TestMoveTest : public QObject {
    Q_OBJECT

private slots:
    void stepModeMovesOnce()
    {
        OpDataRig rig;
        MoveTestState state;
        rig.answer("0RA", "0RA1");
        scriptMove(rig, 2);

        MoveRun(rig.ctx, state, rig.view).run();

        QCOMPARE(rig.frames(), (QStringList{"0RA", "0MP01", "0RA", "0RA", "0RA"}));
        QCOMPARE(state.mMoveNo, 2);
        QVERIFY(!state.mMoving);
        QCOMPARE(rig.lock.calls, MoveLocked);
        QVERIFY(!ProgramState::instance().gCommBusy);
        QVERIFY(!rig.port.isOpen());
        QVERIFY(rig.prompter.shown.isEmpty());
    }

    void continuousRunsFifteenMoves()
    {
        OpDataRig rig;
        MoveTestState state;
        rig.view.shown.optCNT = true;
        rig.answer("0RA", "0RA2");
        for (int i = 0; i < 20; ++i)
            scriptMove(rig);
        MoveRun run(rig.ctx, state, rig.view);
        QSignalSpy finished(&run, &MoveRun::moveFinished);

        run.run();

        QCOMPARE(rig.frames().count(QStringLiteral("0MP01")), 15);
        QCOMPARE(finished.size(), 15);
        QCOMPARE(finished.first().at(0).toInt(), 1);
        QCOMPARE(finished.last().at(0).toInt(), 15);
        QCOMPARE(state.mMoveNo, 1);
    }

    void dwellBetweenMoves()
    {
        OpDataRig rig;
        MoveTestState state;
        rig.view.shown.optCNT = true;
        rig.view.shown.chkTimerUse = true;
        rig.view.shown.txtTimer = QStringLiteral("5");
        rig.answer("0RA", "0RA1");
        scriptMove(rig);
        scriptMove(rig);
        MoveRun run(rig.ctx, state, rig.view);

        QElapsedTimer clock;
        qint64 firstMoveOver = -1;
        qint64 secondMoveStarted = -1;
        connect(&rig.link, &Link::lineReceived, &run, [&](const QByteArray& line) {
            if (line == "0RA1" && firstMoveOver < 0 && rig.port.frames.count("0MP01") == 1)
                firstMoveOver = clock.elapsed();
        });
        connect(&rig.link, &Link::frameSent, &run, [&](const QByteArray& frame) {
            if (frame.startsWith("0MP01") && rig.port.frames.count("0MP01") == 2) {
                secondMoveStarted = clock.elapsed();
                run.stop();
            }
        });
        clock.start();
        run.run();

        QCOMPARE(rig.frames().count(QStringLiteral("0MP01")), 2);
        QVERIFY(firstMoveOver >= 0);
        const qint64 dwell = secondMoveStarted - firstMoveOver;
        QVERIFY2(dwell >= 490 && dwell < 1500, qPrintable(QString::number(dwell)));
        QVERIFY(!run.Timer2.isActive());
        QVERIFY(!state.mDwellOver);
    }

    void stopDuringMoveLetsItComplete()
    {
        OpDataRig rig;
        MoveTestState state;
        rig.view.shown.optCNT = true;
        rig.answer("0RA", "0RA1");
        scriptMove(rig, 3);
        scriptMove(rig);
        MoveRun run(rig.ctx, state, rig.view);
        connect(&rig.link, &Link::frameSent, &run, [&](const QByteArray& frame) {
            if (frame.startsWith("0MP01"))
                run.stop();
        });

        run.run();

        QCOMPARE(rig.frames(), (QStringList{"0RA", "0MP01", "0RA", "0RA", "0RA", "0RA"}));
        QVERIFY(state.mStopRequest);
        QCOMPARE(state.mMoveNo, 2);
        QCOMPARE(rig.lock.calls, MoveLocked);
    }

    void stopDuringDwellEndsAtOnce()
    {
        OpDataRig rig;
        MoveTestState state;
        rig.view.shown.optCNT = true;
        rig.view.shown.chkTimerUse = true;
        rig.view.shown.txtTimer = QStringLiteral("600");
        rig.answer("0RA", "0RA1");
        scriptMove(rig);
        scriptMove(rig);
        MoveRun run(rig.ctx, state, rig.view);
        connect(&run, &MoveRun::moveFinished, &run, [&] {
            QTimer::singleShot(100, &run, [&] { run.stop(); });
        });

        QElapsedTimer clock;
        clock.start();
        run.run();

        QVERIFY2(clock.elapsed() < 5000, "a one-minute dwell was cut short");
        QCOMPARE(rig.frames().count(QStringLiteral("0MP01")), 1);
        QVERIFY(!run.Timer2.isActive());
    }

    void stoppedSeriesStartsAgainAtOne()
    {
        OpDataRig rig;
        MoveTestState state;
        state.mMoveNo = 7;
        state.mStopRequest = true;
        state.mStopOther = true;
        rig.view.shown.optCNT = true;
        rig.answer("0RA", "0RA1");
        for (int i = 0; i < 15; ++i)
            scriptMove(rig);
        MoveRun run(rig.ctx, state, rig.view);

        run.run();

        QCOMPARE(rig.frames().count(QStringLiteral("0MP01")), 15);
        QVERIFY(!state.mStopRequest);
        QVERIFY(!state.mStopOther);
        QCOMPARE(state.mMoveNo, 1);
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
        OpDataRig rig;
        MoveTestState state;
        rig.answer("0RA", status.constData());

        MoveRun(rig.ctx, state, rig.view).run();

        QCOMPARE(rig.frames(), QStringList{"0RA"});
        QVERIFY(rig.prompter.shown.isEmpty());
        QCOMPARE(rig.lock.calls, MoveLocked);
        QVERIFY(!rig.port.isOpen());
    }

    void statusFailureEndsTheRun()
    {
        OpDataRig rig;
        MoveTestState state;
        rig.view.shown.optCNT = true;
        rig.answer("0RA", "0RA1");
        rig.answer("0MP01", "0MP01");
        rig.answer("0RA", "0RA5");
        for (int i = 0; i < 3; ++i)
            scriptMove(rig);

        MoveRun(rig.ctx, state, rig.view).run();

        QCOMPARE(rig.frames(), (QStringList{"0RA", "0MP01", "0RA"}));
        QCOMPARE(state.mMoveNo, 1);
        QVERIFY(state.mMoving);
    }

    void closingTheProgramEndsThePolling()
    {
        OpDataRig rig;
        MoveTestState state;
        rig.view.shown.optCNT = true;
        rig.answer("0RA", "0RA1");
        rig.answer("0MP01", "0MP01");
        for (int i = 0; i < 500; ++i)
            rig.answer("0RA", "0RA0");
        MoveRun run(rig.ctx, state, rig.view);
        QTimer::singleShot(300, [] { Waiter::abortAll(); });

        QElapsedTimer clock;
        clock.start();
        run.run();

        QVERIFY2(clock.elapsed() < 2000, qPrintable(QString::number(clock.elapsed())));
        QVERIFY(!run.isRunning());
        QCOMPARE(rig.frames().count(QStringLiteral("0MP01")), 1);
        QCOMPARE(rig.lock.calls.last(), QStringLiteral("Menyu_Yuko"));
    }

    void homing()
    {
        OpDataRig rig;
        rig.answer("0CM6", "0CM6");
        rig.answer("0MP00", "0MP00");
        rig.answer("0RA", "0RA0");
        rig.answer("0RA", "0RA1");
        ProgramState::instance().gHomeFailed = true;

        Homing(rig.ctx, rig.view).run();

        QCOMPARE(rig.frames(), (QStringList{"0CM6", "0MP00", "0RA", "0RA"}));
        QVERIFY(ProgramState::instance().gHomeRequested);
        QVERIFY(!ProgramState::instance().gHomeFailed);
        QVERIFY(!ProgramState::instance().gCommBusy);
        QCOMPARE(rig.lock.calls, HomeLocked);
        QCOMPARE(rig.view.calls, QStringList{"cmdRESET 0"});
        QVERIFY(!rig.port.isOpen());
    }

    void homingBlocked()
    {
        OpDataRig rig;
        rig.answer("0CM6", "0CM6");
        rig.answer("0MP00", "0MP00");
        rig.answer("0RA", "0RA1");
        ProgramState::instance().gHomeRequestBlock = true;
        ProgramState::instance().gHomeRequested = true;

        Homing(rig.ctx, rig.view).run();

        QCOMPARE(rig.frames(), (QStringList{"0CM6", "0MP00", "0RA"}));
        QVERIFY(!ProgramState::instance().gHomeRequested);
    }

    void homingRefusedByController()
    {
        OpDataRig rig;
        rig.answer("0CM6", "0CM6");
        rig.answer("0MP00", "0%%0B3");

        Homing(rig.ctx, rig.view).run();

        QCOMPARE(rig.frames(), (QStringList{"0CM6", "0MP00"}));
        QVERIFY(!ProgramState::instance().gHomeRequested);
        QVERIFY(ProgramState::instance().gHomeFailed);
        QVERIFY(rig.alarms.alarm);
        QCOMPARE(rig.alarms.status, QStringLiteral("Homing refused while an alarm is active."));
        QCOMPARE(rig.prompter.shown.size(), 1);
        QVERIFY(rig.prompter.lastText().contains(QStringLiteral("Homing refused while an alarm is active.")));
        QCOMPARE(rig.view.calls, (QStringList{"cmdRESET 0", "cmdHOME 1"}));
        QCOMPARE(rig.lock.calls, HomeLocked);
    }

    void homingStatusFailure()
    {
        OpDataRig rig;
        rig.answer("0CM6", "0CM6");
        rig.answer("0MP00", "0MP00");
        rig.answer("0RA", "0RA9");

        Homing(rig.ctx, rig.view).run();

        QCOMPARE(rig.frames(), (QStringList{"0CM6", "0MP00", "0RA"}));
        QVERIFY(!ProgramState::instance().gHomeRequested);
        QVERIFY(!ProgramState::instance().gHomeFailed);
    }
};

QTEST_GUILESS_MAIN(TestMoveTest)
#include "tst_movetest.moc"
