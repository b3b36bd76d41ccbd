#include "common/Waiter.h"
#include "sim/LinePacer.h"

#include <QElapsedTimer>
#include <QTest>

namespace {

// A pacer and what it lets out, with when the last piece came.
struct PacedLine {
    explicit PacedLine(bool paced = true)
    {
        pacer.setEnabled(paced);
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

QByteArray text(int size, char first = 'a')
{
    QByteArray t;
    for (int i = 0; i < size; ++i)
        t += char(first + i % 26);
    return t;
}

} // namespace

class TestLinePacer : public QObject {
    Q_OBJECT

private slots:
    // 100 x 10 bits at 9600 bit/s = 104.2 ms, also when the second half is queued behind the first.
    void hundredCharactersTakeTheirLineTime()
    {
        PacedLine line;
        line.pacer.send(text(50));
        Waiter::sleep(20);
        line.pacer.send(text(50, 'A'));
        QVERIFY(line.waitFor(100));
        QCOMPARE(line.received, text(50) + text(50, 'A'));
        QVERIFY2(line.lastMs >= 104.0 * 0.9 && line.lastMs <= 104.2 * 1.1, QByteArray::number(line.lastMs));
        QVERIFY(line.pieces > 10);
    }

    void aBurstAfterIdleStartsAfresh()
    {
        PacedLine line;
        line.pacer.send(text(10));
        QVERIFY(line.waitFor(10));
        Waiter::sleep(50);
        const double sentAt = line.clock.nsecsElapsed() / 1e6;
        line.pacer.send(text(20));
        QVERIFY(line.waitFor(30));
        // Its own 20 characters' time, not out at once on the old schedule.
        const double took = line.lastMs - sentAt;
        QVERIFY2(took >= 20.8 * 0.9 && took <= 20.8 * 1.1 + 2, QByteArray::number(took));
    }

    // A pseudo-terminal hands the request over at once; the reply must still
    // wait for the request's own line time, but a reply that comes later
    // than that does not wait any further.
    void aReplyWaitsForItsRequestToBeIn()
    {
        PacedLine line;
        line.pacer.holdForRequest(40);
        line.pacer.send(text(10));
        QVERIFY(line.waitFor(10));
        // 50 characters: 52.1 ms.
        QVERIFY2(line.lastMs >= 52.1 - 1 && line.lastMs <= 52.1 * 1.1 + 2, QByteArray::number(line.lastMs));

        line.pacer.holdForRequest(5);
        Waiter::sleep(30);
        const double sentAt = line.clock.nsecsElapsed() / 1e6;
        line.pacer.send(text(10));
        QVERIFY(line.waitFor(20));
        const double took = line.lastMs - sentAt;
        QVERIFY2(took >= 10.4 - 1 && took <= 10.4 * 1.1 + 2, QByteArray::number(took));
    }

    // Unpaced bytes pass at once; clear drops what is not out yet.
    void withoutPacingOrCleared()
    {
        PacedLine unpaced(false);
        unpaced.pacer.send(text(100));
        QCOMPARE(unpaced.received, text(100));
        QCOMPARE(unpaced.pieces, 1);
        PacedLine line;
        line.pacer.send(text(100));
        Waiter::sleep(20);
        line.pacer.clear();
        const qsizetype outBeforeClear = line.received.size();
        Waiter::sleep(100);
        QCOMPARE(line.received.size(), outBeforeClear);
        QVERIFY(outBeforeClear < 100);
    }
};

QTEST_GUILESS_MAIN(TestLinePacer)
#include "tst_linepacer.moc"
