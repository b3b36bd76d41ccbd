#pragma once

#include <QByteArray>
#include <QString>

// One line of a frame trace: "+12.345 > 0RD0" (seconds since the trace
// began, the direction, the frame without CR LF). With a meaning, a tab and
// the meaning follow: "+12.345 > 0RD0\tread parameter block 0". A line of
// the link's own ("!", a time-out) has no frame: "+14.350 !\ttime-out: …".
namespace TraceLine {

constexpr char Sent = '>';
constexpr char Received = '<';
constexpr char Event = '!';

QString format(qint64 elapsedMs, char direction, const QByteArray& frame, const QString& meaning = {});

} // namespace TraceLine
