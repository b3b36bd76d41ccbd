#include "record/JournalQuery.h"

#include "record/Journal.h"

#include <QDir>
#include <QFile>

#include <algorithm>

bool JournalQuery::takesTime(const QDateTime& time) const
{
    return (!since.isValid() || time >= since) && (!until.isValid() || time <= until);
}

bool JournalQuery::takes(const JournalEntry& entry) const
{
    return takesTime(entry.time) && (port.isEmpty() || entry.port == port) && (anyUnit || entry.unit == unit);
}

namespace {

// A month's file can hold entries of the query only when the month meets
// its range (a day either side for the offsets of the entries).
bool monthMeets(const QString& name, const JournalQuery& query)
{
    const QDate first = QDate::fromString(name.mid(8, 7) + QStringLiteral("-01"), Qt::ISODate);
    if (!first.isValid())
        return false;
    const QDate last = first.addMonths(1);
    return (!query.since.isValid() || last.addDays(1) >= query.since.date())
        && (!query.until.isValid() || first.addDays(-1) <= query.until.date());
}

// The frames are most of a line. Outside strings a quote is never escaped,
// so the array's end is the one place where "]," and the next key meet.
QByteArray withoutFrames(const QByteArray& line)
{
    static const QByteArray start = QByteArrayLiteral(",\"frames\":[");
    static const QByteArray end = QByteArrayLiteral("],\"message\":");
    const qsizetype from = line.indexOf(start);
    const qsizetype to = from < 0 ? -1 : line.indexOf(end, from + start.size() - 1);
    return to < 0 ? line : line.left(from) + line.mid(to + 1);
}

void readFile(const QString& path, const JournalQuery& query, JournalListing& listing)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.trimmed().isEmpty())
            continue;
        if (const auto time = JournalEntry::timeOfLine(line); time && !query.takesTime(*time))
            continue;
        const auto entry = JournalEntry::fromLine(query.frames ? line : withoutFrames(line));
        if (!entry)
            ++listing.damaged;
        else if (query.takes(*entry))
            listing.entries << *entry;
    }
}

} // namespace

JournalListing JournalListing::read(const QString& directory, const JournalQuery& query)
{
    JournalListing listing;
    const QStringList names = QDir(directory).entryList({QStringLiteral("journal-*.jsonl")}, QDir::Files, QDir::Name);
    for (const QString& name : names) {
        if (monthMeets(name, query))
            readFile(QDir(directory).filePath(name), query, listing);
    }
    // Appended as they happened, entries are in order but where two
    // programs wrote at once.
    const auto earlier = [](const JournalEntry& a, const JournalEntry& b) { return a.time < b.time; };
    if (!std::is_sorted(listing.entries.begin(), listing.entries.end(), earlier))
        std::stable_sort(listing.entries.begin(), listing.entries.end(), earlier);
    return listing;
}
