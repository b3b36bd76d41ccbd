#pragma once

#include "record/JournalEntry.h"

#include <QString>
#include <QStringList>

// The journal as people read it, in the active language: the cells of a
// row of the ktrctl table and of the journal window, and the table as text.
namespace JournalText {

enum Column {
    Time,
    Unit,
    Port,
    Action,
    Outcome,
    Written,
};
constexpr int Columns = Written + 1;

QStringList headings();
// The cells of an entry's row.
QStringList cells(const JournalEntry& entry);

QString actionName(const QString& action);
// "done", or "failed" with the first line of the message.
QString outcome(const JournalEntry& entry);
// What was written, short: "VEL=12 ACC=3", "all parameters (41)", "OUT1=1".
QString writtenShort(const QJsonObject& written);

// The entries as a table of aligned columns, one row a line, headings first.
QString table(const QList<JournalEntry>& entries);

} // namespace JournalText
