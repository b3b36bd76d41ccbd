#include "SequenceRig.h"

#include "common/MessageTable.h"
#include "link/AlarmReset.h"
#include "link/VersionQuery.h"

#include <QTest>

namespace {

using Frames = QList<QByteArray>;

// The others held off around a command of the window, as the transfers do.
const QStringList HeldAround{"CMDBTN_Muko", "tabs off", "Menyu_Muko", "CMDBTN_Yuko", "tabs on", "Menyu_Yuko"};

using Routine = int (*)(CommandSet&);

#define ROUTINE(call) Routine([](CommandSet& c) { return c.call; })

} // namespace

Q_DECLARE_METATYPE(Routine)

class TestCommands : public QObject {
    Q_OBJECT

private slots:
    // Each routine's frame, time-out and reply length.
    void frames_data()
    {
        QTest::addColumn<Routine>("routine");
        QTest::addColumn<QByteArray>("frame");
        QTest::addColumn<QByteArray>("reply");
        QTest::addColumn<int>("timeoutMs");
        const QByteArray hex32(32, 'F');
        QTest::newRow("0CM check") << ROUTINE(CheckCommunication()) << QByteArray("0CM6") << QByteArray("0CM6\r\n") << 2000;
        QTest::newRow("0RD") << ROUTINE(ReadParaBlock(2, 3000)) << QByteArray("0RD2") << "0RD2" + hex32 + "\r\n"
                             << 3000;
        QTest::newRow("0WD") << ROUTINE(WriteParaBlock("0" + QString(32, 'A'))) << "0WD0" + QByteArray(32, 'A')
                             << QByteArray("0WD0\r\n") << 5000;
        QTest::newRow("0WD7") << ROUTINE(WriteParaBlock7(QString(32, '1'))) << "0WD7" + QByteArray(32, '1')
                              << QByteArray("0WD7\r\n") << 5000;
        QTest::newRow("0RP") << ROUTINE(ReadPosition(1)) << QByteArray("0RP01") << QByteArray("0RP01012C100000000C01\r\n") << 5000;
        QTest::newRow("0MP") << ROUTINE(MoveToPosition(10)) << QByteArray("0MP0A") << QByteArray("0MP0A\r\n") << 5000;
        QTest::newRow("0AR") << ROUTINE(AlarmReset()) << QByteArray("0AR") << QByteArray("0AR\r\n") << 2000;
        QTest::newRow("0RI") << ROUTINE(ReadInputs()) << QByteArray("0RI") << QByteArray("0RI800\r\n") << 1000;
        QTest::newRow("0RO") << ROUTINE(ReadOutputs()) << QByteArray("0RO") << QByteArray("0RO60\r\n") << 1000;
        QTest::newRow("0WO") << ROUTINE(WriteOutputs("02")) << QByteArray("0WO02") << QByteArray("0WO02\r\n") << 1000;
    }
    void frames()
    {
        QFETCH(Routine, routine);
        QFETCH(QByteArray, frame);
        QFETCH(QByteArray, reply);
        LinkRig rig;
        CommandSet commands(rig.link);
        rig.port.answer(frame, reply);

        QCOMPARE(routine(commands), 0);

        QCOMPARE(rig.port.frames, Frames{frame});
        QTEST(rig.link.timeoutMs(), "timeoutMs");
        QCOMPARE(commands.reply(), QString::fromLatin1(reply));
    }

    // A refused reset leaves the lamp lit. (Taken, it goes out: the window's
    // alarm test in tests/gui.)
    void refusedAlarmReset()
    {
        SequenceRig rig;
        rig.alarms.alarm = true;
        rig.alarms.status = QStringLiteral("Overload alarm.");
        rig.port.answer("0AR", "0%%301\r\n");

        QCOMPARE(AlarmReset(rig.ctx, rig.alarms).run(), 1);

        QVERIFY(rig.alarms.alarm);
        QCOMPARE(rig.alarms.status, QStringLiteral("Overload alarm."));
        QCOMPARE(rig.port.frames, Frames{"0AR"});
        QCOMPARE(rig.lock.calls, HeldAround);
    }

    // Only an error reply to "0RV" leads to the older form, whose answered
    // run is judged by tests/cli and the wire runs.
    void versionQuery_data()
    {
        QTest::addColumn<Frames>("sent");
        QTest::addColumn<Frames>("replies");
        QTest::addColumn<int>("result");
        QTest::addColumn<QStringList>("told");
        QTest::newRow("check refused") << Frames{"0CM6"} << Frames{"0%%101\r\n"} << 1 << QStringList{UnknownText};
        QTest::newRow("garbled answer to 0RV") << Frames{"0CM6", "0RV", "0CM6"}
                                               << Frames{"0CM6\r\n", "0RVK01\r\n", "0CM6\r\n"} << 1 << QStringList{LengthError};
        QTest::newRow("older form refused too") << Frames{"0CM6", "0RV", "0%C"}
                                                << Frames{"0CM6\r\n", "0%%101\r\n", "0%%101\r\n"} << 1
                                                << QStringList{UnknownText, UnknownText};
    }
    void versionQuery()
    {
        QFETCH(Frames, sent);
        QFETCH(Frames, replies);
        SequenceRig rig;
        for (int i = 0; i < sent.size(); ++i)
            rig.port.answer(sent[i], replies[i]);

        QTEST(VersionQuery(rig.ctx).run(), "result");

        QCOMPARE(rig.port.frames, sent);
        QTEST(rig.prompter.texts(), "told");
        QCOMPARE(rig.lock.calls, HeldAround);
        QVERIFY(!rig.link.isPortOpen());
        QVERIFY(!ProgramState::instance().gCommBusy);
    }

    // While another command runs nothing is touched, and the user is told
    // why. (The version query: tests/gui's commands refused during the monitor.)
    void resetRefusedWhileAnotherRuns()
    {
        SequenceRig rig;
        QCOMPARE(rig.link.OpenCommPort(), 0);
        ProgramState::instance().gCommBusy = true;

        QCOMPARE(AlarmReset(rig.ctx, rig.alarms).run(), 1);

        QVERIFY(rig.port.frames.isEmpty());
        QVERIFY(rig.lock.calls.isEmpty());
        QVERIFY(ProgramState::instance().gCommBusy);
        QVERIFY(rig.link.isPortOpen());
        QCOMPARE(rig.prompter.texts(), QStringList{Msg(5200)});
    }
};

QTEST_GUILESS_MAIN(TestCommands)
#include "tst_commands.moc"
