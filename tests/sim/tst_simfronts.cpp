#include "support/PtyController.h"
#include "support/RawTerminalClient.h"
#include "common/Waiter.h"
#include "sim/PtyFront.h"
#include "sim/SerialFront.h"
#include "sim/SimController.h"
#include "sim/SimSerialPort.h"

#include <QElapsedTimer>
#include <QSerialPort>
#include <QSignalSpy>
#include <QTest>

#include <sys/resource.h>

namespace {

qint64 cpuMs()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return (usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1000
        + (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1000;
}

// Writes the request and gathers what the port receives until a line end (or the time limit).
template <typename Port>
QByteArray ask(Port& port, const QByteArray& request)
{
    QByteArray line;
    QObject context;
    QObject::connect(&port, &Port::readyRead, &context, [&] {
        line += port.readAll();
        Waiter::wake();
    });
    port.write(request + "\r\n");
    Waiter::waitUntil([&] { return line.endsWith("\r\n"); }, 1000);
    return line;
}

} // namespace

class TestSimFronts : public QObject {
    Q_OBJECT

private slots:
    // Under any name; nothing is read during the write itself.
    void builtInPortAnswersAfterTheWrite()
    {
        SimSerialPort port;
        QCOMPARE(port.write("0RV\r\n"), qint64(-1));
        QVERIFY(port.open("COM99", "9600,N,8,1"));
        QSignalSpy spy(&port, &SerialPort::readyRead);
        QCOMPARE(port.write("0RV\r\n"), qint64(5));
        QCOMPARE(spy.count() + port.bytesAvailable(), 0);
        QVERIFY(spy.wait(1000));
        QCOMPARE(port.readAll(), QByteArray("0RVK01100\r\n"));
    }

    // Replies of a closed port are lost; waiting input can be dropped.
    void builtInPortLosesAndDropsReplies()
    {
        SimController controller;
        SimSerialPort port(&controller);
        port.open("sim", "9600,N,8,1");
        port.write("0RV\r\n");
        port.close();
        QCOMPARE(Waiter::sleep(50), Waiter::Result::Done);
        port.open("/dev/nonexistent", "9600,N,8,1");
        QCOMPARE(port.bytesAvailable(), qint64(0));
        controller.raiseAlarm("301");
        QVERIFY(Waiter::waitUntil([&] { return port.bytesAvailable() > 0; }, 1000) == Waiter::Result::Done);
        port.discardInput();
        QCOMPARE(port.bytesAvailable(), qint64(0));
        QCOMPARE(ask(port, "0RA"), QByteArray("0RA3\r\n"));
    }

    // 38 characters of 10 bits at 9600 bit/s, in more than one piece.
    void pacedPortTakesLineTime()
    {
        SimSerialPort port;
        port.setPacing(true);
        port.open("sim", "9600,N,8,1");
        QSignalSpy spy(&port, &SerialPort::readyRead);
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(ask(port, "0RD0").size(), 38);
        QVERIFY2(clock.elapsed() >= 39 && clock.elapsed() <= 50, QByteArray::number(clock.elapsed()));
        QVERIFY(spy.count() > 1);
    }

    // Raw clients and serial-port clients (which lock the device while they
    // have it) come and go; without a client the front sleeps.
    void ptyServesClientsComingAndGoing()
    {
        SimController controller;
        PtyFront front(controller);
        QString reason;
        QVERIFY2(front.open(&reason), qPrintable(reason));
        QVERIFY(front.devicePath().startsWith("/dev/"));
        for (int round = 0; round < 2; ++round) {
            RawTerminalClient client;
            QVERIFY(client.open(front.devicePath()));
            // CR LF pass unchanged in both directions: the terminal is raw.
            QCOMPARE(client.ask("0RD1"), QByteArray("0RD10202019000FFFF14001C4C0064000000\r\n"));
            client.close();
            Waiter::sleep(50);
            QSerialPort port(front.devicePath());
            QVERIFY2(port.open(QIODevice::ReadWrite), qPrintable(port.errorString()));
            QCOMPARE(ask(port, "0CM6"), QByteArray("0CM6\r\n"));
            port.close();
            Waiter::sleep(50);
        }
        const qint64 before = cpuMs();
        Waiter::sleep(300);
        QVERIFY2(cpuMs() - before < 60, QByteArray::number(cpuMs() - before));
        RawTerminalClient client;
        QVERIFY(client.open(front.devicePath()));
        QCOMPARE(client.ask("0RA"), QByteArray("0RA1\r\n"));
    }

    void pacedPtyTakesLineTime()
    {
        SimController controller;
        PtyFront front(controller);
        front.setPacing(true);
        QString reason;
        QVERIFY(front.open(&reason));
        RawTerminalClient client;
        QVERIFY(client.open(front.devicePath()));
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(client.ask("0RD2").size(), 38);
        QVERIFY2(clock.elapsed() >= 39 && clock.elapsed() <= 55, QByteArray::number(clock.elapsed()));
    }

    // A pseudo-terminal stands in for the cable; pulling it ends the front with a reason.
    void serialFrontAnswersOnADevice()
    {
        PtyController cable;
        SimController controller;
        SerialFront front(controller);
        QSignalSpy failed(&front, &SerialFront::failed);
        connect(&front, &SerialFront::failed, this, [] { Waiter::wake(); });
        QString reason;
        QVERIFY2(front.open(cable.device(), &reason), qPrintable(reason));
        QVERIFY(cable.send("0RV\r\n"));
        QCOMPARE(cable.receive(11), QByteArray("0RVK01100\r\n"));
        cable.hangUp();
        QVERIFY(Waiter::waitUntil([&] { return failed.count() > 0; }, 1000) == Waiter::Result::Done);
        SerialFront missing(controller);
        QVERIFY(!missing.open("/dev/no-such-serial-device", &reason));
        QVERIFY(!reason.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestSimFronts)
#include "tst_simfronts.moc"
