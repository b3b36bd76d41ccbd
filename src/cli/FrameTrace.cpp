#include "cli/FrameTrace.h"

#include "link/CommandCatalogue.h"
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
    connect(&link, &Link::frameSent, this, [this](const QByteArray& frame) {
        print(TraceLine::Sent, frame, CommandCatalogue::meaningOfRequest(frame));
    });
    connect(&link, &Link::lineReceived, this, [this, errors](const QByteArray& line) {
        print(TraceLine::Received, line, CommandCatalogue::meaningOfReply(line, *errors));
    });
    connect(&link, &Link::transactionFailed, this, [this](LinkOutcome::Kind kind, int timeoutMs) {
        print(TraceLine::Event, {}, CommandCatalogue::meaningOfFailure(kind, timeoutMs));
    });
}

void FrameTrace::print(char direction, const QByteArray& frame, const QString& meaning)
{
    m_err << TraceLine::format(m_clock.elapsed(), direction, frame, meaning) << '\n';
    m_err.flush();
}
