#include "record/MoveJournal.h"

#include "opdata/MoveRun.h"

MoveJournal::MoveJournal(JournalRecorder& recorder, MoveRun& run, QObject* parent)
    : QObject(parent)
    , m_recorder(recorder)
{
    connect(&run, &MoveRun::moveFinished, this, &MoveJournal::moveFinished);
    startNext();
}

void MoveJournal::startNext()
{
    m_move = std::make_unique<JournalAction>(m_recorder, JournalEntry::Move);
}

void MoveJournal::moveFinished(int moveNo)
{
    m_lastMove = moveNo;
    m_move->setWritten({{"move", moveNo}});
    m_move->finish(true);
    startNext();
}

// Frames after the last move's end with the run done are only the run's
// close: nothing of a move.
void MoveJournal::runEnded(bool done, const QString& message)
{
    if (done)
        return;
    m_move->setWritten({{"move", m_lastMove + 1}});
    m_move->finish(false, message);
}
