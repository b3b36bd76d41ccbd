#include "cli/FrameTrace.h"

#include "link/DecodedFrames.h"
#include "link/Link.h"
#include "link/TraceLine.h"

#include <QTextStream>

FrameTrace::FrameTrace(Link& link, const QElapsedTimer& clock, QTextStream& err, const ErrorList* errors,
                       QObject* parent)
    : QObject(parent)
    , m_clock(clock)
    , m_err(err)
{
    if (!errors) {
        connect(&link, &Link::frameSent, this, [this](const QByteArray& frame) { print(TraceLine::Sent, frame); });
        connect(&link, &Link::lineReceived, this, [this](const QByteArray& line) { print(TraceLine::Received, line); });
        return;
    }
    DecodedFrames::follow(link, *errors, this, [this](char direction, const QByteArray& frame, const QString& meaning) {
        print(direction, frame, meaning);
    });
}

void FrameTrace::print(char direction, const QByteArray& frame, const QString& meaning)
{
    m_err << TraceLine::format(m_clock.elapsed(), direction, frame, meaning) << '\n';
    m_err.flush();
}
