#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "record/Journal.h"
#include "record/JournalQuery.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

namespace {

// An entry of the given day and hour (Japan time) on a port.
JournalEntry entry(int day, int hour, const QString& port, const QString& unit = {})
{
    JournalEntry e;
    e.time = QDateTime(QDate(2026, 11, day), QTime(hour, 5, 7, 123), Qt::OffsetFromUTC, 9 * 3600);
    e.program = QStringLiteral("ktrctl");
    e.version = QStringLiteral("0.9.6");
    e.port = port;
    e.unit = unit;
    e.controller = QStringLiteral("1.00");
    e.action = JournalEntry::ParamsWrite;
    e.written = {{"VEL", "12"}};
    e.success = hour % 2 == 0;
    e.message = e.success ? QString() : QStringLiteral("Communication timeout error!");
    e.frames = QStringList{"+0.000 > 0RA\tread run status", "+0.010 < 0RA1\tstatus: move finished"};
    return e;
}

QList<QDateTime> timesOf(const JournalListing& listing)
{
    QList<QDateTime> times;
    for (const JournalEntry& e : listing.entries)
        times << e.time;
    return times;
}

} // namespace

Q_DECLARE_METATYPE(JournalQuery)

class TestJournal : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_dir.emplace();
        QVERIFY(m_dir->isValid());
    }

    // What is appended is read back whole, its offset from UTC kept, in a
    // file of its month; damaged lines between entries are skipped and counted.
    void entriesSurviveDamagedLines()
    {
        Journal journal(m_dir->path());
        const JournalEntry written = entry(3, 9, "/dev/ttyUSB0", "Station 7");
        QVERIFY(journal.append(written));
        QFile file(m_dir->filePath("journal-2026-11.jsonl"));
        QVERIFY(file.open(QIODevice::Append));
        // A line cut short by a killed process, noise, and JSON that is no entry.
        file.write(written.toLine().left(40) + "\n\x01\x02garbage\n{\"time\":\"x\"}\n[1,2]\n");
        file.close();
        QVERIFY(journal.append(entry(4, 10, "/dev/ttyUSB1")));

        const JournalListing listing = JournalListing::read(m_dir->path(), {});
        QCOMPARE(listing.damaged, 4);
        QCOMPARE(listing.entries.size(), 2);
        const JournalEntry& back = listing.entries.first();
        QCOMPARE(back.toJson(), written.toJson());
        QCOMPARE(back.time.offsetFromUtc(), 9 * 3600);
        QVERIFY(written.toLine().startsWith("{\"time\":\"2026-11-03T09:05:07.123+09:00\","));
    }

    void queries_data()
    {
        QTest::addColumn<JournalQuery>("query");
        QTest::addColumn<QList<int>>("hours"); // of the entries listed, oldest first
        const auto at = [](int day, int hour) {
            return QDateTime(QDate(2026, 11, day), QTime(hour, 0), Qt::OffsetFromUTC, 9 * 3600);
        };
        QTest::newRow("all") << JournalQuery{} << QList<int>{8, 9, 10, 11, 12};
        QTest::newRow("since") << JournalQuery{at(2, 10), {}, {}, {}} << QList<int>{10, 11, 12};
        QTest::newRow("until") << JournalQuery{{}, at(2, 10), {}, {}} << QList<int>{8, 9};
        QTest::newRow("port") << JournalQuery{{}, {}, "/dev/ttyS1", {}} << QList<int>{9, 11};
        QTest::newRow("unit") << JournalQuery{{}, {}, {}, "Station 7", false} << QList<int>{10, 12};
        QTest::newRow("no unit") << JournalQuery{{}, {}, {}, {}, false} << QList<int>{8, 9, 11};
    }
    void queries()
    {
        Journal journal(m_dir->path());
        // Appended out of order; one in the month before.
        for (const int hour : {12, 8, 11, 9, 10}) {
            JournalEntry e = entry(2, hour, hour % 2 ? "/dev/ttyS1" : "/dev/ttyS0", hour >= 10 && hour % 2 == 0 ? "Station 7" : "");
            if (hour == 8)
                e.time = e.time.addMonths(-1);
            QVERIFY(journal.append(e));
        }
        QVERIFY(QFile::exists(m_dir->filePath("journal-2026-10.jsonl")));
        QFETCH(JournalQuery, query);
        QFETCH(QList<int>, hours);
        QList<int> listed;
        for (const QDateTime& t : timesOf(JournalListing::read(m_dir->path(), query)))
            listed << t.time().hour();
        QCOMPARE(listed, hours);
    }

    // A journal that cannot be written says so once and lets the work go on.
    void unwritableJournalWarnsOnce()
    {
        ProgramState::instance().gMsgBase = 10000;
        QFile blocker(m_dir->filePath("journal"));
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        QStringList warnings;
        Journal journal(blocker.fileName(), [&](const QString& text) { warnings << text; });
        QVERIFY(!journal.append(entry(1, 1, "COM1")));
        QVERIFY(!journal.append(entry(1, 2, "COM1")));
        QCOMPARE(warnings.size(), 1);
        QVERIFY2(warnings.first().startsWith("The journal cannot be written: " + blocker.fileName()), qPrintable(warnings.first()));
    }

private:
    std::optional<QTemporaryDir> m_dir; // a fresh one for every row
};

QTEST_GUILESS_MAIN(TestJournal)
#include "tst_journal.moc"
