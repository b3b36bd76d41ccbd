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

void addRows(const QByteArray& reply, std::initializer_list<std::pair<const char*, QByteArray>> rows)
{
    for (const auto& [name, request] : rows)
        QTest::newRow(name) << request << reply;
}

// Rows whose reply is the request itself.
void addEchoRows(std::initializer_list<std::pair<const char*, QByteArray>> rows)
{
    for (const auto& [name, request] : rows)
        QTest::newRow(name) << request << request + "\r\n";
}

} // namespace

class TestSimController : public QObject {
    Q_OBJECT

private slots:
    void repliesAtRest_data()
    {
        QTest::addColumn<QByteArray>("request");
        QTest::addColumn<QByteArray>("reply");

        addEchoRows({{"check", "0CM6"}, {"monitor mode", "0CM7"}, {"normal mode", "0CM0"}, {"store blocks", "0WE"},
                     {"store block 7", "0WF"}, {"homing", "0MP00"}, {"indexing", "0MP01"}, {"alarm reset", "0AR"},
                     {"write outputs", "0WO02"}});
        QTest::newRow("status at power-up") << QByteArray("0RA") << QByteArray("0RA1\r\n");
        QTest::newRow("block 0") << QByteArray("0RD0") << "0RD0" + Block0 + "\r\n";
        QTest::newRow("block 1") << QByteArray("0RD1") << "0RD1" + Block1 + "\r\n";
        QTest::newRow("block 2") << QByteArray("0RD2") << "0RD2" + Block2 + "\r\n";
        QTest::newRow("block 7") << QByteArray("0RD7") << "0RD7" + Block7 + "\r\n";
        QTest::newRow("write block") << "0WD1" + OtherBlock << QByteArray("0WD1\r\n");
        QTest::newRow("write block 7") << "0WD7" + OtherBlock << QByteArray("0WD7\r\n");
        QTest::newRow("record 1") << QByteArray("0RP01") << "0RP01" + Record1 + "\r\n";
        QTest::newRow("record 63") << QByteArray("0RP3F") << QByteArray("0RP3F0000000000000000\r\n");
        QTest::newRow("write record") << QByteArray("0WP012328100000000C01") << QByteArray("0WP01\r\n");
        QTest::newRow("store record") << QByteArray("0WA0101") << QByteArray("0WA\r\n");
        QTest::newRow("inputs") << QByteArray("0RI") << QByteArray("0RI000\r\n");
        QTest::newRow("outputs: RDY, IN-P") << QByteArray("0RO") << QByteArray("0RO30\r\n");
        QTest::newRow("version") << QByteArray("0RV") << QByteArray("0RVK01100\r\n");
        QTest::newRow("old version form") << QByteArray("0%C") << QByteArray("0%CK0110000000\r\n");
    }
    void repliesAtRest()
    {
        QFETCH(QByteArray, request);
        SimLine line;
        QTEST(line.client.ask(request), "reply");
    }

    void malformedRequests_data()
    {
        QTest::addColumn<QByteArray>("request");
        QTest::addColumn<QByteArray>("reply");

        addRows(errorLine("101"), {{"unknown letters", "0XY"}, {"lower-case letters", "0rd0"}, {"too short", "0R"},
                                   {"error reply as request", "0%%101"}});
        addRows(errorLine("102"), {{"record X", "0RPX"}, {"lower-case hex", "0RP0a"}, {"block G", "0RDG"},
                                   {"outputs not hex", "0WOX1"}});
        addRows(errorLine("103"), {{"no block digit", "0RD"}, {"two block digits", "0RD00"}, {"status with data", "0RA1"},
                                   {"block short by one", "0WD0" + OtherBlock.left(31)},
                                   {"record short", "0WP012328100000000C0"}, {"store with data", "0WE0"}});
        addRows(errorLine("104"), {{"mode 8", "0CM8"}, {"block 3", "0RD3"}, {"block 8", "0RD8"},
                                   {"write block 6", "0WD6" + OtherBlock}, {"record 0", "0RP00"}, {"record 64", "0RP40"},
                                   {"move to 64", "0MP40"}, {"move with empty record", "0MP02"},
                                   {"write record 0", "0WP002328100000000C01"}, {"ACC 4", "0WP012328400000000C01"},
                                   {"DIR 2", "0WP012328100000020C01"}, {"GEAR 0", "0WP012328100000000C00"},
                                   {"VEL 0", "0WP010000100000000C01"}, {"store records backwards", "0WA0201"}});
    }
    void malformedRequests()
    {
        QFETCH(QByteArray, request);
        SimLine line;
        QTEST(line.client.ask(request), "reply");
        // A refused write leaves the memory as it was.
        QCOMPARE(line.controller.memory().block(0), Block0);
        QCOMPARE(line.controller.memory().record(1), Record1);
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
        addRows(errorLine("201"), {{"write block", "0WD0" + OtherBlock}, {"store blocks", "0WE"}, {"store block 7", "0WF"},
                                   {"write record", "0WP012328100000000C01"}, {"store record", "0WA0101"},
                                   {"another move", "0MP01"}, {"homing", "0MP00"}});
        QTest::newRow("malformed still first") << QByteArray("0MP1") << errorLine("103");
    }
    void whileMoving()
    {
        QFETCH(QByteArray, request);
        SimLine line;
        QCOMPARE(line.client.ask("0MP01"), QByteArray("0MP01\r\n"));
        QTEST(line.client.ask(request), "reply");
        QCOMPARE(line.controller.memory().block(0), Block0);
        QCOMPARE(line.controller.memory().record(1), Record1);
    }

    void outputsFollowTheWrite()
    {
        SimController controller;
        ControllerClient client(controller);
        // The first digit cannot switch ALM, RDY or IN-P.
        QCOMPARE(client.askAll({"0WO43", "0RO", "0WO01", "0RO"}),
                 (QList<QByteArray>{"0WO43\r\n", "0RO33\r\n", "0WO01\r\n", "0RO31\r\n"}));
        controller.restart();
        QCOMPARE(client.ask("0RO"), QByteArray("0RO30\r\n"));
    }
};

QTEST_GUILESS_MAIN(TestSimController)
#include "tst_simcontroller.moc"
