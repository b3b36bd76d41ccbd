#pragma once

#include "sim/AxisMotion.h"
#include "sim/CommandInterpreter.h"
#include "sim/ControllerMemory.h"
#include "sim/ReplyQueue.h"
#include "sim/SimFaults.h"

#include <QByteArray>
#include <QObject>
#include <QTimer>

// The virtual controller: takes the bytes a client writes, answers each
// request line (ended by CR LF) as the controller does, and sends the
// replies, shaped by the injected faults, through `output`. The fronts
// (in-process port, pseudo-terminal, serial device) only carry bytes.
class SimController : public QObject {
    Q_OBJECT
public:
    // Noise without a line end is dropped beyond this length.
    static constexpr int MaxLineLength = 256;

    explicit SimController(QObject* parent = nullptr);

    // Multiplies every move and homing time (tests use small values).
    void setTimeScale(double scale);
    // Keeps the stored copy in path between runs (see ControllerMemory).
    bool useStateFile(const QString& path, QString* errorString);
    // Takes the faults, sets the inputs and arms the alarm they name.
    void setFaults(const SimFaults& faults);

    void receive(const QByteArray& bytes);

    // Stops the axis and sends one unsolicited "0%%" line with the code.
    void raiseAlarm(const QByteArray& code);
    void setInputs(bool stb, bool stop);
    // A controller reset: the working copy is reloaded from the stored one,
    // the axis is at rest, outputs off, partial input forgotten.
    void restart();

    ControllerMemory& memory() { return m_memory; }

signals:
    void output(const QByteArray& bytes);
    void restarted();

private:
    void handleLine(const QByteArray& line);
    bool restartDue();
    void sendReply(const QByteArray& letters, QByteArray reply);
    void armMoveAlarm(int durationMs);

    ControllerMemory m_memory;
    AxisMotion m_axis;
    CommandInterpreter m_interpreter{m_memory, m_axis};
    ReplyQueue m_queue;
    SimFaults m_faults;
    QTimer m_alarmTimer;
    QTimer m_errorLineTimer;
    QByteArray m_line;
    int m_requests = 0;
    bool m_moveAlarmPending = false;
};
