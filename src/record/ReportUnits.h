#pragma once

#include <QString>

// The unit identification last given to a report on each port, so the next
// report of the same port proposes it.
class ReportUnits {
public:
    // Empty when none was given on that port.
    static QString lastFor(const QString& port);
    static void remember(const QString& port, const QString& unit);
};
