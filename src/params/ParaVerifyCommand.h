#pragma once

struct ParaData;
struct ParaScreen;
struct SequenceContext;

// Verification of the shown parameters against the controller
// (cmdConpareCT) or a parameter file (cmdConpareFile). The result is one
// message box: "Result of Verify - OK", or "NG" with the differing names
// grouped.
class ParaVerifyCommand {
public:
    ParaVerifyCommand(SequenceContext& ctx, ParaData& data);

    // True when the controller's parameters were read (into the image).
    bool cmdConpareCT_Click(const ParaScreen& screen);
    void cmdConpareFile_Click(const ParaScreen& screen);

    // Both check the page first: an empty box gives messages 7 and 8, an
    // invalid value 1524 and 1525, as before a write.
    bool CompareWithController(const ParaScreen& screen);
    // A file that cannot be loaded stops the comparison with message 681
    // (after its own messages 22 and 20 when it is not a parameter file).
    void CompareWithFile(const ParaScreen& screen);

private:
    bool screenReady(const ParaScreen& screen);
    void report();

    SequenceContext& m_ctx;
    ParaData& m_data;
};
