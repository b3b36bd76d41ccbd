#pragma once

struct OpDataState;
struct SequenceContext;
class OpDataView;

// "Read from C/T" (cmdGetfromCt, mnuFileGetfromCt): the operation data of
// the controller onto the screen.
class ReadFromCt {
public:
    ReadFromCt(SequenceContext& ctx, OpDataState& state, OpDataView& view);

    void run();

    // The exchange: communication check, "0RP" "01", the reply into row 0
    // of PosiDataRead. 0 when read, 1 after the failure was shown.
    int ReadPosidataFromCt();

private:
    bool heldSteps();
    bool askFirst();
    bool saveFirst();
    void showReadData();
    void showChoicesFromValues();

    SequenceContext& m_ctx;
    OpDataState& m_state;
    OpDataView& m_view;
};
