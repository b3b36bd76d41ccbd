#include "ControllerClient.h"

#include "sim/SimController.h"

#include <QElapsedTimer>
#include <QTest>

namespace {

// Polls the status as the tool does until it is no longer "moving".
QByteArray pollUntilStill(ControllerClient& client, QElapsedTimer& clock, qint64& endMs)
{
    QByteArray status;
    while ((status = client.ask("0RA")) == "0RA0\r\n" && clock.elapsed() < 5000)
        Waiter::sleep(1);
    endMs = clock.elapsed();
    return status;
}

} // namespace

class TestSimMotion : public QObject {
    Q_OBJECT

private slots:
    void moveTakesItsTime_data()
    {
        QTest::addColumn<QByteArray>("record");
        QTest::addColumn<QByteArray>("point");
        QTest::addColumn<double>("scale");
        QTest::addColumn<double>("expectedMs");

        // Homing: 500 ms. Moves: 60000 / (DIVISION x VEL x GEAR / 30) + 50 x ACC.
        QTest::newRow("homing") << QByteArray() << QByteArray("00") << 0.2 << 100.0;
        QTest::newRow("factory record: 500 + 50") << QByteArray() << QByteArray("01") << 0.2 << 110.0;
        QTest::newRow("VEL 9000, ACC 3, 12 steps: 16.7 + 150")
            << QByteArray("012328300000000C01") << QByteArray("01") << 0.5 << 83.3;
        QTest::newRow("VEL 3, GEAR 100, ACC 2, 4 steps: 1500 + 100")
            << QByteArray("010003200000000464") << QByteArray("01") << 0.05 << 80.0;
        QTest::newRow("record 5: VEL 1800, 24 steps: 41.7 + 50")
            << QByteArray("050708100000001801") << QByteArray("05") << 1.0 << 91.7;
    }
    void moveTakesItsTime()
    {
        QFETCH(QByteArray, record);
        QFETCH(QByteArray, point);
        QFETCH(double, scale);
        QFETCH(double, expectedMs);

        SimController controller;
        controller.setTimeScale(scale);
        ControllerClient client(controller);
        if (!record.isEmpty())
            QCOMPARE(client.ask("0WP" + record), "0WP" + record.left(2) + "\r\n");

        QElapsedTimer clock;
        clock.start();
        QCOMPARE(client.ask("0MP" + point), "0MP" + point + "\r\n");
        QCOMPARE(client.ask("0RA"), QByteArray("0RA0\r\n"));
        QCOMPARE(client.ask("0RO"), QByteArray("0RO00\r\n"));
        qint64 endMs = 0;
        QCOMPARE(pollUntilStill(client, clock, endMs), QByteArray("0RA1\r\n"));
        QVERIFY2(endMs >= expectedMs * 0.95 - 1 && endMs <= expectedMs * 1.15 + 10,
                 QByteArray::number(endMs));
        QCOMPARE(client.ask("0RO"), QByteArray("0RO30\r\n"));
    }

    void alarmHoldsTheAxis()
    {
        SimController controller;
        controller.setTimeScale(0.01);
        ControllerClient client(controller);
        controller.raiseAlarm("301");
        QVERIFY(client.waitForLine());
        QCOMPARE(client.received, QByteArray("0%%301\r\n"));

        QCOMPARE(client.askAll({"0RA", "0RO", "0MP00", "0MP01", "0AR", "0RA", "0RO", "0MP00"}),
                 (QList<QByteArray>{"0RA3\r\n", "0RO40\r\n", "0%%0B3\r\n", "0%%0B3\r\n", "0AR\r\n", "0RA1\r\n",
                                    "0RO30\r\n", "0MP00\r\n"}));
    }

    void alarmStopsAMove()
    {
        SimController controller;
        ControllerClient client(controller);
        client.ask("0MP01");
        QCOMPARE(client.ask("0RA"), QByteArray("0RA0\r\n"));
        client.clear();
        controller.raiseAlarm("303");
        QVERIFY(client.waitForLine());
        QCOMPARE(client.received, QByteArray("0%%303\r\n"));
        QCOMPARE(client.ask("0RA"), QByteArray("0RA3\r\n"));
        // The move's end does not clear the alarm.
        Waiter::sleep(600);
        QCOMPARE(client.ask("0RA"), QByteArray("0RA3\r\n"));
    }

    void alarmPartWayThroughTheNextMove()
    {
        SimLine line(faultsWith([](SimFaults& f) { f.alarmCode = "302"; f.alarmOnMove = true; }));
        line.controller.setTimeScale(0.2);
        ControllerClient& client = line.client;
        QCOMPARE(client.ask("0RA"), QByteArray("0RA1\r\n"));
        client.ask("0MP01");
        client.clear();
        QVERIFY(client.waitForLine(300));
        QCOMPARE(client.received, QByteArray("0%%302\r\n"));
        QCOMPARE(client.ask("0RA"), QByteArray("0RA3\r\n"));

        // Once only: after the reset the next move runs to its end.
        client.ask("0AR");
        client.ask("0MP01");
        qint64 endMs = 0;
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(pollUntilStill(client, clock, endMs), QByteArray("0RA1\r\n"));
    }

    void alarmAfterADelay()
    {
        SimController controller;
        ControllerClient client(controller);
        client.send({});
        SimFaults faults;
        faults.alarmCode = "301";
        faults.alarmAfterMs = 60;
        controller.setFaults(faults);
        QVERIFY(client.waitForLine());
        QCOMPARE(client.received, QByteArray("0%%301\r\n"));
        QVERIFY2(client.arrivalsMs.first() >= 55, QByteArray::number(client.arrivalsMs.first()));
    }

    void inputBits_data()
    {
        QTest::addColumn<bool>("stb");
        QTest::addColumn<bool>("stop");
        QTest::addColumn<QByteArray>("reply");

        QTest::newRow("none") << false << false << QByteArray("0RI000\r\n");
        QTest::newRow("STB") << true << false << QByteArray("0RI800\r\n");
        QTest::newRow("STOP") << false << true << QByteArray("0RI200\r\n");
        QTest::newRow("both") << true << true << QByteArray("0RIA00\r\n");
    }
    void inputBits()
    {
        QFETCH(bool, stb);
        QFETCH(bool, stop);
        SimLine line(faultsWith([&](SimFaults& f) { f.stbInput = stb; f.stopInput = stop; }));
        QTEST(line.client.ask("0RI"), "reply");
    }

    void stopInputEndsTheMove()
    {
        SimController controller;
        ControllerClient client(controller);
        client.ask("0MP01");
        QCOMPARE(client.ask("0RA"), QByteArray("0RA0\r\n"));
        controller.setInputs(false, true);
        QCOMPARE(client.ask("0RA"), QByteArray("0RA2\r\n"));
        // Ready again, but not in position.
        QCOMPARE(client.ask("0RO"), QByteArray("0RO20\r\n"));

        // While STOP is held a move ends as soon as it starts.
        QCOMPARE(client.ask("0MP01"), QByteArray("0MP01\r\n"));
        QCOMPARE(client.ask("0RA"), QByteArray("0RA2\r\n"));

        controller.setInputs(false, false);
        client.ask("0MP01");
        QCOMPARE(client.ask("0RA"), QByteArray("0RA0\r\n"));
    }
};

QTEST_GUILESS_MAIN(TestSimMotion)
#include "tst_simmotion.moc"
