#pragma once

#include <QString>
#include <stdexcept>

// A failure of the kind the original runtime raised as a trappable error: the
// routine that can meet it catches it and reports it in its own words.
class RuntimeError : public std::runtime_error {
public:
    enum class Kind {
        Overflow,     // a number does not fit its integer type
        TypeMismatch, // a text where a number is required
        Subscript,    // an index beyond a table's bounds
        FileNotFound,
        InputPastEnd, // a file ends before all items are read
        FileTooLarge, // refused before reading, so hostile input stays cheap
        Io,           // any other read or write failure
    };

    RuntimeError(Kind kind, const QString& detail = {})
        : std::runtime_error(detail.toStdString())
        , m_kind(kind)
    {
    }

    Kind kind() const { return m_kind; }

private:
    Kind m_kind;
};
