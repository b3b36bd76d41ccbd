#include "ReplayPort.h"

#include <QTimer>

void ReplayPort::arrive(const QByteArray& bytes)
{
    if (!m_open)
        return;
    m_input += bytes;
    emit readyRead();
}

bool ReplayPort::open(const QString&, const QString&)
{
    m_open = true;
    return true;
}

qint64 ReplayPort::write(const QByteArray& data)
{
    if (!m_groups.isEmpty())
        QTimer::singleShot(0, this, [this, steps = m_groups.takeFirst()] { play(steps); });
    return data.size();
}

QByteArray ReplayPort::readAll()
{
    const QByteArray out = m_input;
    m_input.clear();
    return out;
}

void ReplayPort::play(Group steps)
{
    if (steps.isEmpty() || !m_open)
        return;
    const Step step = steps.takeFirst();
    if (step.pull) {
        m_open = false;
        emit lost();
        return;
    }
    arrive(step.bytes);
    if (!steps.isEmpty())
        QTimer::singleShot(0, this, [this, steps] { play(steps); });
}
