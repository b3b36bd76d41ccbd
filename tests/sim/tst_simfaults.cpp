#include "ControllerClient.h"
#include "FactoryMemory.h"

#include "sim/SimController.h"

#include <QSignalSpy>
#include <QTest>

Q_DECLARE_METATYPE(SimFaults)

using namespace FactoryMemory;

namespace {

CommandMatch match(const char* text)
{
    return *CommandMatch::parse(QString::fromLatin1(text));
}

// Faults with one kind set for the given commands.
SimFaults on(CommandMatch SimFaults::*kind, const char* commands)
{
    SimFaults faults;
    faults.*kind = match(commands);
    return faults;
}

} // namespace

class TestSimFaults : public QObject {
    Q_OBJECT

private slots:
    void faultShapesTheReply_data()
    {
        QTest::addColumn<SimFaults>("faults");
        QTest::addColumn<QByteArray>("request");
        QTest::addColumn<QByteArray>("reply");

        const SimFaults extraOnRA = on(&SimFaults::extraChar, "RA");
        QTest::newRow("extra character") << extraOnRA << QByteArray("0RA") << QByteArray("0RA10\r\n");
        QTest::newRow("extra character, other command") << extraOnRA << QByteArray("0CM6") << QByteArray("0CM6\r\n");
        QTest::newRow("extra character on all")
            << on(&SimFaults::extraChar, "all") << QByteArray("0CM6") << QByteArray("0CM60\r\n");
        QTest::newRow("wrong echo on status")
            << on(&SimFaults::wrongEcho, "RA") << QByteArray("0RA") << QByteArray("0RD1\r\n");
        QTest::newRow("wrong echo on version")
            << on(&SimFaults::wrongEcho, "RV,RA") << QByteArray("0RV") << QByteArray("0RAK01100\r\n");
        SimFaults errorOnRV = on(&SimFaults::errorReply, "RV");
        errorOnRV.errorCode = "101";
        QTest::newRow("error reply") << errorOnRV << QByteArray("0RV") << QByteArray("0%%101\r\n");
        QTest::newRow("error reply, other command") << errorOnRV << QByteArray("0%C") << QByteArray("0%CK0110000000\r\n");
        QTest::newRow("garbage")
            << on(&SimFaults::garbage, "RA") << QByteArray("0RA") << SimFaults::garbageBytes() + "0RA1\r\n";
    }

    void faultShapesTheReply()
    {
        QFETCH(SimFaults, faults);
        QFETCH(QByteArray, request);
        SimLine line(faults);
        QTEST(line.client.ask(request), "reply");
    }

    void silencedRequestIsLost()
    {
        SimLine line(on(&SimFaults::silence, "RA,WD"));
        QCOMPARE(line.client.ask("0RA", 150), QByteArray());
        QCOMPARE(line.client.ask("0WD0" + OtherBlock, 150), QByteArray());
        QCOMPARE(line.client.ask("0RD0"), "0RD0" + Block0 + "\r\n");

        line.controller.setFaults(on(&SimFaults::silence, "all"));
        QCOMPARE(line.client.ask("0RV", 150), QByteArray());
    }

    void lateAnswer()
    {
        SimLine line(faultsWith([](SimFaults& f) { f.late = match("RA"); f.lateMs = 80; }));
        QCOMPARE(line.client.ask("0RA"), QByteArray("0RA1\r\n"));
        QVERIFY2(line.client.arrivalsMs.first() >= 78 && line.client.arrivalsMs.first() < 150,
                 QByteArray::number(line.client.arrivalsMs.first()));
        line.client.ask("0RV");
        QVERIFY2(line.client.arrivalsMs.first() < 30, QByteArray::number(line.client.arrivalsMs.first()));
    }

    void splitLineEnd()
    {
        SimLine line(on(&SimFaults::splitCrLf, "RA"));
        QCOMPARE(line.client.ask("0RA"), QByteArray("0RA1\r\n"));
        QCOMPARE(line.client.pieces, (QList<QByteArray>{"0RA1\r", "\n"}));
        const qint64 gap = line.client.arrivalsMs[1] - line.client.arrivalsMs[0];
        QVERIFY2(gap >= SimFaults::SplitGapMs - 2, QByteArray::number(gap));
    }

    void refusedRequestIsNotExecuted()
    {
        SimLine line(faultsWith([](SimFaults& f) { f.errorReply = match("WD"); f.errorCode = "104"; }));
        QCOMPARE(line.client.ask("0WD0" + OtherBlock), QByteArray("0%%104\r\n"));
        QCOMPARE(line.client.ask("0RD0"), "0RD0" + Block0 + "\r\n");
    }

    void restartCutsTheReplyAndForgetsUnstoredData()
    {
        SimLine line(faultsWith([](SimFaults& f) { f.restartAfter = 3; }));
        QSignalSpy restarted(&line.controller, &SimController::restarted);
        ControllerClient& client = line.client;

        QCOMPARE(client.ask("0WD0" + OtherBlock), QByteArray("0WD0\r\n"));
        QCOMPARE(client.ask("0WO03"), QByteArray("0WO03\r\n"));
        // Half of the 36 characters before CR LF, and no line end.
        QCOMPARE(client.ask("0RD0", 150), QByteArray("0RD0" + OtherBlock.left(14)));
        QCOMPARE(restarted.count(), 1);

        QCOMPARE(client.ask("0RD0"), "0RD0" + Block0 + "\r\n");
        QCOMPARE(client.ask("0RO"), QByteArray("0RO30\r\n"));
        // Only once.
        QCOMPARE(client.ask("0RA"), QByteArray("0RA1\r\n"));
        QCOMPARE(client.ask("0RA"), QByteArray("0RA1\r\n"));
        QCOMPARE(restarted.count(), 1);
    }

    void unsolicitedAlarmIsNotShaped()
    {
        SimLine line(faultsWith([](SimFaults& f) { f.extraChar = match("all"); f.wrongEcho = match("all"); }));
        line.client.send({});
        line.controller.raiseAlarm("301");
        QVERIFY(line.client.waitForLine());
        QCOMPARE(line.client.received, QByteArray("0%%301\r\n"));
    }
};

QTEST_GUILESS_MAIN(TestSimFaults)
#include "tst_simfaults.moc"
