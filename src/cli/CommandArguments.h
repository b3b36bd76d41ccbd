#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

class CliSession;

// The arguments after a command's name: options followed by a value
// ("-o FILE", "--toggle OUT", which may be given more than once), flags
// ("--continuous"), and up to a number of plain words (file names).
class CommandArguments {
public:
    CommandArguments(const QStringList& valueOptions, const QStringList& flags, int maxWords);

    // 0 when the arguments fit; otherwise the usage error has been reported
    // and its exit status is returned.
    int parse(CliSession& session, const QStringList& args);

    const QStringList& words() const { return m_words; }
    bool has(const QString& option) const { return m_values.contains(option); }
    // The value given last.
    QString value(const QString& option) const;
    // Every value, in the order given.
    QStringList values(const QString& option) const { return m_values.value(option); }

private:
    QStringList m_valueOptions;
    QStringList m_flags;
    int m_maxWords;
    QStringList m_words;
    QHash<QString, QStringList> m_values;
};
