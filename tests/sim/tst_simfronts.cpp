#include "common/Waiter.h"
#include "sim/SimController.h"
#include "sim/SimSerialPort.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

class TestSimFronts : public QObject {
    Q_OBJECT

private slots:
    void portOpensUnderAnyName();
    void repliesArriveAfterTheWrite();
    void closedPortLosesReplies();
    void discardInputDropsWaitingBytes();
    void pacedPortTakesLineTime();
};

namespace {

bool waitForLine(SimSerialPort& port, QByteArray& line, int timeoutMs = 1000)
{
    QObject context;
    QObject::connect(&port, &SerialPort::readyRead, &context, [&] {
        line += port.readAll();
        Waiter::wake();
    });
    return Waiter::waitUntil([&] { return line.endsWith("\r\n"); }, timeoutMs) == Waiter::Result::Done;
}

} // namespace

void TestSimFronts::portOpensUnderAnyName()
{
    SimSerialPort port;
    QVERIFY(!port.isOpen());
    QVERIFY(port.open(QStringLiteral("COM99"), QStringLiteral("9600,N,8,1")));
    QVERIFY(port.isOpen());
    port.close();
    QVERIFY(!port.isOpen());
    QVERIFY(port.open(QStringLiteral("/dev/nonexistent"), QStringLiteral("9600,N,8,1")));
}

void TestSimFronts::repliesArriveAfterTheWrite()
{
    SimSerialPort port;
    port.open(QStringLiteral("sim"), QStringLiteral("9600,N,8,1"));
    QSignalSpy spy(&port, &SerialPort::readyRead);

    QCOMPARE(port.write("0RV\r\n"), qint64(5));
    QCOMPARE(spy.count(), 0);
    QCOMPARE(port.bytesAvailable(), qint64(0));

    QByteArray line;
    QVERIFY(waitForLine(port, line));
    QCOMPARE(line, QByteArray("0RVK01100\r\n"));
    QCOMPARE(port.bytesAvailable(), qint64(0));
}

void TestSimFronts::closedPortLosesReplies()
{
    SimSerialPort port;
    QCOMPARE(port.write("0RV\r\n"), qint64(-1));

    port.open(QStringLiteral("sim"), QStringLiteral("9600,N,8,1"));
    port.write("0RV\r\n");
    port.close();
    QCOMPARE(Waiter::sleep(50), Waiter::Result::Done);
    port.open(QStringLiteral("sim"), QStringLiteral("9600,N,8,1"));
    QCOMPARE(port.bytesAvailable(), qint64(0));

    QByteArray line;
    port.write("0RA\r\n");
    QVERIFY(waitForLine(port, line));
    QCOMPARE(line, QByteArray("0RA1\r\n"));
}

void TestSimFronts::discardInputDropsWaitingBytes()
{
    SimController controller;
    SimSerialPort port(&controller);
    port.open(QStringLiteral("sim"), QStringLiteral("9600,N,8,1"));
    controller.raiseAlarm("301");
    QVERIFY(Waiter::waitUntil([&] { return port.bytesAvailable() > 0; }, 1000) == Waiter::Result::Done);
    port.discardInput();
    QCOMPARE(port.bytesAvailable(), qint64(0));

    QByteArray line;
    port.write("0RA\r\n");
    QVERIFY(waitForLine(port, line));
    QCOMPARE(line, QByteArray("0RA3\r\n"));
}

void TestSimFronts::pacedPortTakesLineTime()
{
    SimSerialPort port;
    port.setPacing(true);
    port.open(QStringLiteral("sim"), QStringLiteral("9600,N,8,1"));
    QSignalSpy spy(&port, &SerialPort::readyRead);
    QElapsedTimer clock;
    clock.start();
    port.write("0RD0\r\n");
    QByteArray line;
    QVERIFY(waitForLine(port, line));
    // 38 characters of 10 bits at 9600 bit/s.
    QCOMPARE(line.size(), 38);
    QVERIFY2(clock.elapsed() >= 39 && clock.elapsed() <= 50, QByteArray::number(clock.elapsed()));
    QVERIFY(spy.count() > 1);
}

QTEST_GUILESS_MAIN(TestSimFronts)
#include "tst_simfronts.moc"
