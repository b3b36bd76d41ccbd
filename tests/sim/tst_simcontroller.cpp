#include "ControllerClient.h"

#include <QSignalSpy>
#include <QTest>

using namespace FactoryMemory;

namespace {

// Rows of requests that all get the same reply (the request's own echo when none is given).
void addRows(std::initializer_list<std::pair<const char*, QByteArray>> rows, const QByteArray& reply = {})
{
    for (const auto& [name, request] : rows)
        QTest::newRow(name) << request << (reply.isEmpty() ? request + "\r\n" : "0%%" + reply + "\r\n");
}

} // namespace

// The virtual controller's protocol: replies at rest and while moving,
// refusals of malformed requests, and the faults it can be told to show.
class TestSimController : public QObject {
    Q_OBJECT

private slots:
    void repliesAtRest_data()
    {
        QTest::addColumn<QByteArray>("request");
        QTest::addColumn<QByteArray>("reply");
        addRows({{"check", "0CM6"}, {"monitor mode", "0CM7"}, {"normal mode", "0CM0"}, {"store blocks", "0WE"},
                 {"store block 7", "0WF"}, {"homing", "0MP00"}, {"indexing", "0MP01"}, {"alarm reset", "0AR"},
                 {"write outputs", "0WO02"}});
        QTest::newRow("status at power-up") << QByteArray("0RA") << QByteArray("0RA1\r\n");
        QTest::newRow("block 0") << QByteArray("0RD0") << "0RD0" + Block0 + "\r\n";
        QTest::newRow("block 1") << QByteArray("0RD1") << "0RD1" + Block1 + "\r\n";
        QTest::newRow("block 2") << QByteArray("0RD2") << "0RD2" + Block2 + "\r\n";
        QTest::newRow("block 7") << QByteArray("0RD7") << "0RD7" + Block7 + "\r\n";
        QTest::newRow("write block 7") << "0WD7" + OtherBlock << QByteArray("0WD7\r\n");
        QTest::newRow("record 1") << QByteArray("0RP01") << "0RP01" + Record1 + "\r\n";
        QTest::newRow("record 63") << QByteArray("0RP3F") << QByteArray("0RP3F0000000000000000\r\n");
        QTest::newRow("write record") << "0WP01" + OtherRecord << QByteArray("0WP01\r\n");
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
        QTEST(line.ask(request), "reply");
    }

    void malformedRequests_data()
    {
        QTest::addColumn<QByteArray>("request");
        QTest::addColumn<QByteArray>("reply");
        addRows({{"unknown letters", "0XY"}, {"lower-case letters", "0rd0"}, {"too short", "0R"}}, "101");
        addRows({{"record X", "0RPX"}, {"lower-case hex", "0RP0a"}, {"outputs not hex", "0WOX1"}}, "102");
        addRows({{"two block digits", "0RD00"}, {"status with data", "0RA1"}, {"block short by one", "0WD0" + OtherBlock.left(31)},
                 {"record short", "0WP012328100000000C0"}, {"store with data", "0WE0"}}, "103");
        addRows({{"mode 8", "0CM8"}, {"block 3", "0RD3"}, {"write block 6", "0WD6" + OtherBlock}, {"record 64", "0RP40"},
                 {"move with empty record", "0MP02"}, {"write record 0", "0WP002328100000000C01"},
                 {"ACC 4", "0WP012328400000000C01"}, {"DIR 2", "0WP012328100000020C01"}, {"GEAR 0", "0WP012328100000000C00"},
                 {"VEL 0", "0WP010000100000000C01"}, {"store records backwards", "0WA0201"}}, "104");
    }
    void malformedRequests()
    {
        QFETCH(QByteArray, request);
        SimLine line;
        QTEST(line.ask(request), "reply");
        QCOMPARE(line.controller.memory().block(0), Block0);
        QCOMPARE(line.controller.memory().record(1), Record1);
    }

    void whileMoving_data()
    {
        QTest::addColumn<QByteArray>("request");
        QTest::addColumn<QByteArray>("reply");
        QTest::newRow("status") << QByteArray("0RA") << QByteArray("0RA0\r\n");
        QTest::newRow("outputs: none") << QByteArray("0RO") << QByteArray("0RO00\r\n");
        QTest::newRow("reads go on") << QByteArray("0RD0") << "0RD0" + Block0 + "\r\n";
        addRows({{"write block", "0WD0" + OtherBlock}, {"store blocks", "0WE"}, {"store block 7", "0WF"},
                 {"write record", "0WP01" + OtherRecord}, {"store record", "0WA0101"}, {"another move", "0MP01"}}, "201");
        QTest::newRow("malformed still first") << QByteArray("0MP1") << QByteArray("0%%103\r\n");
    }
    void whileMoving()
    {
        QFETCH(QByteArray, request);
        SimLine line;
        QCOMPARE(line.ask("0MP01"), QByteArray("0MP01\r\n"));
        QTEST(line.ask(request), "reply");
        QCOMPARE(line.controller.memory().block(0), Block0);
        QCOMPARE(line.controller.memory().record(1), Record1);
    }

    // Another station is not answered; noise without a line end is dropped;
    // only CR LF ends a line, so "0CM" gets the data "6\n0RA", which is not hex.
    void lineHandling()
    {
        SimLine line;
        QVERIFY(line.ask("1RA", 100).isEmpty());
        line.controller.receive(QByteArray(SimController::MaxLineLength + 1, '#'));
        line.send("0R");
        line.controller.receive("A\r");
        line.controller.receive("\n0RV\r\n0CM6\n0RA\r\n");
        QVERIFY(line.waitForLines(3));
        QCOMPARE(line.received, QByteArray("0RA1\r\n0RVK01100\r\n0%%102\r\n"));
    }

