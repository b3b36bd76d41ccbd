#pragma once

#include <QList>
#include <QString>

#include <optional>

class Prompter;

// The controller's error codes and their texts, read from the error list
// file of the active language beside the program. The file holds a count,
// then that many pairs of key (the code as text) and message text. A list
// that cannot be read is marked missing; the program goes on without it.
class ErrorList {
public:
    static constexpr int MaxEntries = 40;

    struct Entry {
        QString key;
        QString text;
    };

    // Reads the list named by message 120. On any failure shows messages 30
    // and 31 and marks the list missing. 0 when read, 1 when missing.
    int Get_ErrorList(Prompter& prompter);

    // Reads the file at path; false (and the list marked missing) on any
    // failure, including a count above MaxEntries.
    bool load(const QString& path);

    bool missing() const { return m_missing; }
    const QList<Entry>& entries() const { return m_entries; }
    // The first entry whose key equals key.
    std::optional<Entry> find(const QString& key) const;

private:
    QList<Entry> m_entries;
    bool m_missing = false;
};
