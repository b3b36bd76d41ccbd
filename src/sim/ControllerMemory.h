#pragma once

#include "sim/MemoryImage.h"

#include <QObject>
#include <QString>

#include <initializer_list>

// The controller's memory: a working copy that every read and write uses,
// and a stored copy that the store commands fill and that a restart brings
// back. With a state file the stored copy also survives the program.
class ControllerMemory : public QObject {
    Q_OBJECT
public:
    explicit ControllerMemory(QObject* parent = nullptr);

    // Loads the stored copy (and the working copy with it) from path, and
    // saves it there on every store from now on. A missing file is fine.
    bool useStateFile(const QString& path, QString* errorString);

    QByteArray block(int number) const { return m_working.blocks.value(number); }
    QByteArray storedBlock(int number) const { return m_stored.blocks.value(number); }
    void writeBlock(int number, const QByteArray& digits);
    void storeBlocks(std::initializer_list<int> numbers);

    QByteArray record(int number) const { return m_working.records.value(number); }
    QByteArray storedRecord(int number) const { return m_stored.records.value(number); }
    void writeRecord(int number, const QByteArray& data);
    void storeRecords(int first, int last);

    // Power-up: what was not stored is gone.
    void restart();

signals:
    void saveFailed(const QString& path, const QString& reason);

private:
    void save();

    MemoryImage m_working = MemoryImage::factory();
    MemoryImage m_stored = MemoryImage::factory();
    QString m_stateFile;
};
