#pragma once

#include "record/JournalEntry.h"

#include <QAbstractTableModel>
#include <QDate>

// The entries of the journal window, newest first, as the rows its filter
// lets through: a text found in the unit, the port or the action, and the
// days from and to.
class JournalTableModel : public QAbstractTableModel {
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    void setEntries(QList<JournalEntry> entries);
    void setFilter(const QString& text, QDate from, QDate to);

    // The entry of a row shown; nullptr outside them.
    const JournalEntry* entryAt(int row) const;
    int total() const { return int(m_entries.size()); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    bool takes(const JournalEntry& entry) const;
    void refilter();

    QList<JournalEntry> m_entries;
    QList<int> m_shown;
    QString m_text;
    QDate m_from;
    QDate m_to;
};
