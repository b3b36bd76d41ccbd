#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QTimer>

// What the controller sends, in order, each piece after its own delay.
// Pieces always leave from the event loop, never from inside the call that
// queued them, so a reply never arrives inside the write of its request.
class ReplyQueue : public QObject {
    Q_OBJECT
public:
    explicit ReplyQueue(QObject* parent = nullptr);

    // delayMs counts from when the piece before it leaves (or from now
    // when nothing is waiting).
    void push(const QByteArray& bytes, int delayMs = 0);

signals:
    void ready(const QByteArray& bytes);

private:
    struct Piece {
        qint64 dueMs;
        QByteArray bytes;
    };

    void sendDue();
    void schedule();

    QElapsedTimer m_clock;
    QTimer m_timer;
    QList<Piece> m_pieces;
};
