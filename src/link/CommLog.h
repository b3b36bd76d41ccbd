#pragma once

#include <QAbstractTableModel>
#include <QElapsedTimer>
#include <QTimer>

#include <deque>

class ErrorList;
class Link;

// The communication log of one link: every frame sent, every line received
// and every transaction that failed on the line, one row each, with the time
// since the log opened and what the command catalogue makes of it.
//
// It is a flat table model. Rows are recorded at once but come into the
// model in batches, one per BatchMs, so a fast poll costs one view update
// per batch rather than one per line. Only the last MaxRows are kept.
class CommLog : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column {
        Time,
        Direction,
        Frame,
        Meaning,
        ColumnCount
    };
    static constexpr int MaxRows = 10000;
    static constexpr int BatchMs = 150;

    CommLog(Link& link, const ErrorList& errors, QObject* parent = nullptr);

    // While paused, rows go on being recorded and are held back; resuming
    // brings them into the model at once.
    void setPaused(bool paused);
    bool paused() const { return m_paused; }
    int heldBack() const { return int(m_held.size()); }
    // Forgets every row, shown or held; the clock goes on.
    void clear();
    // Brings the held rows in now, unless paused.
    void showHeld();

    // The rows as trace lines ("+1.234 > 0RD0\tmeaning"), one per line.
    QString lines(const QList<int>& rows) const;
    QString allLines() const;
    // Writes allLines() in place of the file's content; a failed save leaves
    // the old file.
    bool save(const QString& path, QString* errorString) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

signals:
    // After each batch interval, and after pause, resume and clear.
    void countsChanged();

private:
    struct Row {
        qint64 ms;
        char direction;
        QByteArray frame;
        QString meaning;
    };

    void record(char direction, const QByteArray& frame, const QString& meaning);
    void endOfBatch();
    void dropOldestShown(int count);
    QString line(const Row& row) const;

    QElapsedTimer m_clock;
    QTimer m_batch;
    std::deque<Row> m_rows;
    std::deque<Row> m_held;
    bool m_paused = false;
};
