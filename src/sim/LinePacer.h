#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

// Lets bytes out at the speed of the serial line (9600 bit/s, 10 bits per
// character with start and stop bit), so a client sees replies arrive the
// way a real controller sends them. The schedule follows the elapsed time
// since the line became busy: every tick lets out all characters that are
// due by then, so coarse timer ticks never add up to drift.
// When pacing is off, bytes pass straight through.
class LinePacer : public QObject {
    Q_OBJECT
public:
    static constexpr qint64 CharNs = 10LL * 1'000'000'000 / 9600; // 1.0417 ms

    explicit LinePacer(QObject* parent = nullptr);

    void setEnabled(bool on) { m_enabled = on; }
    void send(const QByteArray& bytes);
    // A request of this many characters starts arriving now in the other
    // direction. A pseudo-terminal hands it over at once, but on a cable its
    // last character is through only after its line time, and the
    // controller cannot answer before that: whatever is sent next starts on
    // the line no earlier.
    void holdForRequest(qsizetype characters);
    // Forgets what has not gone out yet (the client went away).
    void clear();

signals:
    void paced(const QByteArray& bytes);

private:
    void letOutDue();
    void scheduleNext();

    bool m_enabled = false;
    QByteArray m_pending;
    QElapsedTimer m_clock;
    QTimer m_timer;
    qint64 m_busySinceNs = 0;   // when the first character of this burst began
    qint64 m_sent = 0;          // characters of this burst already out
    qint64 m_requestDoneNs = 0; // when the last request is all in
};
