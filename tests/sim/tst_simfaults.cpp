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

} // namespace

class TestSimFaults : public QObject {
    Q_OBJECT

private slots:
    void faultShapesTheReply_data()
    {
        QTest::addColumn<SimFaults>("faults");
        QTest::addColumn<QByteArray>("request");
        QTest::addColumn<QByteArray>("reply");

        SimFaults f;
        f.extraChar = match("RA");
        QTest::newRow("extra character") << f << QByteArray("0RA") << QByteArray("0RA10\r\n");
        QTest::newRow("extra character, other command") << f << QByteArray("0CM6") << QByteArray("0CM6\r\n");

        f = {};
        f.extraChar = match("all");
        QTest::newRow("extra character on all") << f << QByteArray("0CM6") << QByteArray("0CM60\r\n");

        f = {};
        f.wrongEcho = match("RA");
        QTest::newRow("wrong echo on status") << f << QByteArray("0RA") << QByteArray("0RD1\r\n");
        f.wrongEcho = match("RV,RA");
        QTest::newRow("wrong echo on version") << f << QByteArray("0RV") << QByteArray("0RAK01100\r\n");

        f = {};
        f.errorReply = match("RV");
        f.errorCode = "101";
        QTest::newRow("error reply") << f << QByteArray("0RV") << QByteArray("0%%101\r\n");
        QTest::newRow("error reply, other command") << f << QByteArray("0%C") << QByteArray("0%CK0110000000\r\n");

        f = {};
        f.garbage = match("RA");
        QTest::newRow("garbage") << f << QByteArray("0RA") << SimFaults::garbageBytes() + "0RA1\r\n";
    }
    void faultShapesTheReply()
    {
        QFETCH(SimFaults, faults);
        QFETCH(QByteArray, request);

        SimController controller;
        controller.setFaults(faults);
        ControllerClient client(controller);
        QTEST(client.ask(request), "reply");
    }

    void silencedRequestIsLost()
    {
        SimController controller;
        SimFaults faults;
        faults.silence = match("RA,WD");
        controller.setFaults(faults);
        ControllerClient client(controller);

        QCOMPARE(client.ask("0RA", 150), QByteArray());
        QCOMPARE(client.ask("0WD0" + OtherBlock, 150), QByteArray());
        QCOMPARE(client.ask("0RD0"), "0RD0" + Block0 + "\r\n");

        faults.silence = match("all");
        controller.setFaults(faults);
        QCOMPARE(client.ask("0RV", 150), QByteArray());
    }

    void lateAnswer()
    {
        SimController controller;
        SimFaults faults;
        faults.late = match("RA");
        faults.lateMs = 80;
        controller.setFaults(faults);
        ControllerClient client(controller);

        QCOMPARE(client.ask("0RA"), QByteArray("0RA1\r\n"));
        QVERIFY2(client.arrivalsMs.first() >= 78 && client.arrivalsMs.first() < 150,
                 QByteArray::number(client.arrivalsMs.first()));
        client.ask("0RV");
        QVERIFY2(client.arrivalsMs.first() < 30, QByteArray::number(client.arrivalsMs.first()));
    }

    void splitLineEnd()
    {
        SimController controller;
        SimFaults faults;
        faults.splitCrLf = match("RA");
        controller.setFaults(faults);
        ControllerClient client(controller);

        QCOMPARE(client.ask("0RA"), QByteArray("0RA1\r\n"));
        QCOMPARE(client.pieces, (QList<QByteArray>{"0RA1\r", "\n"}));
        const qint64 gap = client.arrivalsMs[1] - client.arrivalsMs[0];
        QVERIFY2(gap >= SimFaults::SplitGapMs - 2, QByteArray::number(gap));
    }

    void refusedRequestIsNotExecuted()
    {
        SimController controller;
        SimFaults faults;
        faults.errorReply = match("WD");
        faults.errorCode = "104";
        controller.setFaults(faults);
        ControllerClient client(controller);

        QCOMPARE(client.ask("0WD0" + OtherBlock), QByteArray("0%%104\r\n"));
        QCOMPARE(client.ask("0RD0"), "0RD0" + Block0 + "\r\n");
    }

    void restartCutsTheReplyAndForgetsUnstoredData()
    {
        SimController controller;
        SimFaults faults;
        faults.restartAfter = 3;
        controller.setFaults(faults);
        QSignalSpy restarted(&controller, &SimController::restarted);
        ControllerClient client(controller);

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
        SimController controller;
        SimFaults faults;
        faults.extraChar = match("all");
        faults.wrongEcho = match("all");
        controller.setFaults(faults);
        ControllerClient client(controller);
        client.send({});
        controller.raiseAlarm("301");
        QVERIFY(client.waitForLine());
        QCOMPARE(client.received, QByteArray("0%%301\r\n"));
    }
};

QTEST_GUILESS_MAIN(TestSimFaults)
#include "tst_simfaults.moc"
