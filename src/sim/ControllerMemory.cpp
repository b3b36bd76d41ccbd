#include "sim/ControllerMemory.h"

#include "sim/SimStateFile.h"

ControllerMemory::ControllerMemory(QObject* parent)
    : QObject(parent)
{
}

bool ControllerMemory::useStateFile(const QString& path, QString* errorString)
{
    MemoryImage loaded = MemoryImage::factory();
    if (!SimStateFile::read(path, loaded, errorString))
        return false;
    m_stored = loaded;
    m_working = loaded;
    m_stateFile = path;
    return true;
}

void ControllerMemory::writeBlock(int number, const QByteArray& digits)
{
    m_working.blocks[number] = digits;
}

void ControllerMemory::storeBlocks(std::initializer_list<int> numbers)
{
    for (int n : numbers)
        m_stored.blocks[n] = m_working.blocks.value(n);
    save();
}

void ControllerMemory::writeRecord(int number, const QByteArray& data)
{
    m_working.records[number] = data;
}

void ControllerMemory::storeRecords(int first, int last)
{
    for (int n = first; n <= last; ++n)
        m_stored.records[n] = m_working.records[n];
    save();
}

void ControllerMemory::restart()
{
    m_working = m_stored;
}

void ControllerMemory::save()
{
    if (m_stateFile.isEmpty())
        return;
    QString reason;
    if (!SimStateFile::write(m_stateFile, m_stored, &reason))
        emit saveFailed(m_stateFile, reason);
}
