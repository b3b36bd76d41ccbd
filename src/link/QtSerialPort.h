#pragma once

#include "common/SerialPort.h"

#include <QSerialPort>

// The serial line over a real port of the system (or any tty device,
// including the pseudo-terminal of the virtual controller). Always without
// flow control; a device that goes away while open (a USB adapter pulled)
// is closed and reported through lost().
class QtSerialPort : public SerialPort {
    Q_OBJECT
public:
    explicit QtSerialPort(QObject* parent = nullptr);

    bool open(const QString& name, const QString& settings) override;
    void close() override;
    bool isOpen() const override;
    qint64 write(const QByteArray& data) override;
    qint64 bytesAvailable() const override;
    QByteArray readAll() override;
    QByteArray takeArrived() override;
    void discardInput() override;
    QString errorString() const override;

private:
    bool applySettings(const QString& settings);
    void onError(QSerialPort::SerialPortError error);

    QSerialPort* m_port;
    QString m_error;
    bool m_taking = false;
};
