#include "SequenceRig.h"

#include "common/MessageTable.h"
#include "link/AlarmReset.h"
#include "link/CommandCatalogue.h"
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
        QTest::addColumn<QString>("sent"); // what the catalogue says of the frames
        QTest::addColumn<QString>("answered");
        const QByteArray hex32(32, 'F');
        QTest::newRow("0CM check") << ROUTINE(CheckCommunication()) << QByteArray("0CM6") << QByteArray("0CM6\r\n") << 2000 << QStringLiteral("communication check") << QStringLiteral("acknowledged");
        QTest::newRow("0RD") << ROUTINE(ReadParaBlock(2, 3000)) << QByteArray("0RD2") << "0RD2" + hex32 + "\r\n"
                             << 3000 << QStringLiteral("read parameter block 2") << QStringLiteral("parameter block 2 data");
        QTest::newRow("0WD") << ROUTINE(WriteParaBlock("0" + QString(32, 'A'))) << "0WD0" + QByteArray(32, 'A')
                             << QByteArray("0WD0\r\n") << 5000 << QStringLiteral("write parameter block 0") << QStringLiteral("block 0 accepted");
        QTest::newRow("0WD7") << ROUTINE(WriteParaBlock7(QString(32, '1'))) << "0WD7" + QByteArray(32, '1')
                              << QByteArray("0WD7\r\n") << 5000 << QStringLiteral("write parameter block 7") << QStringLiteral("block 7 accepted");
        QTest::newRow("0RP") << ROUTINE(ReadPosition(1)) << QByteArray("0RP01") << QByteArray("0RP01012C100000000C01\r\n") << 5000 << QStringLiteral("read operation data 01") << QStringLiteral("operation data record");
        QTest::newRow("0MP") << ROUTINE(MoveToPosition(10)) << QByteArray("0MP0A") << QByteArray("0MP0A\r\n") << 5000 << QStringLiteral("move to position 0A") << QStringLiteral("acknowledged");
        QTest::newRow("0AR") << ROUTINE(AlarmReset()) << QByteArray("0AR") << QByteArray("0AR\r\n") << 2000 << QStringLiteral("alarm reset") << QStringLiteral("acknowledged");
        QTest::newRow("0RI") << ROUTINE(ReadInputs()) << QByteArray("0RI") << QByteArray("0RI800\r\n") << 1000 << QStringLiteral("read inputs") << QStringLiteral("inputs 800");
        QTest::newRow("0RO") << ROUTINE(ReadOutputs()) << QByteArray("0RO") << QByteArray("0RO60\r\n") << 1000 << QStringLiteral("read outputs") << QStringLiteral("outputs 60");
        QTest::newRow("0WO") << ROUTINE(WriteOutputs("02")) << QByteArray("0WO02") << QByteArray("0WO02\r\n") << 1000 << QStringLiteral("set outputs 02") << QStringLiteral("outputs 02");
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
        QTEST(CommandCatalogue::meaningOfRequest(frame), "sent");
        QTEST(CommandCatalogue::meaningOfReply(reply.chopped(2), rig.errors), "answered");
    }

    // The lines whose meaning depends on their data.
    void meanings_data()
    {
        QTest::addColumn<bool>("sent");
        QTest::addColumn<QByteArray>("frame");
        QTest::addColumn<QString>("meaning");
        QTest::newRow("mode") << true << QByteArray("0CM7") << QStringLiteral("switch to mode 7");
        QTest::newRow("not a command") << true << QByteArray("0ZZ") << QStringLiteral("unknown command");
        QTest::newRow("alarm status") << false << QByteArray("0RA3") << QStringLiteral("status: stopped short of its end (alarm)");
        QTest::newRow("other status") << false << QByteArray("0RA5") << QStringLiteral("status: unknown (5)");
        QTest::newRow("listed error") << false << QByteArray("0%%131") << QStringLiteral("error reply 131 (Unknown command.)");
        QTest::newRow("unlisted error") << false << QByteArray("0%%999")
                                        << QStringLiteral("error reply 999 (No error information in the error List)");
        QTest::newRow("version") << false << QByteArray("0RVK01100") << QStringLiteral("version 1.00 (type K01)");
        QTest::newRow("no command's") << false << QByteArray("0XY") << QStringLiteral("not a reply to any command");
    }
    void meanings()
    {
        QFETCH(bool, sent);
        QFETCH(QByteArray, frame);
        LinkRig rig;
        QTEST(sent ? CommandCatalogue::meaningOfRequest(frame) : CommandCatalogue::meaningOfReply(frame, rig.errors), "meaning");
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
