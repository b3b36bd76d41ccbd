#pragma once

struct SequenceContext;
class OpDataView;

// "HOME" (cmdHOME): drives the unit to its home position ("0MP" "00") and
// waits until the controller reports the move over. Should the controller
// stop short of home (an alarm), STOP is offered and gives the wait up.
class Homing {
public:
    // Pause between two status queries: a "0RA" exchange takes about 10 ms
    // of line time, so the line stays mostly idle and the lamps, STOP and
    // the window keep up.
    static constexpr int PollGapMs = 30;

    Homing(SequenceContext& ctx, OpDataView& view);

    // SelectMove. 0 when the unit reported home reached; 1 when not (the
    // reason was shown). A click while homing runs is ignored.
    int run();
    // STOP: ends the wait only while the controller reports a stop short of home.
    void stop();

private:
    int steps();
    int waitForHome();
    void homeMoveFailed();

    SequenceContext& m_ctx;
    OpDataView& m_view;
    bool m_running = false;
    bool m_stopRequest = false;
};
