#include "common/Waiter.h"
#include "sim/LinePacer.h"
#include "sim/PtyFront.h"
#include "sim/SerialFront.h"
#include "sim/SimController.h"
#include "sim/SimSerialPort.h"
#include "support/PtyController.h"
#include "support/RawTerminalClient.h"

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
template<typename Port>
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

// A pacer and what it lets out, with when the last piece came.
struct PacedLine {
    PacedLine()
    {
        pacer.setEnabled(true);
        clock.start();
        QObject::connect(&pacer, &LinePacer::paced, &context, [this](const QByteArray& bytes) {
            received += bytes;
            ++pieces;
            lastMs = clock.nsecsElapsed() / 1e6;
            Waiter::wake();
        });
    }
    bool waitFor(qsizetype size)
    {
        return Waiter::waitUntil([&] { return received.size() >= size; }, 2000) == Waiter::Result::Done;
    }

    LinePacer pacer;
    QObject context;
    QElapsedTimer clock;
    QByteArray received;
    int pieces = 0;
    double lastMs = 0;
};

} // namespace

// The line of the virtual controller: the pacer that keeps the serial line's
// rate, the built-in port, the pseudo-terminal and the serial device fronts.
class TestSimFronts : public QObject {
    Q_OBJECT

private slots:
    // 100 x 10 bits at 9600 bit/s = 104.2 ms, also when the second half is queued behind the first.
    void hundredCharactersTakeTheirLineTime()
    {
        PacedLine line;
        line.pacer.send(QByteArray(50, 'a'));
        Waiter::sleep(20);
        line.pacer.send(QByteArray(50, 'A'));
        QVERIFY(line.waitFor(100));
        QCOMPARE(line.received, QByteArray(50, 'a') + QByteArray(50, 'A'));
        QVERIFY2(line.lastMs >= 104.0 * 0.9 && line.lastMs <= 104.2 * 1.1, QByteArray::number(line.lastMs));
        QVERIFY(line.pieces > 10);
    }

    // A pseudo-terminal hands the request over at once; the reply must still
    // wait for the request's own line time, but a reply that comes later
    // than that does not wait any further. A burst after idle takes its own
    // line time, not out at once on the old schedule.
    void aReplyWaitsForItsRequestToBeIn()
    {
        PacedLine line;
        line.pacer.holdForRequest(40);
        line.pacer.send(QByteArray(10, 'a'));
        QVERIFY(line.waitFor(10));
        // 50 characters: 52.1 ms.
        // The upper bounds leave room for a loaded machine's timer jitter.
        QVERIFY2(line.lastMs >= 52.1 - 1 && line.lastMs <= 52.1 * 1.1 + 8, QByteArray::number(line.lastMs));

        // A hold that ran out while the line was idle does not delay the
        // reply (it would by 20.8 ms if counted again).
        line.pacer.holdForRequest(20);
        Waiter::sleep(60);
        const double sentAt = line.clock.nsecsElapsed() / 1e6;
        line.pacer.send(QByteArray(10, 'a'));
        QVERIFY(line.waitFor(20));
        const double took = line.lastMs - sentAt;
        QVERIFY2(took >= 10.4 - 1 && took <= 10.4 * 1.1 + 8, QByteArray::number(took));
    }

    // Clear drops what is not out yet. (Unpaced bytes pass at once: every
    // in-process run of the virtual controller, tests/cli and tests/gui.)
    void clearDropsWhatIsNotOut()
    {
        PacedLine line;
        line.pacer.send(QByteArray(100, 'a'));
        Waiter::sleep(20);
        line.pacer.clear();
        const qsizetype outBeforeClear = line.received.size();
        Waiter::sleep(100);
        QCOMPARE(line.received.size(), outBeforeClear);
        QVERIFY(outBeforeClear < 100);
    }

    // Under any name; nothing is read during the write itself; replies of a
    // closed port are lost; waiting input can be dropped.
    void builtInPortAnswersAfterTheWrite()
    {
        SimController controller;
        SimSerialPort port(&controller);
        QCOMPARE(port.write("0RV\r\n"), qint64(-1));
        QVERIFY(port.open("COM99", "9600,N,8,1"));
        QSignalSpy spy(&port, &SerialPort::readyRead);
        QCOMPARE(port.write("0RV\r\n"), qint64(5));
        QCOMPARE(spy.count() + port.bytesAvailable(), 0);
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

    // 38 characters of 10 bits at 9600 bit/s, in more than one piece. (ktr-sim's
    // paced pseudo-terminal: tst_faults, an error line cut by a request.)
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
