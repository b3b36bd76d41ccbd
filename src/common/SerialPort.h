#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

// The serial line to the controller. Adapters: a real serial port, and an
// in-process pipe to the virtual controller. Reception is event-driven:
// readyRead is emitted (never from inside write()) when input is waiting.
class SerialPort : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    // settings: the line settings text, always "9600,N,8,1" here.
    virtual bool open(const QString& name, const QString& settings) = 0;
    virtual void close() = 0;
    virtual bool isOpen() const = 0;
    virtual qint64 write(const QByteArray& data) = 0;
    virtual qint64 bytesAvailable() const = 0;
    virtual QByteArray readAll() = 0;
    // Everything that has arrived so far, also what the system holds and has
    // not reported yet, without a readyRead. An adapter with no buffer of
    // its own below it has no more than readAll() gives.
    virtual QByteArray takeArrived() { return readAll(); }
    // Drops input that arrived before a new request is written.
    virtual void discardInput() = 0;
    virtual QString errorString() const = 0;

signals:
    void readyRead();
    // The device went away while open (adapter pulled, peer closed).
    void lost();
};
