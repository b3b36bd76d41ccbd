// Writes a journal of N entries, as a commissioning crew's months would
// leave it: the six actions in turn, a minute apart, each with the frames
// such an action exchanges (a move's status polls, a write's blocks).
// Usage: bench_journal_entries FOLDER [N]
#include "record/JournalEntry.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <array>
#include <cstdio>

namespace {

struct Kind {
    const QString* action;
    QJsonObject written;
    QStringList frames;
};

QStringList polls(int count)
{
    QStringList frames{"+0.000 > 0RA\tread run status", "+0.001 < 0RA1\tstatus: move finished", "+0.002 > 0MP01\tmove to position 01",
                       "+0.003 < 0MP01\tacknowledged"};
    for (int i = 0; i < count; ++i) {
        const QString at = QStringLiteral("+0.%1").arg(100 + 30 * i, 3, 10, QLatin1Char('0'));
        frames << at + " > 0RA\tread run status" << at + " < 0RA0\tstatus: moving";
    }
    return frames << QStringLiteral("+0.999 < 0RA1\tstatus: move finished");
}

std::array<Kind, 6> kinds()
{
    const QStringList write{"+0.000 > 0RA\tread run status",
                            "+0.010 < 0RA1\tstatus: move finished",
                            "+0.020 > 0WD0001E1E210A0A0003E8000A0A00000000\twrite parameter block 0",
                            "+0.060 < 0WD0\tblock 0 accepted",
                            "+0.070 > 0WD10202019000FFFF14001C4C0064000000\twrite parameter block 1",
                            "+0.110 < 0WD1\tblock 1 accepted",
                            "+0.120 > 0WD2000114020003E80007D00A0500000000\twrite parameter block 2",
                            "+0.160 < 0WD2\tblock 2 accepted",
                            "+0.170 > 0WE\tstore the written parameters",
                            "+0.200 < 0WE\tacknowledged"};
    return {{
        {&JournalEntry::Move, {{"move", 3}}, polls(14)},
        {&JournalEntry::Home, {}, polls(10)},
        {&JournalEntry::ParamsWrite, {{"changed", QJsonObject{{"VEL", 33}, {"ACC", 2}, {"LS TIMER", 40}}}}, write},
        {&JournalEntry::OpDataWrite, {{"VEL", 300}, {"ACC", 1}, {"DIR", "CW"}, {"DIVISION", 12}, {"GEAR", 1}}, write.mid(0, 6)},
        {&JournalEntry::OutputToggle, {{"outputs", QJsonObject{{"OUT1", true}}}}, {"+0.000 > 0WO02\twrite outputs 02", "+0.012 < 0WO02\tacknowledged"}},
        {&JournalEntry::AlarmReset, {}, {"+0.000 > 0AR\talarm reset", "+0.009 < 0AR\tacknowledged"}},
    }};
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s FOLDER [N]\n", argv[0]);
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const int count = argc > 2 ? std::atoi(argv[2]) : 100000;
    QDir().mkpath(folder);
    const std::array<Kind, 6> actions = kinds();
    const QDateTime start = QDateTime::currentDateTime().addSecs(-60LL * count);
    QFile file;
    for (int i = 0; i < count; ++i) {
        const Kind& kind = actions[i % actions.size()];
        JournalEntry e;
        e.time = start.addSecs(60LL * i);
        e.time = e.time.toOffsetFromUtc(e.time.offsetFromUtc());
        e.program = i % 2 ? QStringLiteral("ktrctl") : QStringLiteral("ktr-w5");
        e.version = QStringLiteral("0.9.6");
        e.port = QStringLiteral("/dev/ttyUSB%1").arg(i % 3);
        e.unit = QStringLiteral("Station %1").arg(i % 12 + 1);
        e.controller = QStringLiteral("1.00");
        e.action = *kind.action;
        e.written = kind.written;
        e.success = i % 17 != 0;
        e.message = e.success ? QString() : QStringLiteral("Communication timeout error!");
        e.frames = kind.frames;
        const QString name = QDir(folder).filePath(QStringLiteral("journal-%1.jsonl").arg(e.time.toString(QStringLiteral("yyyy-MM"))));
        if (file.fileName() != name) {
            file.close();
            file.setFileName(name);
            if (!file.open(QIODevice::WriteOnly | QIODevice::Append))
                return 1;
        }
        file.write(e.toLine());
    }
    return 0;
}
