#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

class CliSession;

// The arguments after a params command's name: its files, the options it
// takes ("-o FILE", "--current AMPS"), each followed by its value, and its
// flags ("--confirm").
class ParamsArguments {
public:
    // options: the options this command takes. files: the names of the
    // files it needs, as the usage line writes them ("FILE.pmt").
    ParamsArguments(const QStringList& options, const QStringList& files, const QStringList& flags = {});

    // 0 when the arguments fit; otherwise the usage error has been
    // reported and its exit status is returned.
    int parse(CliSession& session, const QStringList& args);

    QString file(int i) const { return m_files.at(i); }
    bool has(const QString& option) const { return m_values.contains(option); }
    QString value(const QString& option) const { return m_values.value(option); }

private:
    QStringList m_options;
    QStringList m_flags;
    QStringList m_fileNames;
    QStringList m_files;
    QHash<QString, QString> m_values;
};
