// The journal reader on arbitrary bytes as a month's file: damaged lines are
// counted, never fatal; what is read is in time order, survives being
// written again unchanged, and can be shown; a range takes a part of it.
#include "FuzzSupport.h"

#include "record/JournalQuery.h"
#include "record/JournalText.h"

#include <QFileInfo>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString path = FuzzEnvironment::instance().writeFile(QStringLiteral("journal-2026-11.jsonl"), data, size);
    const QString folder = QFileInfo(path).path();
    const JournalListing all = JournalListing::read(folder, {});
    const qsizetype lines = QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)).count('\n') + 1;
    FUZZ_CHECK(all.damaged >= 0 && all.entries.size() + all.damaged <= lines);
    for (qsizetype i = 0; i < all.entries.size(); ++i) {
        const JournalEntry& entry = all.entries[i];
        FUZZ_CHECK(i == 0 || all.entries[i - 1].time <= entry.time);
        const auto again = JournalEntry::fromLine(entry.toLine());
        FUZZ_CHECK(again && again->toLine() == entry.toLine());
        FUZZ_CHECK(JournalText::cells(entry).size() == JournalText::Columns);
    }
    JournalText::table(all.entries);

    JournalQuery november;
    november.since = QDateTime(QDate(2026, 11, 10), QTime(0, 0), Qt::UTC);
    november.until = QDateTime(QDate(2026, 11, 20), QTime(0, 0), Qt::UTC);
    const JournalListing part = JournalListing::read(folder, november);
    FUZZ_CHECK(part.entries.size() <= all.entries.size() && part.damaged <= all.damaged);
    for (const JournalEntry& entry : part.entries)
        FUZZ_CHECK(november.takes(entry));
    return 0;
}
