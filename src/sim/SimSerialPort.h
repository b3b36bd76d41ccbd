#pragma once

#include "common/SerialPort.h"
#include "sim/LinePacer.h"

class SimController;

// The serial port of `--simulator`: a pipe inside the program to a virtual
// controller. Opening always succeeds, whatever the port's name. What is
// written goes to the controller; its replies come back through readyRead
// from the event loop (never from inside write), at once or, with pacing,
// at the speed of a 9600-baud line, each reply starting only once its
// request would be through the line as well.
class SimSerialPort : public SerialPort {
    Q_OBJECT
public:
    // With a controller of its own.
    explicit SimSerialPort(QObject* parent = nullptr);
    // On a controller owned elsewhere (tests that also drive its inputs).
    explicit SimSerialPort(SimController* controller, QObject* parent = nullptr);

    SimController& controller() { return *m_controller; }
    void setPacing(bool on) { m_pacer.setEnabled(on); }

    bool open(const QString& name, const QString& settings) override;
    void close() override;
    bool isOpen() const override { return m_open; }
    qint64 write(const QByteArray& data) override;
    qint64 bytesAvailable() const override { return m_input.size(); }
    QByteArray readAll() override;
    void discardInput() override { m_input.clear(); }
    QString errorString() const override { return {}; }

private:
    void arrive(const QByteArray& bytes);

    SimController* m_controller;
    LinePacer m_pacer;
    QByteArray m_input;
    bool m_open = false;
};
