#pragma once

#include <functional>

class OpDataView;
class Printout;
class QWidget;
struct OpDataPrintData;
struct OpDataState;
struct SequenceContext;
class PrintSelectDialog;

// The print commands of the operation data tab: cmdDataPrint (which
// mnuFilePrint clicks) and cmdFilePrint. The print selection dialog asks
// what to print: the data on the page, taken into the table first, or a
// saved file, read as Open reads it. The printout then goes to the printer.
class OpDataPrintCommand {
public:
    using PrintFunction = std::function<bool(Printout&)>;

    OpDataPrintCommand(SequenceContext& ctx, OpDataView& view, OpDataState& state,
                       QWidget* mainWindow, PrintFunction print);

    // fileOnly: started from cmdFilePrint, so only a file can be chosen.
    void run(bool fileOnly);

private:
    // false when there is nothing to print (the reason was shown).
    bool dataToPrint(const PrintSelectDialog& dialog, OpDataPrintData& data);

    SequenceContext& m_ctx;
    OpDataView& m_view;
    OpDataState& m_state;
    QWidget* m_mainWindow;
    PrintFunction m_print;
};
