#pragma once

#include "common/SerialPort.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QSet>
#include <QStringList>

// A scriptable serial line: frames written are recorded; a scripted answer's
// chunks arrive after the write, each as its own read. Others stay unanswered.
class FakeSerialPort : public SerialPort {
    Q_OBJECT
public:
    using SerialPort::SerialPort;

    // The next write of frame is answered with chunks; answers scripted for
    // the same frame are used in order.
    void answer(const QByteArray& frame, const QList<QByteArray>& chunks, int delayMs = 0);
    void answer(const QByteArray& frame, const QByteArray& reply) { answer(frame, QList<QByteArray>{reply}); }
    // Bytes the controller sends on its own, delivered like an answer.
    void deliver(const QList<QByteArray>& chunks, int delayMs = 0);
    // Bytes already waiting in the input buffer, without a readyRead.
    void preload(const QByteArray& bytes) { m_input += bytes; }

    // Devices that cannot be opened (all of them with refuseAll).
    void refuse(const QString& name) { m_refused.insert(name); }
    void setRefuseAll(bool refuse) { m_refuseAll = refuse; }
    // The device goes away: closed, lost() emitted.
    void pull();

    bool open(const QString& name, const QString& settings) override;
    void close() override { m_open = false; }
    bool isOpen() const override { return m_open; }
    qint64 write(const QByteArray& data) override;
    qint64 bytesAvailable() const override { return m_input.size(); }
    QByteArray readAll() override;
    void discardInput() override { m_input.clear(); }
    QString errorString() const override { return m_error; }

    QList<QByteArray> frames; // every frame written, CR LF removed
    QStringList openAttempts; // every name open() was asked for
    QStringList opened;       // the names that opened
    QString lastSettings;

private:
    struct Answer {
        QList<QByteArray> chunks;
        int delayMs = 0;
    };
    void schedule(const Answer& answer);
    void deliverNext(QList<QByteArray> chunks);

    QHash<QByteArray, QList<Answer>> m_answers;
    QSet<QString> m_refused;
    bool m_refuseAll = false;
    bool m_open = false;
    QByteArray m_input;
    QString m_error;
};
