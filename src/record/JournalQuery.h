#pragma once

#include "record/JournalEntry.h"

#include <QDateTime>
#include <QList>
#include <QString>

// Which entries of the journal to read: a time range, a port, a unit; an
// empty field does not restrict.
struct JournalQuery {
    QDateTime since;
    QDateTime until;
    QString port;
    QString unit;
    bool anyUnit = true; // false: only entries of exactly `unit` (an empty one too)
    bool frames = true;  // false: the entries come without their frames, read faster

    bool takes(const JournalEntry& entry) const;
    bool takesTime(const QDateTime& time) const;
};

// The entries of a journal folder that a query takes, oldest first, and how
// many lines were damaged (skipped, never fatal).
struct JournalListing {
    QList<JournalEntry> entries;
    int damaged = 0;

    static JournalListing read(const QString& directory, const JournalQuery& query);
};
