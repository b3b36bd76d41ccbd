#include "sim/LinePacer.h"

#include <algorithm>

namespace {

// Timers tick in whole milliseconds. A character goes out at the tick
// nearest to the moment its stop bit ends, so a burst is on time on average
// instead of half a tick late every time.
constexpr qint64 TickNs = 1'000'000;
constexpr qint64 HalfTickNs = TickNs / 2;

} // namespace

LinePacer::LinePacer(QObject* parent)
    : QObject(parent)
{
    m_clock.start();
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &LinePacer::letOutDue);
}

void LinePacer::send(const QByteArray& bytes)
{
    if (!m_enabled) {
        emit paced(bytes);
        return;
    }
    if (m_pending.isEmpty()) {
        // A new burst starts now, or when the request it answers is all in,
        // unless the last character of the previous burst is still on the
        // line.
        const qint64 start = std::max(m_clock.nsecsElapsed(), m_requestDoneNs);
        const qint64 lineFree = m_busySinceNs + m_sent * CharNs;
        if (start >= lineFree) {
            m_busySinceNs = start;
            m_sent = 0;
        }
    }
    m_pending += bytes;
    scheduleNext();
}

void LinePacer::holdForRequest(qsizetype characters)
{
    if (!m_enabled)
        return;
    const qint64 arriving = std::max(m_clock.nsecsElapsed(), m_requestDoneNs);
    m_requestDoneNs = arriving + characters * CharNs;
}

void LinePacer::clear()
{
    m_pending.clear();
    m_timer.stop();
}

void LinePacer::letOutDue()
{
    const qint64 elapsed = m_clock.nsecsElapsed() - m_busySinceNs + HalfTickNs;
    const qint64 due = std::min<qint64>(elapsed / CharNs - m_sent, m_pending.size());
    if (due > 0) {
        const QByteArray out = m_pending.left(due);
        m_pending.remove(0, due);
        m_sent += due;
        emit paced(out);
    }
    scheduleNext();
}

void LinePacer::scheduleNext()
{
    if (m_pending.isEmpty() || m_timer.isActive())
        return;
    const qint64 nextDoneNs = m_busySinceNs + (m_sent + 1) * CharNs;
    const qint64 waitNs = std::max<qint64>(0, nextDoneNs - m_clock.nsecsElapsed());
    m_timer.start(int((waitNs + HalfTickNs) / TickNs));
}
