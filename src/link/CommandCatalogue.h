#pragma once

#include "link/LinkOutcome.h"

#include <QByteArray>
#include <QString>

class ErrorList;

// Every command the program sends to the controller: its letters, the length
// of its normal reply (CR LF counted), the reply time-out stored before it is
// sent, and what its frames mean. Sending (CommandSet) and reading frames
// back (--trace=decoded, the communication log) both take them from here.
namespace CommandCatalogue {

enum class Id {
    CheckCommunication,
    SetCommMode,
    ReadRunStatus,
    ReadParaBlock,
    WriteParaBlock,
    EndParaWrite,
    EndParaWriteAlt,
    ReadPosition,
    WritePosition,
    EndPositionWrite,
    MoveToPosition,
    AlarmReset,
    ReadInputs,
    ReadOutputs,
    WriteOutputs,
    ReadVersion,
    ReadVersionOld,
};

struct Command {
    const char* code; // station and letters: "0RD"
    int replyLength;
    int timeoutMs; // parameter block reads: the sequence chooses (2000 or 3000)
};

const Command& command(Id id);

// The meaning of a request as it went out (without CR LF), in the active
// language: "read parameter block 1".
QString meaningOfRequest(const QByteArray& frame);
// The meaning of a line received (without CR LF): "status: move finished",
// "error reply C93 (<the error list's text>)".
QString meaningOfReply(const QByteArray& line, const ErrorList& errors);
// A transaction that ended without a usable reply: time-out, length or echo
// error, port lost, port not opened.
QString meaningOfFailure(LinkOutcome::Kind kind, int timeoutMs);

} // namespace CommandCatalogue
