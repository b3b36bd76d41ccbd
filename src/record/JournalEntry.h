#pragma once

#include <QDateTime>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <optional>

// One change made to a controller: a write, an output switched, an alarm
// reset, a homing or a move run. Kept as one line of JSON in the journal.
struct JournalEntry {
    // The actions a journal records, as they are named in its lines.
    static const QString ParamsWrite;
    static const QString OpDataWrite;
    static const QString OutputToggle;
    static const QString AlarmReset;
    static const QString Home;
    static const QString Move;

    QDateTime time; // local time, its offset from UTC kept
    QString program;
    QString version;
    QString port;
    QString unit;       // the unit identification; empty when none was given
    QString controller; // the controller's version; empty when not known
    QString action;
    QJsonObject written; // what the action wrote, as the action names it
    bool success = false;
    QString message;    // what the user was told when it failed
    QStringList frames; // trace lines of the frames the action exchanged

    QJsonObject toJson() const;
    QByteArray toLine() const;
    // Nothing when the line is not an entry (damaged, cut short, foreign).
    static std::optional<JournalEntry> fromLine(const QByteArray& line);
    // The time of a line as toLine wrote it, without reading the rest.
    static std::optional<QDateTime> timeOfLine(const QByteArray& line);
};
