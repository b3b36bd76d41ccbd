#include "link/CommLog.h"

#include "common/AtomicFile.h"
#include "common/MessageTable.h"
#include "link/DecodedFrames.h"
#include "link/Link.h"
#include "link/TraceLine.h"

#include <algorithm>

namespace {

constexpr int ColumnCaptions[CommLog::ColumnCount] = {5542, 5543, 5544, 5545};

} // namespace

CommLog::CommLog(Link& link, const ErrorList& errors, QObject* parent)
    : QAbstractTableModel(parent)
{
    m_clock.start();
    m_batch.setSingleShot(true);
    m_batch.setInterval(BatchMs);
    connect(&m_batch, &QTimer::timeout, this, &CommLog::endOfBatch);
    DecodedFrames::follow(link, errors, this, [this](char direction, const QByteArray& frame, const QString& meaning) {
        record(direction, frame, meaning);
    });
}

void CommLog::record(char direction, const QByteArray& frame, const QString& meaning)
{
    m_held.push_back({m_clock.elapsed(), direction, frame, meaning});
    if (m_held.size() > MaxRows)
        m_held.pop_front();
    if (!m_batch.isActive())
        m_batch.start();
}

void CommLog::endOfBatch()
{
    showHeld();
    emit countsChanged();
}

void CommLog::showHeld()
{
    if (m_paused || m_held.empty())
        return;
    const int incoming = int(m_held.size());
    if (incoming >= MaxRows) {
        beginResetModel();
        m_rows = std::move(m_held);
        m_held = {};
        endResetModel();
        return;
    }
    dropOldestShown(int(m_rows.size()) + incoming - MaxRows);
    const int first = int(m_rows.size());
    beginInsertRows({}, first, first + incoming - 1);
    std::move(m_held.begin(), m_held.end(), std::back_inserter(m_rows));
    m_held.clear();
    endInsertRows();
}

void CommLog::dropOldestShown(int count)
{
    if (count <= 0)
        return;
    beginRemoveRows({}, 0, count - 1);
    m_rows.erase(m_rows.begin(), m_rows.begin() + count);
    endRemoveRows();
}

void CommLog::setPaused(bool paused)
{
    m_paused = paused;
    showHeld();
    emit countsChanged();
}

void CommLog::clear()
{
    beginResetModel();
    m_rows.clear();
    m_held.clear();
    endResetModel();
    emit countsChanged();
}

QString CommLog::line(const Row& row) const
{
    return TraceLine::format(row.ms, row.direction, row.frame, row.meaning) + QLatin1Char('\n');
}

QString CommLog::lines(const QList<int>& rows) const
{
    QString text;
    for (int r : rows)
        if (r >= 0 && r < int(m_rows.size()))
            text += line(m_rows[r]);
    return text;
}

QString CommLog::allLines() const
{
    QString text;
    for (const Row& row : m_rows)
        text += line(row);
    return text;
}

bool CommLog::save(const QString& path, QString* errorString) const
{
    return AtomicFile::write(path, allLines().toUtf8(), errorString);
}

int CommLog::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int CommLog::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant CommLog::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= int(m_rows.size()))
        return {};
    if (role == Qt::TextAlignmentRole && index.column() == Time)
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole)
        return {};
    const Row& row = m_rows[index.row()];
    switch (index.column()) {
    case Time: return QString::number(row.ms);
    case Direction: return QString(QLatin1Char(row.direction));
    case Frame: return QString::fromLatin1(row.frame);
    case Meaning: return row.meaning;
    default: return {};
    }
}

QVariant CommLog::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= ColumnCount)
        return QAbstractTableModel::headerData(section, orientation, role);
    return Msg(ColumnCaptions[section]);
}
