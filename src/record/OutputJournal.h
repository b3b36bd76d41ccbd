#pragma once

#include "opdata/IoBits.h"
#include "record/JournalAction.h"

#include <QObject>
#include <QStringList>

#include <memory>

class IoMonitor;
class JournalRecorder;

// The journal of outputs switched in the input/output monitor: the clicks
// before the next tick are one write ("0WO") and one entry, ended by the
// reading that follows it. A text told meanwhile (the write or the reading
// failed) ends it as failed.
class OutputJournal : public QObject {
    Q_OBJECT
public:
    OutputJournal(JournalRecorder& recorder, IoMonitor& monitor, QObject* parent = nullptr);

    // An output lamp was clicked (after the monitor took the click).
    void clicked(IoLamp output);
    // The monitor stopped with a write still to be entered.
    void monitorStopped();

private:
    void readingShown();
    void finish(bool success, const QString& message = {});

    JournalRecorder& m_recorder;
    IoMonitor& m_monitor;
    std::unique_ptr<JournalAction> m_write;
    QList<IoLamp> m_outputs;
};
