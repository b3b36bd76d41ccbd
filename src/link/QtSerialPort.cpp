#include "link/QtSerialPort.h"

#include "link/LineSettings.h"
#include "link/LinkLog.h"

QtSerialPort::QtSerialPort(QObject* parent)
    : SerialPort(parent)
    , m_port(new QSerialPort(this))
{
    connect(m_port, &QSerialPort::readyRead, this, [this] {
        if (!m_taking)
            emit readyRead();
    });
    connect(m_port, &QSerialPort::errorOccurred, this, &QtSerialPort::onError);
}

bool QtSerialPort::open(const QString& name, const QString& settings)
{
    m_error.clear();
    m_port->setPortName(name);
    if (!m_port->open(QIODevice::ReadWrite)) {
        m_error = m_port->errorString();
        return false;
    }
    if (!applySettings(settings)) {
        m_port->close();
        return false;
    }
    return true;
}

bool QtSerialPort::applySettings(const QString& settings)
{
    const auto line = LineSettings::parse(settings);
    if (!line) {
        m_error = QStringLiteral("invalid line settings \"%1\"").arg(settings);
        return false;
    }
    const bool ok = m_port->setBaudRate(line->baudRate) && m_port->setParity(line->parity)
        && m_port->setDataBits(line->dataBits) && m_port->setStopBits(line->stopBits)
        && m_port->setFlowControl(QSerialPort::NoFlowControl);
    if (!ok)
        m_error = m_port->errorString();
    return ok;
}

void QtSerialPort::close()
{
    m_port->close();
}

bool QtSerialPort::isOpen() const
{
    return m_port->isOpen();
}

qint64 QtSerialPort::write(const QByteArray& data)
{
    return m_port->write(data);
}

qint64 QtSerialPort::bytesAvailable() const
{
    return m_port->bytesAvailable();
}

QByteArray QtSerialPort::readAll()
{
    return m_port->readAll();
}

// What the driver holds is pulled in with a poll whose time-out is zero: it
// never waits. Its readyRead is not passed on, as the caller takes the bytes
// here; an empty poll leaves a time-out error behind, which means nothing.
QByteArray QtSerialPort::takeArrived()
{
    QByteArray bytes = m_port->readAll();
    m_taking = true;
    if (m_port->waitForReadyRead(0))
        bytes += m_port->readAll();
    m_taking = false;
    if (m_port->error() == QSerialPort::TimeoutError)
        m_port->clearError();
    return bytes;
}

// Clears the driver's buffer and the one inside QSerialPort.
void QtSerialPort::discardInput()
{
    m_port->clear(QSerialPort::Input);
    m_port->readAll();
}

QString QtSerialPort::errorString() const
{
    return m_error.isEmpty() ? m_port->errorString() : m_error;
}

// A device that is gone keeps reporting read errors (a hung-up line first
// reports failed reads, an unplugged adapter a resource error); the port is
// closed at the first one so that nothing spins on it.
void QtSerialPort::onError(QSerialPort::SerialPortError error)
{
    const bool gone = error == QSerialPort::ResourceError || error == QSerialPort::ReadError;
    if (!gone || !m_port->isOpen())
        return;
    m_error = m_port->errorString();
    qCInfo(lcLink) << "serial device" << m_port->portName() << "lost:" << m_error;
    m_port->close();
    emit lost();
}
