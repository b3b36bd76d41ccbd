#include "sim/SimController.h"

#include "sim/ControllerError.h"

SimController::SimController(QObject* parent)
    : QObject(parent)
{
    connect(&m_queue, &ReplyQueue::ready, this, &SimController::output);
    connect(&m_axis, &AxisMotion::moveStarted, this, &SimController::armMoveAlarm);
    m_alarmTimer.setSingleShot(true);
    connect(&m_alarmTimer, &QTimer::timeout, this, [this] {
        if (!m_faults.alarmOnMove || m_axis.moving())
            raiseAlarm(m_faults.alarmCode);
    });
    connect(&m_errorLineTimer, &QTimer::timeout, this, [this] {
        m_queue.push(ControllerError::reply(m_faults.errorLineCode) + "\r\n");
    });
}

void SimController::setTimeScale(double scale)
{
    m_interpreter.setTimeScale(scale);
}

bool SimController::useStateFile(const QString& path, QString* errorString)
{
    return m_memory.useStateFile(path, errorString);
}

void SimController::setFaults(const SimFaults& faults)
{
    m_faults = faults;
    m_interpreter.setInputs(faults.stbInput, faults.stopInput);
    m_interpreter.setWritesTaken(!faults.writesNotTaken);
    m_alarmTimer.stop();
    m_moveAlarmPending = !faults.alarmCode.isEmpty() && faults.alarmOnMove;
    if (!faults.alarmCode.isEmpty() && !faults.alarmOnMove)
        m_alarmTimer.start(faults.alarmAfterMs);
    m_errorLineTimer.stop();
    if (faults.errorLineEveryMs > 0)
        m_errorLineTimer.start(faults.errorLineEveryMs);
}

void SimController::receive(const QByteArray& bytes)
{
    m_line += bytes;
    qsizetype end;
    while ((end = m_line.indexOf("\r\n")) >= 0) {
        const QByteArray line = m_line.left(end);
        m_line.remove(0, end + 2);
        if (!line.isEmpty())
            handleLine(line);
    }
    if (m_line.size() > MaxLineLength)
        m_line.clear();
}

void SimController::handleLine(const QByteArray& line)
{
    ++m_requests;
    const QByteArray letters = line.mid(1, 2);
    if (m_faults.silence.matches(letters))
        return;
    const QByteArray reply = m_faults.errorReply.matches(letters)
        ? ControllerError::reply(m_faults.errorCode)
        : m_interpreter.answer(line);
    if (reply.isEmpty())
        return;
    if (restartDue()) {
        m_queue.push(reply.left(reply.size() / 2));
        restart();
        return;
    }
    sendReply(letters, reply);
}

bool SimController::restartDue()
{
    return m_faults.restartAfter > 0 && m_requests == m_faults.restartAfter;
}

void SimController::sendReply(const QByteArray& letters, QByteArray reply)
{
    if (m_faults.wrongEcho.matches(letters))
        reply.replace(1, 2, letters == "RA" ? "RD" : "RA");
    if (m_faults.extraChar.matches(letters))
        reply += '0';
    if (m_faults.garbage.matches(letters))
        reply.prepend(SimFaults::garbageBytes());
    const int delay = m_faults.late.matches(letters) ? m_faults.lateMs : 0;
    if (m_faults.splitCrLf.matches(letters)) {
        m_queue.push(reply + '\r', delay);
        m_queue.push("\n", m_faults.splitGapMs);
    } else {
        m_queue.push(reply + "\r\n", delay);
    }
}

void SimController::armMoveAlarm(int durationMs)
{
    if (!m_moveAlarmPending)
        return;
    m_moveAlarmPending = false;
    m_alarmTimer.start(durationMs / 2);
}

void SimController::raiseAlarm(const QByteArray& code)
{
    m_axis.raiseAlarm(code);
    m_queue.push(ControllerError::reply(code) + "\r\n");
}

void SimController::setInputs(bool stb, bool stop)
{
    m_faults.stbInput = stb;
    m_faults.stopInput = stop;
    m_interpreter.setInputs(stb, stop);
}

void SimController::restart()
{
    m_memory.restart();
    m_axis.powerUp();
    m_interpreter.powerUp();
    m_alarmTimer.stop();
    m_line.clear();
    emit restarted();
}
