#pragma once

#include "sim/LinePacer.h"

#include <QObject>
#include <QSerialPort>
#include <QString>

class SimController;

// The virtual controller on a real serial device (a USB adapter looped to
// the PC that runs the tool), 9600 bit/s, 8 data bits, no parity, 1 stop bit.
class SerialFront : public QObject {
    Q_OBJECT
public:
    explicit SerialFront(SimController& controller, QObject* parent = nullptr);

    bool open(const QString& device, QString* errorString);
    void setPacing(bool on) { m_pacer.setEnabled(on); }

signals:
    // The device went away (adapter pulled).
    void failed(const QString& reason);

private:
    SimController& m_controller;
    LinePacer m_pacer;
    QSerialPort m_port;
};
