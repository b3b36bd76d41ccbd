#include "ControllerClient.h"
#include "FactoryMemory.h"

#include "sim/SimController.h"

#include <QTest>

using namespace FactoryMemory;

namespace {

QByteArray errorLine(const char* code)
{
    return QByteArray("0%%") + code + "\r\n";
}

} // namespace

class TestSimController : public QObject {
    Q_OBJECT

private slots:
    void repliesAtRest_data()
    {
        QTest::addColumn<QByteArray>("request");
        QTest::addColumn<QByteArray>("reply");

        QTest::newRow("check") << QByteArray("0CM6") << QByteArray("0CM6\r\n");
        QTest::newRow("monitor mode") << QByteArray("0CM7") << QByteArray("0CM7\r\n");
        QTest::newRow("normal mode") << QByteArray("0CM0") << QByteArray("0CM0\r\n");
        QTest::newRow("status at power-up") << QByteArray("0RA") << QByteArray("0RA1\r\n");
        QTest::newRow("block 0") << QByteArray("0RD0") << "0RD0" + Block0 + "\r\n";
        QTest::newRow("block 1") << QByteArray("0RD1") << "0RD1" + Block1 + "\r\n";
        QTest::newRow("block 2") << QByteArray("0RD2") << "0RD2" + Block2 + "\r\n";
        QTest::newRow("block 7") << QByteArray("0RD7") << "0RD7" + Block7 + "\r\n";
        QTest::newRow("write block") << "0WD1" + OtherBlock << QByteArray("0WD1\r\n");
        QTest::newRow("write block 7") << "0WD7" + OtherBlock << QByteArray("0WD7\r\n");
        QTest::newRow("store blocks") << QByteArray("0WE") << QByteArray("0WE\r\n");
        QTest::newRow("store block 7") << QByteArray("0WF") << QByteArray("0WF\r\n");
        QTest::newRow("record 1") << QByteArray("0RP01") << "0RP01" + Record1 + "\r\n";
        QTest::newRow("record 63") << QByteArray("0RP3F") << QByteArray("0RP3F0000000000000000\r\n");
        QTest::newRow("write record") << QByteArray("0WP012328100000000C01") << QByteArray("0WP01\r\n");
        QTest::newRow("store record") << QByteArray("0WA0101") << QByteArray("0WA\r\n");
        QTest::newRow("homing") << QByteArray("0MP00") << QByteArray("0MP00\r\n");
        QTest::newRow("indexing") << QByteArray("0MP01") << QByteArray("0MP01\r\n");
        QTest::newRow("alarm reset") << QByteArray("0AR") << QByteArray("0AR\r\n");
        QTest::newRow("inputs") << QByteArray("0RI") << QByteArray("0RI000\r\n");
        QTest::newRow("outputs: RDY, IN-P") << QByteArray("0RO") << QByteArray("0RO30\r\n");
        QTest::newRow("write outputs") << QByteArray("0WO02") << QByteArray("0WO02\r\n");
        QTest::newRow("version") << QByteArray("0RV") << QByteArray("0RVK01100\r\n");
        QTest::newRow("old version form") << QByteArray("0%C") << QByteArray("0%CK0110000000\r\n");
    }
    void repliesAtRest()
    {
        QFETCH(QByteArray, request);

        SimController controller;
        ControllerClient client(controller);
        QTEST(client.ask(request), "reply");
    }

    void malformedRequests_data()
    {
        QTest::addColumn<QByteArray>("request");
        QTest::addColumn<QByteArray>("code");

        QTest::newRow("unknown letters") << QByteArray("0XY") << QByteArray("101");
        QTest::newRow("lower-case letters") << QByteArray("0rd0") << QByteArray("101");
        QTest::newRow("too short") << QByteArray("0R") << QByteArray("101");
        QTest::newRow("error reply as request") << QByteArray("0%%101") << QByteArray("101");
        QTest::newRow("record X") << QByteArray("0RPX") << QByteArray("102");
        QTest::newRow("lower-case hex") << QByteArray("0RP0a") << QByteArray("102");
        QTest::newRow("block G") << QByteArray("0RDG") << QByteArray("102");
        QTest::newRow("outputs not hex") << QByteArray("0WOX1") << QByteArray("102");
        QTest::newRow("no block digit") << QByteArray("0RD") << QByteArray("103");
        QTest::newRow("two block digits") << QByteArray("0RD00") << QByteArray("103");
        QTest::newRow("status with data") << QByteArray("0RA1") << QByteArray("103");
        QTest::newRow("block short by one") << "0WD0" + OtherBlock.left(31) << QByteArray("103");
        QTest::newRow("record short") << QByteArray("0WP012328100000000C0") << QByteArray("103");
        QTest::newRow("store with data") << QByteArray("0WE0") << QByteArray("103");
        QTest::newRow("mode 8") << QByteArray("0CM8") << QByteArray("104");
        QTest::newRow("block 3") << QByteArray("0RD3") << QByteArray("104");
        QTest::newRow("block 8") << QByteArray("0RD8") << QByteArray("104");
        QTest::newRow("write block 6") << "0WD6" + OtherBlock << QByteArray("104");
        QTest::newRow("record 0") << QByteArray("0RP00") << QByteArray("104");
        QTest::newRow("record 64") << QByteArray("0RP40") << QByteArray("104");
        QTest::newRow("move to 64") << QByteArray("0MP40") << QByteArray("104");
        QTest::newRow("move with empty record") << QByteArray("0MP02") << QByteArray("104");
        QTest::newRow("write record 0") << QByteArray("0WP002328100000000C01") << QByteArray("104");
        QTest::newRow("ACC 4") << QByteArray("0WP012328400000000C01") << QByteArray("104");
        QTest::newRow("DIR 2") << QByteArray("0WP012328100000020C01") << QByteArray("104");
        QTest::newRow("GEAR 0") << QByteArray("0WP012328100000000C00") << QByteArray("104");
        QTest::newRow("VEL 0") << QByteArray("0WP010000100000000C01") << QByteArray("104");
        QTest::newRow("store records backwards") << QByteArray("0WA0201") << QByteArray("104");
    }
    void malformedRequests()
    {
        QFETCH(QByteArray, request);
        QFETCH(QByteArray, code);

        SimController controller;
        ControllerClient client(controller);
        QCOMPARE(client.ask(request), "0%%" + code + "\r\n");
        // A refused write leaves the memory as it was.
        QCOMPARE(controller.memory().block(0), Block0);
        QCOMPARE(controller.memory().record(1), Record1);
    }

