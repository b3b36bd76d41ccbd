#pragma once

#include <QString>

// The unit identification of each port, as last given in the Options dialog
// or to a report: journal entries of the desktop tool carry it, and the next
// report on the port proposes it.
class UnitByPort {
public:
    // Empty when none was given on that port.
    static QString lastFor(const QString& port);
    static void remember(const QString& port, const QString& unit);
};
