#include "link/DecodedFrames.h"

#include "link/CommandCatalogue.h"
#include "link/Link.h"
#include "link/TraceLine.h"

void DecodedFrames::follow(Link& link, const ErrorList& errors, QObject* receiver, const Sink& sink)
{
    QObject::connect(&link, &Link::frameSent, receiver, [sink](const QByteArray& frame) {
        sink(TraceLine::Sent, frame, CommandCatalogue::meaningOfRequest(frame));
    });
    QObject::connect(&link, &Link::lineReceived, receiver, [sink, &errors](const QByteArray& line) {
        sink(TraceLine::Received, line, CommandCatalogue::meaningOfReply(line, errors));
    });
    QObject::connect(&link, &Link::transactionFailed, receiver, [sink](LinkOutcome::Kind kind, int timeoutMs) {
        sink(TraceLine::Event, {}, CommandCatalogue::meaningOfFailure(kind, timeoutMs));
    });
}
