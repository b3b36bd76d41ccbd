#pragma once

#include <QElapsedTimer>
#include <QObject>

class Link;
class QTextStream;

// --trace: every frame sent and every line received, one per line on
// stderr, with the seconds since the program started:
// "+12.345 > 0RD0" and "+12.391 < 0RD0...".
class FrameTrace : public QObject {
    Q_OBJECT
public:
    FrameTrace(Link& link, const QElapsedTimer& clock, QTextStream& err, QObject* parent = nullptr);

    static QString line(qint64 elapsedMs, char direction, const QByteArray& frame);

private:
    void print(char direction, const QByteArray& frame);

    const QElapsedTimer& m_clock;
    QTextStream& m_err;
};
