#include "common/Waiter.h"

#include <QEventLoop>
#include <QTimer>

namespace {

class Notifier : public QObject {
    Q_OBJECT
signals:
    void changed();
};

Notifier& notifier()
{
    static Notifier n;
    return n;
}

bool g_aborted = false;
int g_waits = 0;

// Counts the waits in progress for as long as one runs.
class Counted {
public:
    Counted() { ++g_waits; }
    ~Counted() { --g_waits; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
};

} // namespace

Waiter::Result Waiter::waitUntil(const std::function<bool()>& done, int timeoutMs)
{
    if (g_aborted)
        return Result::Aborted;
    if (done())
        return Result::Done;

    const Counted counted;
    QEventLoop loop;
    bool timedOut = false;
    QTimer timer;
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
        timedOut = true;
        loop.quit();
    });
    QObject::connect(&notifier(), &Notifier::changed, &loop, [&] {
        if (g_aborted || done())
            loop.quit();
    });
    if (timeoutMs >= 0)
        timer.start(timeoutMs);

    while (!g_aborted && !timedOut && !done()) {
        // Once the application quits, every event loop returns at once without
        // serving events: no wait could end then, and it would spin.
        if (loop.exec() < 0)
            abortAll();
    }

    if (g_aborted)
        return Result::Aborted;
    return done() ? Result::Done : Result::TimedOut;
}

Waiter::Result Waiter::sleep(int ms)
{
    const Result r = waitUntil([] { return false; }, ms);
    return r == Result::TimedOut ? Result::Done : r;
}

void Waiter::wake()
{
    emit notifier().changed();
}

void Waiter::abortAll()
{
    g_aborted = true;
    wake();
}

bool Waiter::waiting()
{
    return g_waits > 0;
}

bool Waiter::aborted()
{
    return g_aborted;
}

void Waiter::clearAbort()
{
    g_aborted = false;
}

#include "Waiter.moc"
