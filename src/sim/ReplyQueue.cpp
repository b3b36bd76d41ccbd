#include "sim/ReplyQueue.h"

#include <algorithm>

ReplyQueue::ReplyQueue(QObject* parent)
    : QObject(parent)
{
    m_clock.start();
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &ReplyQueue::sendDue);
}

void ReplyQueue::push(const QByteArray& bytes, int delayMs)
{
    const qint64 now = m_clock.elapsed();
    const qint64 after = m_pieces.isEmpty() ? now : std::max(now, m_pieces.last().dueMs);
    m_pieces.append({after + delayMs, bytes});
    schedule();
}

void ReplyQueue::sendDue()
{
    while (!m_pieces.isEmpty() && m_pieces.first().dueMs <= m_clock.elapsed())
        emit ready(m_pieces.takeFirst().bytes);
    schedule();
}

void ReplyQueue::schedule()
{
    if (m_pieces.isEmpty() || m_timer.isActive())
        return;
    m_timer.start(int(std::max<qint64>(0, m_pieces.first().dueMs - m_clock.elapsed())));
}
