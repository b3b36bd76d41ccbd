#include "record/Journal.h"

#include "common/MessageTable.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace {

constexpr int CannotWrite = 5600;

} // namespace

// The data folder of KTR-W5 whichever program writes: ktrctl's own
// application name would give it a folder of its own.
QString Journal::defaultDirectory()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/KTR-W5/journal");
}

QString Journal::fileName(const QDate& month)
{
    return QStringLiteral("journal-%1.jsonl").arg(month.toString(QStringLiteral("yyyy-MM")));
}

Journal::Journal(QString directory, std::function<void(const QString&)> warn)
    : m_directory(std::move(directory))
    , m_warn(std::move(warn))
{
}

bool Journal::append(const JournalEntry& entry)
{
    QFile file(QDir(m_directory).filePath(fileName(entry.time.date())));
    const QByteArray line = entry.toLine();
    const bool written = QDir().mkpath(m_directory) && file.open(QIODevice::WriteOnly | QIODevice::Append)
        && file.write(line) == line.size() && file.flush();
    if (!written && !std::exchange(m_warned, true) && m_warn)
        m_warn(Msg(CannotWrite).arg(file.fileName(), file.errorString()));
    return written;
}