    // The first digit cannot switch ALM, RDY or IN-P; a restart clears the outputs.
    void outputsFollowTheWrite()
    {
        SimLine line;
        QCOMPARE(line.askAll({"0WO43", "0RO", "0WO01", "0RO"}),
                 (QList<QByteArray>{"0WO43\r\n", "0RO33\r\n", "0WO01\r\n", "0RO31\r\n"}));
        line.controller.restart();
        QCOMPARE(line.ask("0RO"), QByteArray("0RO30\r\n"));
    }

    void faultShapesTheReply_data()
    {
        QTest::addColumn<QStringList>("faults");
        QTest::addColumn<QByteArray>("request");
        QTest::addColumn<QByteArray>("reply");
        QTest::newRow("extra character") << QStringList{"--extra-char", "RA"} << QByteArray("0RA") << QByteArray("0RA10\r\n");
        QTest::newRow("extra character, other command") << QStringList{"--extra-char", "RA"} << QByteArray("0CM6") << QByteArray("0CM6\r\n");
        QTest::newRow("extra character on all") << QStringList{"--extra-char", "all"} << QByteArray("0CM6") << QByteArray("0CM60\r\n");
        QTest::newRow("wrong echo on status") << QStringList{"--wrong-echo", "RA"} << QByteArray("0RA") << QByteArray("0RD1\r\n");
        QTest::newRow("wrong echo on version") << QStringList{"--wrong-echo", "RV,RA"} << QByteArray("0RV") << QByteArray("0RAK01100\r\n");
        QTest::newRow("error reply") << QStringList{"--error-reply", "RV:101"} << QByteArray("0RV") << QByteArray("0%%101\r\n");
        QTest::newRow("garbage") << QStringList{"--garbage", "RA"} << QByteArray("0RA") << SimFaults::garbageBytes() + "0RA1\r\n";
        QTest::newRow("STB and STOP") << QStringList{"--stb", "--stop"} << QByteArray("0RI") << QByteArray("0RIA00\r\n");
        QTest::newRow("STOP") << QStringList{"--stop"} << QByteArray("0RI") << QByteArray("0RI200\r\n");
    }
    void faultShapesTheReply()
    {
        QFETCH(QStringList, faults);
        QFETCH(QByteArray, request);
        SimLine line(faults);
        QTEST(line.ask(request), "reply");
    }

    void refusedOrSilencedRequestHasNoEffect()
    {
        SimLine line({"--silent", "RA,WD", "--error-reply", "WO:104"});
        QCOMPARE(line.ask("0RA", 150), QByteArray());
        QCOMPARE(line.ask("0WD0" + OtherBlock, 150), QByteArray());
        QCOMPARE(line.ask("0WO03"), QByteArray("0%%104\r\n"));
        QCOMPARE(line.askAll({"0RD0", "0RO"}), (QList<QByteArray>{"0RD0" + Block0 + "\r\n", "0RO30\r\n"}));
    }

    void lateAndSplitReplies()
    {
        SimLine line({"--late", "80:RA", "--split-crlf", "RV"});
        QCOMPARE(line.ask("0RA"), QByteArray("0RA1\r\n"));
        QVERIFY2(line.arrivalsMs[0] >= 78 && line.arrivalsMs[0] < 150, QByteArray::number(line.arrivalsMs[0]));
        QCOMPARE(line.ask("0RV"), QByteArray("0RVK01100\r\n"));
        QVERIFY2(line.arrivalsMs[0] < 30, QByteArray::number(line.arrivalsMs[0]));
        QCOMPARE(line.pieces, (QList<QByteArray>{"0RVK01100\r", "\n"}));
        QVERIFY2(line.arrivalsMs[1] - line.arrivalsMs[0] >= SimFaults::SplitGapMs - 2, QByteArray::number(line.arrivalsMs[1]));
    }

    void restartCutsTheReplyAndForgetsUnstoredData()
    {
        SimLine line({"--restart-after", "3"});
        QSignalSpy restarted(&line.controller, &SimController::restarted);
        QCOMPARE(line.askAll({"0WD0" + OtherBlock, "0WO03"}), (QList<QByteArray>{"0WD0\r\n", "0WO03\r\n"}));
        // Half of the 36 characters before CR LF, and no line end.
        QCOMPARE(line.ask("0RD0", 150), QByteArray("0RD0" + OtherBlock.left(14)));
        QCOMPARE(restarted.count(), 1);
        QCOMPARE(line.askAll({"0RD0", "0RO", "0RA", "0RA"}),
                 (QList<QByteArray>{"0RD0" + Block0 + "\r\n", "0RO30\r\n", "0RA1\r\n", "0RA1\r\n"}));
        QCOMPARE(restarted.count(), 1);
    }

    void unsolicitedAlarmIsNotShaped()
    {
        SimLine line({"--extra-char", "all", "--wrong-echo", "all"});
        line.send({});
        line.controller.raiseAlarm("301");
        QVERIFY(line.waitForLines(1));
        QCOMPARE(line.received, QByteArray("0%%301\r\n"));
    }
};

QTEST_GUILESS_MAIN(TestSimController)
#include "tst_simcontroller.moc"
