#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

struct MoveTestState;
struct SequenceContext;
class OpDataView;

// "MOVE" (cmdMOVE): one indexing move in step mode, or a series of up to 15
// in continuous mode with an optional dwell between them, each a "0MP" "01"
// followed by status queries until the move is over. "STOP" (cmdSTOP) ends a
// series after the move in progress.
class MoveRun : public QObject {
    Q_OBJECT
public:
    // Pause between two status queries while a move runs; see Homing.
    static constexpr int PollGapMs = 30;
    // Settling time after the controller accepted a move.
    static constexpr int AfterStartMs = 100;
    static constexpr int SeriesLength = 15;

    enum class Result {
        Done,      // the moves ran (a stopped series too)
        NotAtRest, // the controller was moving or in alarm: nothing was sent
        Failed,    // a transaction failed and was reported, the wait was aborted, or
                   // STOP gave up a move the controller had stopped short of its end
    };

    MoveRun(SequenceContext& ctx, MoveTestState& state, OpDataView& view, QObject* parent = nullptr);

    // A click while a run is active is ignored and answers Failed.
    Result run();
    // STOP: seen after the move in progress or during the dwell; ends the
    // wait for a move that the controller stopped short of its end.
    void stop();
    bool isRunning() const { return m_running; }

    // The dwell timer; its interval is the dwell in tenths of a second × 100 ms.
    QTimer Timer2;

signals:
    // A move is over; moveNo counts the moves of the series from 1.
    void moveFinished(int moveNo);

private:
    enum class Poll {
        Finished,
        Failed,
        Aborted,
        GivenUp
    };

    Result steps();
    void takeLeftovers(bool continuous);
    bool moveOnce();
    Poll waitForMoveEnd();
    void dwell(const QString& dwellText);
    void WaitMs(int ms);
    bool stopped() const;
    bool continuous() const;

    SequenceContext& m_ctx;
    MoveTestState& m_state;
    OpDataView& m_view;
    bool m_running = false;
};
