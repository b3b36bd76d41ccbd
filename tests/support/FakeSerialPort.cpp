#include "support/FakeSerialPort.h"

#include <QTimer>

void FakeSerialPort::answer(const QByteArray& frame, const QList<QByteArray>& chunks, int delayMs)
{
    m_answers[frame].append({chunks, delayMs});
}

void FakeSerialPort::deliver(const QList<QByteArray>& chunks, int delayMs)
{
    schedule({chunks, delayMs});
}

void FakeSerialPort::schedule(const Answer& answer)
{
    QTimer::singleShot(answer.delayMs, this, [this, chunks = answer.chunks] { deliverNext(chunks); });
}

// One chunk per read: the next chunk is scheduled only after the reader
// has seen this one.
void FakeSerialPort::deliverNext(QList<QByteArray> chunks)
{
    if (chunks.isEmpty() || !m_open)
        return;
    m_input += chunks.takeFirst();
    emit readyRead();
    if (!chunks.isEmpty())
        QTimer::singleShot(0, this, [this, chunks] { deliverNext(chunks); });
}

bool FakeSerialPort::open(const QString& name, const QString& settings)
{
    openAttempts << name;
    if (m_open) {
        m_error = QStringLiteral("already open");
        return false;
    }
    if (m_refuseAll || m_refused.contains(name)) {
        m_error = QStringLiteral("no such device: ") + name;
        return false;
    }
    m_open = true;
    opened << name;
    lastSettings = settings;
    return true;
}

void FakeSerialPort::pull()
{
    m_open = false;
    emit lost();
}

qint64 FakeSerialPort::write(const QByteArray& data)
{
    QByteArray frame = data;
    if (frame.endsWith("\r\n"))
        frame.chop(2);
    frames << frame;
    QList<Answer>& answers = m_answers[frame];
    if (!answers.isEmpty())
        schedule(answers.takeFirst());
    return data.size();
}

QByteArray FakeSerialPort::readAll()
{
    const QByteArray out = m_input;
    m_input.clear();
    return out;
}
