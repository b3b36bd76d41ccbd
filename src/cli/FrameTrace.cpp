#include "cli/FrameTrace.h"

#include "link/Link.h"

#include <QTextStream>

FrameTrace::FrameTrace(Link& link, const QElapsedTimer& clock, QTextStream& err, QObject* parent)
    : QObject(parent)
    , m_clock(clock)
    , m_err(err)
{
    connect(&link, &Link::frameSent, this, [this](const QByteArray& frame) { print('>', frame); });
    connect(&link, &Link::lineReceived, this, [this](const QByteArray& line) { print('<', line); });
}

QString FrameTrace::line(qint64 elapsedMs, char direction, const QByteArray& frame)
{
    return QStringLiteral("+%1.%2 %3 %4")
        .arg(elapsedMs / 1000)
        .arg(elapsedMs % 1000, 3, 10, QLatin1Char('0'))
        .arg(QLatin1Char(direction))
        .arg(QString::fromLatin1(frame));
}

void FrameTrace::print(char direction, const QByteArray& frame)
{
    m_err << line(m_clock.elapsed(), direction, frame) << '\n';
    m_err.flush();
}
