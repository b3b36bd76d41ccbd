#pragma once

#include "record/JournalEntry.h"

#include <QElapsedTimer>
#include <QObject>

class JournalRecorder;

// One action that changes or moves a controller, on its way into the
// journal: from its start it gathers the frames the link exchanges (with the
// time since the start and their meaning) and the texts the user is told;
// finish appends the entry. An action that never reached the link (cancelled,
// refused before anything was sent) leaves no entry.
class JournalAction : public QObject {
    Q_OBJECT
public:
    JournalAction(JournalRecorder& recorder, const QString& action, QObject* parent = nullptr);

    void setWritten(const QJsonObject& written) { m_entry.written = written; }
    // The texts told since the start, one per line.
    QString toldText() const { return m_told.join(u'\n'); }
    bool reachedLink() const { return !m_entry.frames.isEmpty(); }

    // Appends the entry, once. message: what the user was told of a failure
    // other than through the prompter; by default what the prompter told.
    void finish(bool success, const QString& message = {});
    bool finished() const { return m_finished; }

private:
    void trace(char direction, const QByteArray& frame, const QString& meaning);

    JournalRecorder& m_recorder;
    JournalEntry m_entry;
    QElapsedTimer m_clock;
    QStringList m_told;
    bool m_finished = false;
};
