#include "opdata/Homing.h"
#include "opdata/MoveRun.h"
#include "opdata/MoveTestState.h"

#include "OpDataRig.h"

#include <QElapsedTimer>
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

    // Homing that the controller accepts; the status polls decide the end.
    // STOP, pressed at the last of them, gives up only a stop short of home
    // (offered then), and says so.
    void homing_data()
    {
        QTest::addColumn<QList<QByteArray>>("statuses");
        QTest::addColumn<bool>("blocked");
        QTest::addColumn<bool>("requested");
        QTest::addColumn<QString>("stopOffered");
        QTest::addColumn<QString>("message");
        const QString givenUp = QStringLiteral("Homing did not finish: the controller stopped part-way (status %1). "
                                               "Remove the cause; an alarm is cleared with the alarm reset.");
        QTest::newRow("reaches home") << QList<QByteArray>{"0RA0", "0RA1"} << false << true << "" << "";
        QTest::newRow("request blocked") << QList<QByteArray>{"0RA1"} << true << false << "" << "";
        QTest::newRow("status failure") << QList<QByteArray>{"0RA9"} << false << false << "" << "";
        QTest::newRow("alarm") << QList<QByteArray>{"0RA0", "0RA3", "0RA3"} << false << false << "cmdSTOP 1"
                               << givenUp.arg(3);
        QTest::newRow("STOP input") << QList<QByteArray>{"0RA2", "0RA2"} << false << false << "cmdSTOP 1"
                                    << givenUp.arg(2);
    }
    void homing()
    {
        QFETCH(QList<QByteArray>, statuses);
        QFETCH(bool, blocked);
        QFETCH(QString, stopOffered);
        OpDataRig rig;
        scriptHoming(rig);
        for (const QByteArray& status : statuses)
            rig.answer("0RA", status.constData());
        ProgramState::instance().gHomeFailed = true;
        ProgramState::instance().gHomeRequestBlock = blocked;
        ProgramState::instance().gHomeRequested = blocked;
        Homing homing(rig.ctx, rig.view);
        connect(&rig.link, &Link::lineReceived, &rig.link, [&] {
            if (rig.port.frames.size() == 2 + statuses.size())
                homing.stop();
        });

        homing.run();

        QCOMPARE(rig.frames(), QStringList({"0CM6", "0MP00"}) + QStringList(statuses.size(), "0RA"));
        QTEST(ProgramState::instance().gHomeRequested, "requested");
        QVERIFY(!ProgramState::instance().gHomeFailed);
        QVERIFY(!ProgramState::instance().gCommBusy);
        QCOMPARE(rig.lock.calls, HomeLocked);
        QCOMPARE(rig.view.calls, QStringList({"cmdRESET 0", stopOffered}).filter(QStringLiteral("cmd")));
        QTEST(rig.prompter.texts().join('|'), "message");
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
