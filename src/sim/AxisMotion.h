#pragma once

#include <QByteArray>
#include <QObject>
#include <QTimer>

// The axis of the virtual controller: at rest, moving for a given time,
// stopped by the STOP input, or held by an alarm. Its state is what "0RA"
// reports:
//   0  moving (homing or indexing);
//   1  at rest in position: after a finished move or homing, at power-up,
//      and after an alarm reset;
//   2  stopped by the STOP input before the move was finished;
//   3  an alarm is active (until "0AR").
class AxisMotion : public QObject {
    Q_OBJECT
public:
    enum class Status : char {
        Moving = '0',
        AtRest = '1',
        Stopped = '2',
        Alarm = '3'
    };

    explicit AxisMotion(QObject* parent = nullptr);

    void start(int durationMs);
    void stop();
    void raiseAlarm(const QByteArray& code);
    void clearAlarm();
    void powerUp();

    char statusDigit() const { return static_cast<char>(m_status); }
    bool moving() const { return m_status == Status::Moving; }
    bool alarm() const { return m_status == Status::Alarm; }
    bool inPosition() const { return m_status == Status::AtRest; }
    QByteArray alarmCode() const { return m_alarmCode; }

signals:
    void moveStarted(int durationMs);

private:
    void rest(Status status);

    QTimer m_timer;
    Status m_status = Status::AtRest;
    QByteArray m_alarmCode;
};
