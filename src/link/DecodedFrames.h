#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

class ErrorList;
class Link;
class QObject;

// Every frame a link sends and every line it receives with its meaning, and
// a line of its own for each transaction that failed: what the decoded
// trace, the communication log and the journal record.
namespace DecodedFrames {

// direction: TraceLine::Sent, Received or Event (no frame then).
using Sink = std::function<void(char direction, const QByteArray& frame, const QString& meaning)>;

// Feeds sink for as long as receiver lives.
void follow(Link& link, const ErrorList& errors, QObject* receiver, const Sink& sink);

} // namespace DecodedFrames
