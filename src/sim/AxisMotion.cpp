#include "sim/AxisMotion.h"

AxisMotion::AxisMotion(QObject* parent)
    : QObject(parent)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, [this] { rest(Status::AtRest); });
}

void AxisMotion::start(int durationMs)
{
    m_status = Status::Moving;
    m_timer.start(durationMs);
    emit moveStarted(durationMs);
}

void AxisMotion::stop()
{
    if (moving())
        rest(Status::Stopped);
}

void AxisMotion::raiseAlarm(const QByteArray& code)
{
    m_alarmCode = code;
    rest(Status::Alarm);
}

void AxisMotion::clearAlarm()
{
    if (!alarm())
        return;
    m_alarmCode.clear();
    rest(Status::AtRest);
}

void AxisMotion::powerUp()
{
    m_alarmCode.clear();
    rest(Status::AtRest);
}

void AxisMotion::rest(Status status)
{
    m_timer.stop();
    m_status = status;
}
