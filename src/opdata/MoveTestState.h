#pragma once

#include <QtGlobal>

// The state of the move test that the tab keeps between runs.
struct MoveTestState {
    // Moves of the current series; a continuous series ends after 15.
    qint16 mMoveNo = 1;
    bool mStopRequest = false; // STOP was clicked during a run
    bool mStopOther = false;   // a second stop condition, set from outside the move test
                               // (whoever sets it calls Waiter::wake())
    bool mDwellOver = false;   // Timer2 fired
    bool mMoving = false;      // a move was started and its end not yet reported
};
