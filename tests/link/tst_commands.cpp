#include "LinkRig.h"

#include "common/ControlLock.h"
#include "common/MessageTable.h"
#include "link/AlarmReset.h"
#include "link/CommandSet.h"
#include "link/SequenceContext.h"
#include "link/VersionQuery.h"

#include "support/ScriptedFileChooser.h"

#include <QTest>

#include <functional>

namespace {

using Frames = QList<QByteArray>;

// The others held off around a command of the window, as the transfers do.
const QStringList HeldAround{"CMDBTN_Muko", "tabs off", "Menyu_Muko", "CMDBTN_Yuko", "tabs on", "Menyu_Yuko"};

class RecordingLock : public ControlLock {
public:
    void CMDBTN_Muko() override { calls << "CMDBTN_Muko"; }
    void CMDBTN_Yuko() override { calls << "CMDBTN_Yuko"; }
    void Menyu_Muko() override { calls << "Menyu_Muko"; }
    void Menyu_Yuko() override { calls << "Menyu_Yuko"; }
    void setTabsEnabled(bool on) override { calls << (on ? "tabs on" : "tabs off"); }
    QStringList calls;
};

// A link rig with everything a sequence needs.
struct SequenceRig : LinkRig {
    CommandSet commands{link};
    RecordingLock lock;
    ProgressDisplay progress;
    ScriptedFileChooser files;
    SequenceContext context{link, commands, prompter, lock, progress, files};
};

using Call = std::function<int(CommandSet&)>;

const QHash<QString, Call>& routines()
{
    static const QHash<QString, Call> table{
        {"CheckCommunication", [](CommandSet& c) { return c.CheckCommunication(); }},
        {"SetCommMode 7", [](CommandSet& c) { return c.SetCommMode(7); }},
        {"SetCommMode 9", [](CommandSet& c) { return c.SetCommMode(9); }},
        {"SetCommMode -1", [](CommandSet& c) { return c.SetCommMode(-1); }},
        {"ReadParaBlock 2", [](CommandSet& c) { return c.ReadParaBlock(2, 3000); }},
        {"ReadParaBlock 1", [](CommandSet& c) { return c.ReadParaBlock(1, 2000); }},
        {"WriteParaBlock", [](CommandSet& c) { return c.WriteParaBlock("0" + QString(32, 'A')); }},
        {"WriteParaBlock7", [](CommandSet& c) { return c.WriteParaBlock7(QString(32, '1')); }},
        {"EndParaWrite", [](CommandSet& c) { return c.EndParaWrite(); }},
        {"EndParaWriteAlt", [](CommandSet& c) { return c.EndParaWriteAlt(); }},
        {"ReadPosition 1", [](CommandSet& c) { return c.ReadPosition(1); }},
        {"ReadPosition 256", [](CommandSet& c) { return c.ReadPosition(256); }},
        {"WritePosition", [](CommandSet& c) { return c.WritePosition("01012C100000000C01"); }},
        {"EndPositionWrite", [](CommandSet& c) { return c.EndPositionWrite(); }},
        {"MoveToPosition 0", [](CommandSet& c) { return c.MoveToPosition(0); }},
        {"MoveToPosition 10", [](CommandSet& c) { return c.MoveToPosition(10); }},
        {"AlarmReset", [](CommandSet& c) { return c.AlarmReset(); }},
        {"ReadInputs", [](CommandSet& c) { return c.ReadInputs(); }},
        {"ReadOutputs", [](CommandSet& c) { return c.ReadOutputs(); }},
        {"WriteOutputs", [](CommandSet& c) { return c.WriteOutputs("02"); }},
        {"ReadVersion", [](CommandSet& c) { return c.ReadVersion(); }},
        {"ReadVersionOld", [](CommandSet& c) { return c.ReadVersionOld(); }},
    };
    return table;
}

} // namespace

