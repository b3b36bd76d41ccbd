#pragma once

#include "record/JournalEntry.h"

#include <QString>

#include <functional>

// The journal of changes made to controllers: JSON Lines, one file a month
// ("journal-2026-11.jsonl") in the data folder of KTR-W5, shared by the
// desktop tool and ktrctl. Each entry is written and flushed on its own, so
// a crash loses at most the entry being written. A journal that cannot be
// written is told once per run and never stops the work.
class Journal {
public:
    // The folder the programs use.
    static QString defaultDirectory();
    static QString fileName(const QDate& month);

    // warn: how a failure to write is told (once).
    explicit Journal(QString directory = defaultDirectory(), std::function<void(const QString&)> warn = {});

    QString directory() const { return m_directory; }
    // False when the entry could not be written.
    bool append(const JournalEntry& entry);

private:
    QString m_directory;
    std::function<void(const QString&)> m_warn;
    bool m_warned = false;
};
