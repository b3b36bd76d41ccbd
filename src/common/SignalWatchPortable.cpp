#include "common/SignalWatch.h"

#include <QTimer>

#include <atomic>
#include <csignal>

namespace {

// A lock-free atomic is the one thing a handler may touch besides
// sig_atomic_t, and it can count several signals between two looks. One
// count for the process: a program has one watch.
static_assert(std::atomic<int>::is_always_lock_free);
std::atomic<int> g_arrived{0};

// Fast enough that Ctrl-C feels immediate, slow enough to cost nothing.
constexpr int LookIntervalMs = 50;

extern "C" void countSignal(int number)
{
    g_arrived.fetch_add(1);
    // Some platforms reset the handler to the default before calling it.
    std::signal(number, countSignal);
}

} // namespace

struct SignalWatch::Source {
    QTimer timer;
};

void SignalWatch::hold(std::initializer_list<int> signalNumbers)
{
    for (const int number : signalNumbers)
        std::signal(number, countSignal);
}

SignalWatch::SignalWatch(std::initializer_list<int> signalNumbers, QObject* parent)
    : QObject(parent)
    , m_source(std::make_unique<Source>())
{
    hold(signalNumbers);
    connect(&m_source->timer, &QTimer::timeout, this, [this] {
        if (const int count = g_arrived.exchange(0))
            emit arrived(count);
    });
    m_source->timer.start(LookIntervalMs);
}

SignalWatch::~SignalWatch() = default;