    void otherStationIsNotAnswered()
    {
        SimController controller;
        ControllerClient client(controller);
        QVERIFY(!client.waitForLine(0) && client.ask("1RA", 100).isEmpty());
        QCOMPARE(client.ask("0RA"), QByteArray("0RA1\r\n"));
    }

    void linesAreSplitAtCrLfOnly()
    {
        SimController controller;
        ControllerClient client(controller);

        client.send("0R");
        controller.receive("A\r");
        controller.receive("\n0RV\r\n0CM6\n0RA\r\n");
        QVERIFY(client.waitForLines(3));
        // The LF alone ends nothing: "0CM" gets the data "6\n0RA", which is not hex.
        QCOMPARE(client.received, QByteArray("0RA1\r\n0RVK01100\r\n0%%102\r\n"));
    }

    void noiseWithoutLineEndIsDropped()
    {
        SimController controller;
        ControllerClient client(controller);
        controller.receive(QByteArray(SimController::MaxLineLength + 1, '#'));
        QCOMPARE(client.ask("0RA"), QByteArray("0RA1\r\n"));
    }

    void whileMoving_data()
    {
        QTest::addColumn<QByteArray>("request");
        QTest::addColumn<QByteArray>("reply");

        QTest::newRow("status") << QByteArray("0RA") << QByteArray("0RA0\r\n");
        QTest::newRow("outputs: none") << QByteArray("0RO") << QByteArray("0RO00\r\n");
        QTest::newRow("reads go on") << QByteArray("0RD0") << "0RD0" + Block0 + "\r\n";
        QTest::newRow("write block") << "0WD0" + OtherBlock << errorLine("201");
        QTest::newRow("store blocks") << QByteArray("0WE") << errorLine("201");
        QTest::newRow("store block 7") << QByteArray("0WF") << errorLine("201");
        QTest::newRow("write record") << QByteArray("0WP012328100000000C01") << errorLine("201");
        QTest::newRow("store record") << QByteArray("0WA0101") << errorLine("201");
        QTest::newRow("another move") << QByteArray("0MP01") << errorLine("201");
        QTest::newRow("homing") << QByteArray("0MP00") << errorLine("201");
        QTest::newRow("malformed still first") << QByteArray("0MP1") << errorLine("103");
    }
    void whileMoving()
    {
        QFETCH(QByteArray, request);

        SimController controller;
        ControllerClient client(controller);
        QCOMPARE(client.ask("0MP01"), QByteArray("0MP01\r\n"));
        QTEST(client.ask(request), "reply");
        QCOMPARE(controller.memory().block(0), Block0);
        QCOMPARE(controller.memory().record(1), Record1);
    }

    void outputsFollowTheWrite()
    {
        SimController controller;
        ControllerClient client(controller);
        // The first digit cannot switch ALM, RDY or IN-P.
        QCOMPARE(client.ask("0WO43"), QByteArray("0WO43\r\n"));
        QCOMPARE(client.ask("0RO"), QByteArray("0RO33\r\n"));
        QCOMPARE(client.ask("0WO01"), QByteArray("0WO01\r\n"));
        QCOMPARE(client.ask("0RO"), QByteArray("0RO31\r\n"));
        controller.restart();
        QCOMPARE(client.ask("0RO"), QByteArray("0RO30\r\n"));
    }
};

QTEST_GUILESS_MAIN(TestSimController)
#include "tst_simcontroller.moc"
