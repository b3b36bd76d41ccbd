#pragma once

#include "link/CommandCatalogue.h"
#include "link/LinkOutcome.h"

#include <QString>

class Link;

// One routine per controller command: each stores its reply time-out,
// sends its frame through SendRecvCommand with its expected reply length
// (both from the command catalogue),
// and returns 0 (reply in reply()) or 1 (the link has shown the failure);
// outcome() says what the last one came to.
class CommandSet {
public:
    explicit CommandSet(Link& link);

    Link& link() { return m_link; }
    const LinkOutcome& outcome() const { return m_last; }
    QString reply() const { return m_last.reply(); }

    int CheckCommunication();                     // "0CM" "6", 6, 2000
    int SetCommMode(int mode);                    // "0CM" n (0..7, else 0), 6, 5000
    int ReadRunStatus();                          // "0RA", 6, 2000: 0..3, or -1
    int ReadParaBlock(int block, int timeoutMs);  // "0RD" block digit, 38
    int WriteParaBlock(const QString& blockText); // "0WD" text (digit + 32 hex), 6, 5000
    int WriteParaBlock7(const QString& digits);   // "0WD" "7" + 32 hex, 6, 5000
    int EndParaWrite();                           // "0WE", 5, 5000
    int EndParaWriteAlt();                        // "0WF", 5, 5000
    int ReadPosition(int n);                      // "0RP" HexPad(n, 2), 23, 5000
    int WritePosition(const QString& text);       // "0WP" text (18), 7, 5000
    int EndPositionWrite();                       // "0WA" "0101", 5, 5000
    int MoveToPosition(int n);                    // "0MP" HexPad(n, 2), 7, 5000
    int AlarmReset();                             // "0AR", 5, 2000
    int ReadInputs();                             // "0RI", 8, 1000
    int ReadOutputs();                            // "0RO", 7, 1000
    int WriteOutputs(const QString& digits);      // "0WO" 2 hex, 7, 1000
    int ReadVersion();                            // "0RV", 11, 5000
    int ReadVersionOld();                         // "0%C", 16, 5000

    // Reply characters from the 1-based position pos, count of them.
    QString field(int pos, int count) const;

private:
    // timeoutMs 0: the catalogue's time-out of the command.
    int send(CommandCatalogue::Id id, const QString& data = {}, int timeoutMs = 0);

    Link& m_link;
    // Nothing was exchanged yet.
    LinkOutcome m_last{LinkOutcome::Kind::NotOpened, {}};
};
