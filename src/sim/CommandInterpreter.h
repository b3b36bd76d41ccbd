#pragma once

#include <QByteArray>
#include <QHash>

class AxisMotion;
class ControllerMemory;

// Answers one request line the way the controller does. Data fields are
// checked in the controller's order: characters (upper-case hex), then
// length, then value ranges, then whether the axis may be disturbed.
class CommandInterpreter {
public:
    static constexpr const char* TypeCode = "K01";
    static constexpr const char* VersionDigits = "100";

    CommandInterpreter(ControllerMemory& memory, AxisMotion& axis);

    // The reply to a line without its CR LF, itself without CR LF. Empty
    // when the line is addressed to another station (nobody answers it).
    QByteArray answer(const QByteArray& line);

    void setTimeScale(double scale) { m_timeScale = scale; }
    void setInputs(bool stb, bool stop);
    // Off: writes are acknowledged but leave the memory as it was, so the
    // store commands that follow keep the old values too.
    void setWritesTaken(bool taken) { m_writesTaken = taken; }
    // Outputs off.
    void powerUp();

private:
    using Handler = QByteArray (CommandInterpreter::*)(const QByteArray& data);
    static const QHash<QByteArray, Handler>& handlers();
    static const char* fieldError(const QByteArray& data, int length);

    QByteArray setMode(const QByteArray& data);
    QByteArray readStatus(const QByteArray& data);
    QByteArray readBlock(const QByteArray& data);
    QByteArray writeBlock(const QByteArray& data);
    QByteArray storeParameterBlocks(const QByteArray& data);
    QByteArray storeBlock7(const QByteArray& data);
    QByteArray readRecord(const QByteArray& data);
    QByteArray writeRecord(const QByteArray& data);
    QByteArray storeRecords(const QByteArray& data);
    QByteArray move(const QByteArray& data);
    QByteArray resetAlarm(const QByteArray& data);
    QByteArray readInputs(const QByteArray& data);
    QByteArray readOutputs(const QByteArray& data);
    QByteArray writeOutputs(const QByteArray& data);
    QByteArray readVersion(const QByteArray& data);
    QByteArray readVersionOldForm(const QByteArray& data);

    ControllerMemory& m_memory;
    AxisMotion& m_axis;
    double m_timeScale = 1.0;
    bool m_stb = false;
    bool m_stop = false;
    bool m_out1 = false;
    bool m_out2 = false;
    bool m_writesTaken = true;
};
