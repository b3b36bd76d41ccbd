#include "sim/SimSerialPort.h"

#include "sim/SimController.h"

#include <utility>

SimSerialPort::SimSerialPort(QObject* parent)
    : SimSerialPort(nullptr, parent)
{
}

SimSerialPort::SimSerialPort(SimController* controller, QObject* parent)
    : SerialPort(parent)
    , m_controller(controller ? controller : new SimController(this))
{
    connect(m_controller, &SimController::output, &m_pacer, &LinePacer::send);
    connect(&m_pacer, &LinePacer::paced, this, &SimSerialPort::arrive);
}

bool SimSerialPort::open(const QString&, const QString&)
{
    m_open = true;
    return true;
}

void SimSerialPort::close()
{
    m_open = false;
    m_input.clear();
    m_pacer.clear();
}

qint64 SimSerialPort::write(const QByteArray& data)
{
    if (!m_open)
        return -1;
    m_pacer.holdForRequest(data.size());
    m_controller->receive(data);
    return data.size();
}

QByteArray SimSerialPort::readAll()
{
    return std::exchange(m_input, {});
}

void SimSerialPort::arrive(const QByteArray& bytes)
{
    // Nobody listens on a closed port: the bytes are lost on the line.
    if (!m_open)
        return;
    m_input += bytes;
    emit readyRead();
}
