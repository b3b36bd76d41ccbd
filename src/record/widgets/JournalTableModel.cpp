#include "record/widgets/JournalTableModel.h"

#include "record/JournalText.h"

#include <algorithm>

void JournalTableModel::setEntries(QList<JournalEntry> entries)
{
    m_entries = std::move(entries);
    std::reverse(m_entries.begin(), m_entries.end());
    refilter();
}

void JournalTableModel::setFilter(const QString& text, QDate from, QDate to)
{
    m_text = text.trimmed();
    m_from = from;
    m_to = to;
    refilter();
}

// The action is found by its name in the journal and as the table shows it.
bool JournalTableModel::takes(const JournalEntry& entry) const
{
    const QDate day = entry.time.date();
    if ((m_from.isValid() && day < m_from) || (m_to.isValid() && day > m_to))
        return false;
    if (m_text.isEmpty())
        return true;
    const QStringList fields{entry.unit, entry.port, entry.action, JournalText::actionName(entry.action)};
    return std::any_of(fields.begin(), fields.end(),
                       [this](const QString& field) { return field.contains(m_text, Qt::CaseInsensitive); });
}

void JournalTableModel::refilter()
{
    beginResetModel();
    m_shown.clear();
    for (int i = 0; i < m_entries.size(); ++i) {
        if (takes(m_entries[i]))
            m_shown << i;
    }
    endResetModel();
}

const JournalEntry* JournalTableModel::entryAt(int row) const
{
    return row >= 0 && row < m_shown.size() ? &m_entries[m_shown[row]] : nullptr;
}

int JournalTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_shown.size());
}

int JournalTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : JournalText::Columns;
}

QVariant JournalTableModel::data(const QModelIndex& index, int role) const
{
    const JournalEntry* entry = entryAt(index.row());
    if (!entry || role != Qt::DisplayRole)
        return {};
    return JournalText::cells(*entry).value(index.column());
}

QVariant JournalTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return JournalText::headings().value(section);
}
