#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

// Which requests a fault applies to: none, every command, or a list of
// command letters ("RA", "RD", "%C"...).
class CommandMatch {
public:
    static CommandMatch all();
    // "all", or letters separated by commas ("RA,RD"; a leading station
    // "0" is allowed: "0RA"). Empty when the text names no command.
    static std::optional<CommandMatch> parse(const QString& text);

    bool matches(const QByteArray& letters) const;
    bool isNone() const { return !m_all && m_letters.isEmpty(); }

private:
    bool m_all = false;
    QList<QByteArray> m_letters;
};

// Faults the virtual controller can be told to show, for tests and for
// trying out the tool's error handling. Set from ktr-sim's command line
// or directly by tests; everything off by default.
struct SimFaults {
    // How long the LF is held back after the CR when a reply is split, unless
    // splitGapMs says otherwise.
    static constexpr int SplitGapMs = 30;
    // The noise put in front of a reply by `garbage`.
    static QByteArray garbageBytes() { return QByteArray("\xFF\x00\x7E\x13", 4); }

    CommandMatch silence; // the request is lost: no answer, no effect
    CommandMatch late;    // answered lateMs after the request
    int lateMs = 0;
    CommandMatch extraChar; // one character too many before CR LF
    CommandMatch wrongEcho; // the reply names another command
    CommandMatch splitCrLf; // CR and LF in separate writes
    int splitGapMs = SplitGapMs;
    CommandMatch errorReply; // refused with errorCode instead of executed
    QByteArray errorCode;
    CommandMatch garbage; // noise bytes in front of the reply

    // An alarm (301, 302 or 303): raised alarmAfterMs after start, or
    // part-way through the next move when alarmOnMove is set.
    QByteArray alarmCode;
    int alarmAfterMs = 0;
    bool alarmOnMove = false;

    // An error line ("0%%" + code) sent on its own every errorLineEveryMs,
    // whatever the client is doing: it may reach the client just as a
    // request goes out.
    QByteArray errorLineCode;
    int errorLineEveryMs = 0;

    bool stbInput = false;
    bool stopInput = false;

    // Every write ("0WD", "0WE", "0WF", "0WP", "0WA") is acknowledged as
    // usual but nothing changes: the controller keeps its old values.
    bool writesNotTaken = false;

    // After this many requests the controller resets while answering:
    // half the reply goes out, then it starts again from its stored copy.
    int restartAfter = 0;
};
