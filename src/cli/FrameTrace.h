#pragma once

#include <QElapsedTimer>
#include <QObject>

class ErrorList;
class Link;
class QTextStream;

// --trace: every frame sent and every line received, one per line on
// stderr, with the seconds since the program started:
// "+12.345 > 0RD0" and "+12.391 < 0RD0...". --trace=decoded adds each
// frame's meaning and a line of its own for a transaction that failed.
class FrameTrace : public QObject {
    Q_OBJECT
public:
    // errors: decode with this error list; nullptr for the plain trace.
    FrameTrace(Link& link, const QElapsedTimer& clock, QTextStream& err, const ErrorList* errors,
               QObject* parent = nullptr);

private:
    void print(char direction, const QByteArray& frame, const QString& meaning = {});

    const QElapsedTimer& m_clock;
    QTextStream& m_err;
};
