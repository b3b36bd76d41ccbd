#pragma once

struct OpDataState;
struct SequenceContext;
class OpDataView;

// "Write to C/T" (cmdLoadtoCt, mnuFileLoadtoCt): the screen's operation
// data into the controller, which stores it.
class WriteToCt {
public:
    WriteToCt(SequenceContext& ctx, OpDataState& state, OpDataView& view);

    // 0 when the controller took the data; 1 when it did not (a field
    // missing, cancelled, refused or failed; the reason was shown).
    int run();

    // The exchange: "0WP" with row 0 of PosiData, its echo checked, then
    // "0WA" "0101". 0 when written, 1 after the failure was shown.
    int WritePosidataToCt();

private:
    int heldSteps();
    int steps();

    SequenceContext& m_ctx;
    OpDataState& m_state;
    OpDataView& m_view;
};
