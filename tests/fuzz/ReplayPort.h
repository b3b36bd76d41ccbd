#pragma once

#include "link/SerialPort.h"

#include <QByteArray>
#include <QList>

// A serial line that plays back what the fuzzer made up: each write is
// answered by the next group of steps, one step per turn of the event
// loop. A step is a chunk of bytes (its own read) or the cable being
// pulled. A write with no group left stays unanswered.
class ReplayPort : public SerialPort {
    Q_OBJECT
public:
    struct Step {
        QByteArray bytes;
        bool pull = false;
    };
    using Group = QList<Step>;

    using SerialPort::SerialPort;

    // The answers to the next writes, in order; earlier ones not played are dropped.
    void setGroups(const QList<Group>& groups) { m_groups = groups; }
    // Bytes the controller sends on its own, read at once.
    void arrive(const QByteArray& bytes);

    bool open(const QString&, const QString&) override;
    void close() override { m_open = false; }
    bool isOpen() const override { return m_open; }
    qint64 write(const QByteArray& data) override;
    qint64 bytesAvailable() const override { return m_input.size(); }
    QByteArray readAll() override;
    void discardInput() override { m_input.clear(); }
    QString errorString() const override { return {}; }

private:
    void play(Group steps);

    QList<Group> m_groups;
    QByteArray m_input;
    bool m_open = false;
};
