#pragma once

#include <QString>

#include <utility>

// What one SendRecvCommand came to. Every failure has been shown to the user
// by the link already; the caller only decides how its sequence goes on.
class LinkOutcome {
public:
    enum class Kind {
        Ok,          // a reply of the right echo and length
        TimedOut,    // no reply line within the time-out
        ErrorReply,  // the controller answered with an error line
        WrongReply,  // a reply of the wrong length or echo
        NotOpened,   // the port could not be opened
        RefusedBusy, // another transaction was still waiting for its reply
        PortLost,    // the device went away during the wait
        Aborted,     // the wait was given up: the program is closing
    };

    // The decoded error line of an ErrorReply. found: its code is in the
    // error list; otherwise text is whatever the last lookup left.
    struct Error {
        bool found = false;
        QString number;
        QString text;
    };

    // line: the last line received when the transaction ended (the reply
    // when Ok, the error line when ErrorReply).
    LinkOutcome(Kind kind, QString line)
        : m_kind(kind)
        , m_line(std::move(line))
    {
    }
    LinkOutcome(Kind kind, QString line, Error error)
        : m_kind(kind)
        , m_line(std::move(line))
        , m_error(std::move(error))
    {
    }

    bool ok() const { return m_kind == Kind::Ok; }
    Kind kind() const { return m_kind; }
    const QString& reply() const { return m_line; }
    const Error& error() const { return m_error; }
    // The line itself failed: nothing, or nothing usable, came back.
    bool commError() const
    {
        return m_kind == Kind::TimedOut || m_kind == Kind::WrongReply || m_kind == Kind::PortLost;
    }

private:
    Kind m_kind;
    QString m_line;
    Error m_error;
};
