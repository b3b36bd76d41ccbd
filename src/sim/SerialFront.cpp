#include "sim/SerialFront.h"

#include "sim/SimController.h"

SerialFront::SerialFront(SimController& controller, QObject* parent)
    : QObject(parent)
    , m_controller(controller)
{
    connect(&m_controller, &SimController::output, &m_pacer, &LinePacer::send);
    connect(&m_pacer, &LinePacer::paced, &m_port, [this](const QByteArray& bytes) { m_port.write(bytes); });
    connect(&m_port, &QSerialPort::readyRead, this, [this] { m_controller.receive(m_port.readAll()); });
    connect(&m_port, &QSerialPort::errorOccurred, this, [this](QSerialPort::SerialPortError error) {
        if (error == QSerialPort::ResourceError)
            emit failed(m_port.errorString());
    });
}

bool SerialFront::open(const QString& device, QString* errorString)
{
    m_port.setPortName(device);
    const bool ok = m_port.open(QIODevice::ReadWrite)
        && m_port.setBaudRate(QSerialPort::Baud9600)
        && m_port.setDataBits(QSerialPort::Data8)
        && m_port.setParity(QSerialPort::NoParity)
        && m_port.setStopBits(QSerialPort::OneStop)
        && m_port.setFlowControl(QSerialPort::NoFlowControl);
    if (!ok)
        *errorString = m_port.errorString();
    return ok;
}
