#pragma once

#include "record/JournalAction.h"

#include <QObject>

#include <memory>

class JournalRecorder;
class MoveRun;

// The journal of one move run: each move of the series is an entry of its
// own (its number in the series), with the frames since the move before
// it ended.
class MoveJournal : public QObject {
    Q_OBJECT
public:
    // Made before the run starts.
    MoveJournal(JournalRecorder& recorder, MoveRun& run, QObject* parent = nullptr);

    // The run is over: a move that did not finish, or a run refused before
    // its first move, is entered as failed (message: as JournalAction::finish).
    void runEnded(bool done, const QString& message = {});

private:
    void moveFinished(int moveNo);
    void startNext();

    JournalRecorder& m_recorder;
    std::unique_ptr<JournalAction> m_move;
    int m_lastMove = 0;
};
