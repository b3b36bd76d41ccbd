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
#include <unistd.h>

namespace {

qint64 cpuMs()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return (usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1000
        + (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1000;
}

// Gathers what the port receives until a line end (or the time limit).
template <typename Port>
bool waitForLine(Port& port, QByteArray& line, int timeoutMs = 1000)
{
    QObject context;
    QObject::connect(&port, &Port::readyRead, &context, [&] {
        line += port.readAll();
        Waiter::wake();
    });
    return Waiter::waitUntil([&] { return line.endsWith("\r\n"); }, timeoutMs) == Waiter::Result::Done;
}

QByteArray askSerialPort(QSerialPort& port, const QByteArray& request)
{
    QByteArray reply;
    port.write(request + "\r\n");
    waitForLine(port, reply);
    return reply;
}

} // namespace

class TestSimFronts : public QObject {
    Q_OBJECT

private slots:
    void portOpensUnderAnyName()
    {
        SimSerialPort port;
        QVERIFY(!port.isOpen());
        QVERIFY(port.open(QStringLiteral("COM99"), QStringLiteral("9600,N,8,1")));
        QVERIFY(port.isOpen());
        port.close();
        QVERIFY(!port.isOpen());
        QVERIFY(port.open(QStringLiteral("/dev/nonexistent"), QStringLiteral("9600,N,8,1")));
    }

    void repliesArriveAfterTheWrite()
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

    void closedPortLosesReplies()
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

    void discardInputDropsWaitingBytes()
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

    void pacedPortTakesLineTime()
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

    void ptyAnswersARawClient()
    {
        SimController controller;
        PtyFront front(controller);
        QString reason;
        QVERIFY2(front.open(&reason), qPrintable(reason));
        QVERIFY(front.devicePath().startsWith(QLatin1String("/dev/")));

        RawTerminalClient client;
        QVERIFY(client.open(front.devicePath()));
        QCOMPARE(client.ask("0RV"), QByteArray("0RVK01100\r\n"));
        // CR LF pass unchanged in both directions: the terminal is raw.
        QCOMPARE(client.ask("0RD1"), QByteArray("0RD10202019000FFFF14001C4C0064000000\r\n"));
    }

    void ptySurvivesClientsComingAndGoing()
    {
        SimController controller;
        PtyFront front(controller);
        QString reason;
        QVERIFY(front.open(&reason));

        for (int round = 0; round < 2; ++round) {
            RawTerminalClient client;
            QVERIFY(client.open(front.devicePath()));
            QCOMPARE(client.ask("0RA"), QByteArray("0RA1\r\n"));
            client.close();
            // Give the front time to see that nobody has the device open.
            Waiter::sleep(50);
        }
        // A serial-port client locks the device while it has it open; the
        // next one must still get in after it closed.
        for (int round = 0; round < 2; ++round) {
            QSerialPort port(front.devicePath());
            QVERIFY2(port.open(QIODevice::ReadWrite), qPrintable(port.errorString()));
            QCOMPARE(askSerialPort(port, "0CM6"), QByteArray("0CM6\r\n"));
            port.close();
            Waiter::sleep(50);
        }
    }

    void ptyIdlesWithoutCpu()
    {
        SimController controller;
        PtyFront front(controller);
        QString reason;
        QVERIFY(front.open(&reason));
        {
            RawTerminalClient client;
            QVERIFY(client.open(front.devicePath()));
            QCOMPARE(client.ask("0RA"), QByteArray("0RA1\r\n"));
        }
        // No client now: the front must sleep, not spin on the closed device.
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

    void serialFrontAnswersOnADevice()
    {
        // A pseudo-terminal stands in for the cable: the front opens its device
        // side, the test talks on the other.
        PtyController cable;
        SimController controller;
        SerialFront front(controller);
        QSignalSpy failed(&front, &SerialFront::failed);
        connect(&front, &SerialFront::failed, this, [] { Waiter::wake(); });
        QString reason;
        QVERIFY2(front.open(cable.device(), &reason), qPrintable(reason));
        QVERIFY(cable.send("0RV\r\n"));
        QCOMPARE(cable.receive(11), QByteArray("0RVK01100\r\n"));

        // Pulling the cable ends the front with a reason.
        cable.hangUp();
        QVERIFY(Waiter::waitUntil([&] { return failed.count() > 0; }, 1000) == Waiter::Result::Done);

        SerialFront missing(controller);
        QVERIFY(!missing.open(QStringLiteral("/dev/no-such-serial-device"), &reason));
        QVERIFY(!reason.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestSimFronts)
#include "tst_simfronts.moc"