class TestCommands : public QObject {
    Q_OBJECT

private slots:
    // Each routine's frame, time-out and reply length: a reply of exactly
    // the expected length is accepted.
    void frames_data()
    {
        QTest::addColumn<QString>("routine");
        QTest::addColumn<QByteArray>("frame");
        QTest::addColumn<QByteArray>("reply");
        QTest::addColumn<int>("timeoutMs");
        const QByteArray hex32(32, 'F');
        QTest::newRow("0CM check") << "CheckCommunication" << QByteArray("0CM6") << QByteArray("0CM6\r\n") << 2000;
        QTest::newRow("0CM mode") << "SetCommMode 7" << QByteArray("0CM7") << QByteArray("0CM7\r\n") << 5000;
        QTest::newRow("0CM mode out of range") << "SetCommMode 9" << QByteArray("0CM0") << QByteArray("0CM0\r\n") << 5000;
        QTest::newRow("0CM negative mode") << "SetCommMode -1" << QByteArray("0CM0") << QByteArray("0CM0\r\n") << 5000;
        QTest::newRow("0RD loop") << "ReadParaBlock 2" << QByteArray("0RD2") << "0RD2" + hex32 + "\r\n" << 3000;
        QTest::newRow("0RD single") << "ReadParaBlock 1" << QByteArray("0RD1") << "0RD1" + hex32 + "\r\n" << 2000;
        QTest::newRow("0WD") << "WriteParaBlock" << "0WD0" + QByteArray(32, 'A') << QByteArray("0WD0\r\n") << 5000;
        QTest::newRow("0WD7") << "WriteParaBlock7" << "0WD7" + QByteArray(32, '1') << QByteArray("0WD7\r\n") << 5000;
        QTest::newRow("0WE") << "EndParaWrite" << QByteArray("0WE") << QByteArray("0WE\r\n") << 5000;
        QTest::newRow("0WF") << "EndParaWriteAlt" << QByteArray("0WF") << QByteArray("0WF\r\n") << 5000;
        QTest::newRow("0RP") << "ReadPosition 1" << QByteArray("0RP01") << QByteArray("0RP01012C100000000C01\r\n") << 5000;
        QTest::newRow("0RP beyond two digits sends X")
            << "ReadPosition 256" << QByteArray("0RPX") << QByteArray("0RP01012C100000000C01\r\n") << 5000;
        QTest::newRow("0WP") << "WritePosition" << QByteArray("0WP01012C100000000C01") << QByteArray("0WP01\r\n") << 5000;
        QTest::newRow("0WA") << "EndPositionWrite" << QByteArray("0WA0101") << QByteArray("0WA\r\n") << 5000;
        QTest::newRow("0MP home") << "MoveToPosition 0" << QByteArray("0MP00") << QByteArray("0MP00\r\n") << 5000;
        QTest::newRow("0MP hex") << "MoveToPosition 10" << QByteArray("0MP0A") << QByteArray("0MP0A\r\n") << 5000;
        QTest::newRow("0AR") << "AlarmReset" << QByteArray("0AR") << QByteArray("0AR\r\n") << 2000;
        QTest::newRow("0RI") << "ReadInputs" << QByteArray("0RI") << QByteArray("0RI800\r\n") << 1000;
        QTest::newRow("0RO") << "ReadOutputs" << QByteArray("0RO") << QByteArray("0RO60\r\n") << 1000;
        QTest::newRow("0WO") << "WriteOutputs" << QByteArray("0WO02") << QByteArray("0WO02\r\n") << 1000;
        QTest::newRow("0RV") << "ReadVersion" << QByteArray("0RV") << QByteArray("0RVK01100\r\n") << 5000;
        QTest::newRow("0%C") << "ReadVersionOld" << QByteArray("0%C") << QByteArray("0%CK0110000000\r\n") << 5000;
    }
    void frames()
    {
        QFETCH(QString, routine);
        QFETCH(QByteArray, frame);
        QFETCH(QByteArray, reply);
        LinkRig rig;
        CommandSet commands(rig.link);
        rig.port.answer(frame, reply);

        QCOMPARE(routines().value(routine)(commands), 0);

        QCOMPARE(rig.port.frames, Frames{frame});
        QTEST(int(rig.link.gTimeoutMs), "timeoutMs");
        QCOMPARE(commands.reply(), QString::fromLatin1(reply));
        QVERIFY(rig.prompter.shown.isEmpty());
    }

    void runStatus_data()
    {
        QTest::addColumn<QByteArray>("reply");
        QTest::addColumn<int>("status");
        QTest::newRow("moving") << QByteArray("0RA0\r\n") << 0;
        QTest::newRow("1") << QByteArray("0RA1\r\n") << 1;
        QTest::newRow("2") << QByteArray("0RA2\r\n") << 2;
        QTest::newRow("3") << QByteArray("0RA3\r\n") << 3;
        QTest::newRow("5 is not a status") << QByteArray("0RA5\r\n") << -1;
        QTest::newRow("letter") << QByteArray("0RAA\r\n") << -1;
        QTest::newRow("error reply") << QByteArray("0%%101\r\n") << -1;
    }
    void runStatus()
    {
        QFETCH(QByteArray, reply);
        LinkRig rig;
        CommandSet commands(rig.link);
        rig.port.answer("0RA", reply);
        QTEST(commands.ReadRunStatus(), "status");
        QCOMPARE(rig.port.frames, Frames{"0RA"});
    }

    void fieldsAreOneBased()
    {
        LinkRig rig;
        CommandSet commands(rig.link);
        rig.port.answer("0RP01", "0RP01012C100000000C01\r\n");
        QCOMPARE(commands.ReadPosition(1), 0);
        QCOMPARE(commands.field(1, 3), QStringLiteral("0RP"));
        QCOMPARE(commands.field(6, 4), QStringLiteral("012C"));
        QCOMPARE(commands.field(18, 2), QStringLiteral("0C"));
        QCOMPARE(commands.field(22, 5), QStringLiteral("\r\n"));
    }

