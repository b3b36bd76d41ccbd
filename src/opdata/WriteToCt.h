#pragma once

#include "link/ReadBack.h"

struct OpDataState;
struct SequenceContext;
class OpDataView;

// "Write to C/T" (cmdLoadtoCt, mnuFileLoadtoCt): the screen's operation
// data into the controller, which stores it.
class WriteToCt {
public:
    WriteToCt(SequenceContext& ctx, OpDataState& state, OpDataView& view);

    // 0 when the controller took the data; 1 when it did not (a field
    // missing, cancelled, refused or failed; the reason was shown). The
    // window's option decides whether the write is read back.
    int run();
    // With readBack, a write that went through is read back
    // (ReadOpDataBack) before the controls are given back, and the outcome
    // is shown.
    int run(bool readBack);

    // The read-back of the last run (NotRun without one).
    const ReadBack& readBack() const { return m_readBack; }

    // The exchange: "0WP" with row 0 of PosiData, its echo checked, then
    // "0WA" "0101". 0 when written, 1 after the failure was shown.
    int WritePosidataToCt();

private:
    int heldSteps();
    int steps();
    void confirmWrite();

    SequenceContext& m_ctx;
    OpDataState& m_state;
    OpDataView& m_view;
    bool m_readBackAsked = false;
    ReadBack m_readBack;
};
