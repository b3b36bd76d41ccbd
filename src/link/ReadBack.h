#pragma once

#include <QString>

class Prompter;

// How the read-back after a write came out: a write is only known to be
// stored once the controller has been read again and holds what was sent.
struct ReadBack {
    enum class Result {
        NotRun,
        Confirmed,
        Differs,
        Failed,
    };

    Result result = Result::NotRun;
    QString report; // the differences found, as the message box shows them

    // The window's option "Confirm writes by reading back".
    static bool chosen();

    // The text of the outcome: written and confirmed (5560), the
    // differences, or written but not confirmed (5561).
    QString message() const;
    // The one message box of the outcome; a difference or a failed
    // read-back carries the warning icon.
    void tell(Prompter& prompter) const;
};
