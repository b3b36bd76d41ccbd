#include "ControllerClient.h"

#include <QTest>

namespace {

// Polls the status as the tool does until it is no longer "moving"; the time taken.
qint64 pollUntilStill(SimLine& line, QByteArray& status)
{
    QElapsedTimer clock;
    clock.start();
    while ((status = line.ask("0RA")) == "0RA0\r\n" && clock.elapsed() < 5000)
        Waiter::sleep(1);
    return clock.elapsed();
}

} // namespace

class TestSimMotion : public QObject {
    Q_OBJECT

private slots:
    void moveTakesItsTime_data()
    {
        QTest::addColumn<QByteArray>("record");
        QTest::addColumn<double>("scale");
        QTest::addColumn<double>("expectedMs");
        // Homing: 500 ms. Moves: 60000 / (DIVISION x VEL x GEAR / 30) + 50 x ACC.
        QTest::newRow("homing") << QByteArray("00") << 0.2 << 100.0;
        QTest::newRow("factory record: 500 + 50") << QByteArray("01") << 0.2 << 110.0;
        QTest::newRow("VEL 9000, ACC 3, 12 steps: 16.7 + 150") << QByteArray("012328300000000C01") << 0.5 << 83.3;
        QTest::newRow("VEL 3, GEAR 100, ACC 2, 4 steps: 1500 + 100") << QByteArray("010003200000000464") << 0.05 << 80.0;
        QTest::newRow("record 5: VEL 1800, 24 steps: 41.7 + 50") << QByteArray("050708100000001801") << 1.0 << 91.7;
    }
    void moveTakesItsTime()
    {
        QFETCH(QByteArray, record);
        QFETCH(double, scale);
        QFETCH(double, expectedMs);
        SimLine line;
        line.controller.setTimeScale(scale);
        const QByteArray point = record.left(2);
        if (record.size() > 2)
            QCOMPARE(line.ask("0WP" + record), "0WP" + point + "\r\n");
        QCOMPARE(line.askAll({"0MP" + point, "0RA", "0RO"}), (QList<QByteArray>{"0MP" + point + "\r\n", "0RA0\r\n", "0RO00\r\n"}));
        QByteArray status;
        const qint64 endMs = pollUntilStill(line, status);
        QCOMPARE(status, QByteArray("0RA1\r\n"));
        QVERIFY2(endMs >= expectedMs * 0.95 - 1 && endMs <= expectedMs * 1.15 + 10, QByteArray::number(endMs));
        QCOMPARE(line.ask("0RO"), QByteArray("0RO30\r\n"));
    }

    void alarmHoldsTheAxis()
    {
        SimLine line;
        line.controller.setTimeScale(0.01);
        line.controller.raiseAlarm("301");
        QVERIFY(line.waitForLines(1));
        QCOMPARE(line.received, QByteArray("0%%301\r\n"));
        QCOMPARE(line.askAll({"0RA", "0RO", "0MP00", "0MP01", "0AR", "0RA", "0RO", "0MP00"}),
                 (QList<QByteArray>{"0RA3\r\n", "0RO40\r\n", "0%%0B3\r\n", "0%%0B3\r\n", "0AR\r\n", "0RA1\r\n",
                                    "0RO30\r\n", "0MP00\r\n"}));
    }

    // The move's end does not clear an alarm raised during it.
    void alarmStopsAMove()
    {
        SimLine line;
        QCOMPARE(line.askAll({"0MP01", "0RA"}), (QList<QByteArray>{"0MP01\r\n", "0RA0\r\n"}));
        line.send({});
        line.controller.raiseAlarm("303");
        QVERIFY(line.waitForLines(1));
        QCOMPARE(line.received, QByteArray("0%%303\r\n"));
        Waiter::sleep(600);
        QCOMPARE(line.ask("0RA"), QByteArray("0RA3\r\n"));
    }

    // Once only: after the reset the next move runs to its end.
    void alarmPartWayThroughTheNextMove()
    {
        SimLine line({"--alarm", "302@move"});
        line.controller.setTimeScale(0.2);
        QCOMPARE(line.ask("0RA"), QByteArray("0RA1\r\n"));
        line.ask("0MP01");
        line.send({});
        QVERIFY(line.waitForLines(1, 300));
        QCOMPARE(line.received, QByteArray("0%%302\r\n"));
        QCOMPARE(line.askAll({"0RA", "0AR", "0MP01"}), (QList<QByteArray>{"0RA3\r\n", "0AR\r\n", "0MP01\r\n"}));
        QByteArray status;
        pollUntilStill(line, status);
        QCOMPARE(status, QByteArray("0RA1\r\n"));
    }

    void alarmAfterADelay()
    {
        SimLine line({"--alarm", "301@60"});
        line.send({});
        QVERIFY(line.waitForLines(1));
        QCOMPARE(line.received, QByteArray("0%%301\r\n"));
        QVERIFY2(line.arrivalsMs.first() >= 55, QByteArray::number(line.arrivalsMs.first()));
    }

    // A move ends at once while STOP is held, and leaves the axis ready but not in position.
    void stopInputEndsTheMove()
    {
        SimLine line;
        QCOMPARE(line.askAll({"0MP01", "0RA"}), (QList<QByteArray>{"0MP01\r\n", "0RA0\r\n"}));
        line.controller.setInputs(false, true);
        QCOMPARE(line.askAll({"0RA", "0RO", "0MP01", "0RA"}),
                 (QList<QByteArray>{"0RA2\r\n", "0RO20\r\n", "0MP01\r\n", "0RA2\r\n"}));
        line.controller.setInputs(false, false);
        QCOMPARE(line.askAll({"0MP01", "0RA"}), (QList<QByteArray>{"0MP01\r\n", "0RA0\r\n"}));
    }
};

QTEST_GUILESS_MAIN(TestSimMotion)
#include "tst_simmotion.moc"
