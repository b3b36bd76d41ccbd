#pragma once

#include "link/ReadBack.h"

#include <QString>

#include <array>

struct ParaData;
struct ParaScreen;
struct SequenceContext;

// "Write" on the parameter page (cmdParaWrite): checks the shown parameters
// and sends them to the controller.
class ParaWriteCommand {
public:
    ParaWriteCommand(SequenceContext& ctx, ParaData& data);

    // Commands and menus off and the busy flag set around WriteParaWorker;
    // the port is closed afterwards unless it is kept occupied. The window's
    // option decides whether the write is read back. As WriteParaWorker: 0
    // when the parameters were written.
    int cmdParaWrite_Click(const ParaScreen& screen);

    // Confirmation (470), input check (7, 8), range check (1524, 1525), the
    // at-rest query (moving: 424, no answer: 377), WriteParaToCt, and the
    // outcome (1527 written, 1528 failed). With readBack, a write that went
    // through is read back (ReadParaBack) and the read-back's message is
    // shown instead of 1527. 0 when the parameters were written, 1 otherwise.
    int WriteParaWorker(const ParaScreen& screen, bool readBack = false);

    // The read-back of the last WriteParaWorker (NotRun without one).
    const ReadBack& readBack() const { return m_readBack; }

    // Sends the set: "0WD" for blocks 0, 1, 2 and "0WE"; for the special
    // actuator (size "20") also "0RD7", "0WD7" with the operating current
    // denryuText and "0WF". A transfer window with message 383 and a bar of
    // 7 steps shows the progress. A reply echoing the wrong block sets the
    // link's error flag and shows 384; block 7 data that is not hexadecimal
    // shows 385; a current that is not a number shows 4301.
    // 0 when everything was sent, 1 at the first failure.
    int WriteParaToCt(const QString& denryuText);

private:
    int sendBlocks(const std::array<QString, 3>& blocks, const QString& denryuText);
    bool replyEchoes(const QString& echo);
    int sendBlock7(const QString& denryuText);
    void step();

    SequenceContext& m_ctx;
    ParaData& m_data;
    int m_step = 0;
    ReadBack m_readBack;
};
