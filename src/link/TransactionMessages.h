#pragma once

#include <QString>

// The texts of the failures the transaction engine reports, in the active
// language, lines joined with CR LF as the message box shows them.
class TransactionMessages {
public:
    // No reply within the time-out: what to check.
    static QString timedOut();
    // An error reply. found: the code is in the error list (then the code as
    // the controller sent it and the text are shown), otherwise only the
    // text, which is whatever the last successful lookup left (empty when
    // there was none).
    static QString errorReply(bool found, const QString& errorNo, const QString& errorText);
    // A reply of the wrong length or echo.
    static QString lengthError();

    // An error line the controller sent on its own, not as the reply;
    // errorReplyText: the error as errorReply() words it.
    static QString ownError(const QString& errorReplyText);
    // The device went away while a request waited for its reply.
    static QString portLost();
    // Opening failed for a device that went away earlier.
    static QString lostPortNotReopened();
    // A second transaction while one waits for its reply.
    static QString refusedWhileBusy();
};
