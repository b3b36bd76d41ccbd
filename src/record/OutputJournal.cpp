#include "record/OutputJournal.h"

#include "link/PrompterTap.h"
#include "opdata/IoMonitor.h"
#include "record/JournalRecorder.h"

OutputJournal::OutputJournal(JournalRecorder& recorder, IoMonitor& monitor, QObject* parent)
    : QObject(parent)
    , m_recorder(recorder)
    , m_monitor(monitor)
{
    connect(&monitor, &IoMonitor::lampsShown, this, &OutputJournal::readingShown);
    connect(&recorder.tap(), &PrompterTap::told, this, [this](const QString& text) { finish(false, text); });
}

// A click the monitor did not take (stopped, stopping) writes nothing.
void OutputJournal::clicked(IoLamp output)
{
    if (!m_monitor.mIoWritePending)
        return;
    if (!m_write)
        m_write = std::make_unique<JournalAction>(m_recorder, JournalEntry::OutputToggle);
    m_outputs << output;
}

// Only the reading after the write ends the entry.
void OutputJournal::readingShown()
{
    if (m_write && !m_monitor.mIoWritePending)
        finish(true);
}

void OutputJournal::monitorStopped()
{
    finish(false);
}

// What the outputs read after the write.
void OutputJournal::finish(bool success, const QString& message)
{
    if (!m_write)
        return;
    QJsonObject outputs;
    for (IoLamp output : m_outputs)
        outputs.insert(IoBits::label(output), IoBits::lampOn(output, m_monitor.InputBits, m_monitor.OutputBits));
    m_write->setWritten({{"outputs", outputs}});
    m_write->finish(success, message);
    m_write.reset();
    m_outputs.clear();
}