    void alarmResetClearsTheLamp()
    {
        SequenceRig rig;
        rig.alarms.alarm = true;
        rig.alarms.status = QStringLiteral("Overload alarm.");
        rig.port.answer("0AR", "0AR\r\n");

        QCOMPARE(AlarmReset(rig.context, rig.alarms).run(), 0);

        QVERIFY(!rig.alarms.alarm);
        QCOMPARE(rig.alarms.status, QString());
        QCOMPARE(rig.port.frames, Frames{"0AR"});
        QCOMPARE(rig.lock.calls, HeldAround);
        QVERIFY(!rig.link.isPortOpen());
        QVERIFY(!ProgramState::instance().gCommBusy);
    }

    void failedAlarmResetKeepsTheLamp()
    {
        SequenceRig rig;
        rig.alarms.alarm = true;
        rig.port.answer("0AR", "0%%301\r\n");
        ProgramState::instance().gPortOccupy = false;

        QCOMPARE(AlarmReset(rig.context, rig.alarms).run(), 1);

        QVERIFY(rig.alarms.alarm);
        QCOMPARE(rig.alarms.status, QStringLiteral("Overload alarm."));
        QCOMPARE(rig.lock.calls, HeldAround);
        QVERIFY(!rig.link.isPortOpen());
    }

    void versionQuery()
    {
        SequenceRig rig;
        rig.port.answer("0CM6", "0CM6\r\n");
        rig.port.answer("0RV", "0RVK01123\r\n");
        VersionQuery query(rig.context);

        QCOMPARE(query.run(), 0);

        QCOMPARE(rig.port.frames, (Frames{"0CM6", "0RV"}));
        QCOMPARE(query.version(), QStringLiteral("1.23"));
        QCOMPARE(query.typeCode(), QStringLiteral("K01"));
        QCOMPARE(rig.prompter.texts(), QStringList{"The version of this controller is 1.23."});
        QCOMPARE(rig.lock.calls, HeldAround);
        QVERIFY(!rig.link.isPortOpen());
    }

    // A controller that does not know "0RV" is asked in the older form,
    // after its error reply has been shown.
    void versionQueryFallsBack()
    {
        SequenceRig rig;
        rig.port.answer("0CM6", "0CM6\r\n");
        rig.port.answer("0RV", "0%%101\r\n");
        rig.port.answer("0%C", "0%CK0121000000\r\n");
        VersionQuery query(rig.context);

        QCOMPARE(query.run(), 0);

        QCOMPARE(rig.port.frames, (Frames{"0CM6", "0RV", "0%C"}));
        QCOMPARE(rig.prompter.texts(),
                 (QStringList{"Communication error occurs!\r\nError No.101\r\n[Unknown command.]",
                              "The version of this controller is 2.10."}));
    }

    void versionQueryStops_data()
    {
        QTest::addColumn<Frames>("requests");
        QTest::addColumn<Frames>("replies");
        QTest::addColumn<Frames>("sent");
        QTest::newRow("check refused")
            << Frames{"0CM6"} << Frames{"0%%101\r\n"} << Frames{"0CM6"};
        QTest::newRow("garbled answer to 0RV")
            << Frames{"0CM6", "0RV", "0CM6"} << Frames{"0CM6\r\n", "0RVK01\r\n", "0CM6\r\n"}
            << Frames{"0CM6", "0RV", "0CM6"};
        QTest::newRow("older form refused too")
            << Frames{"0CM6", "0RV", "0%C"} << Frames{"0CM6\r\n", "0%%101\r\n", "0%%101\r\n"}
            << Frames{"0CM6", "0RV", "0%C"};
    }
    void versionQueryStops()
    {
        QFETCH(Frames, requests);
        QFETCH(Frames, replies);
        SequenceRig rig;
        for (int i = 0; i < requests.size(); ++i)
            rig.port.answer(requests[i], replies[i]);

        QCOMPARE(VersionQuery(rig.context).run(), 1);

        QTEST(rig.port.frames, "sent");
        QVERIFY(!rig.prompter.lastText().startsWith(QStringLiteral("The version")));
        QCOMPARE(rig.lock.calls, HeldAround);
        QVERIFY(!ProgramState::instance().gCommBusy);
    }

    // While another command runs nothing of it is touched (frames, controls,
    // busy flag, port), and the user is told why.
    void refusedWhileAnotherRuns_data()
    {
        QTest::addColumn<bool>("version");
        QTest::newRow("version query") << true;
        QTest::newRow("alarm reset") << false;
    }
    void refusedWhileAnotherRuns()
    {
        QFETCH(bool, version);
        SequenceRig rig;
        QCOMPARE(rig.link.OpenCommPort(), 0);
        ProgramState::instance().gCommBusy = true;

        QCOMPARE(version ? VersionQuery(rig.context).run() : AlarmReset(rig.context, rig.alarms).run(), 1);

        QVERIFY(rig.port.frames.isEmpty());
        QVERIFY(rig.lock.calls.isEmpty());
        QVERIFY(ProgramState::instance().gCommBusy);
        QVERIFY(rig.link.isPortOpen());
        QCOMPARE(rig.prompter.texts(), QStringList{Msg(5200)});
    }
};

QTEST_GUILESS_MAIN(TestCommands)
#include "tst_commands.moc"
