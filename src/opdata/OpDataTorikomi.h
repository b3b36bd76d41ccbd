#pragma once

class Prompter;
class PosiTable;
struct OpDataScreen;

// Takes the screen into row 0 of the operation data table, before a write to
// the controller, a save or a print.
class OpDataTorikomi {
public:
    // VEL, ACC, DIVISION and GEAR as 16-bit integers and DIR from the
    // direction buttons; the spares stay as they are. 0 when taken; 1 after
    // messages 52 and 62 when a field does not convert (the table is then
    // left unchanged).
    static int PosiDataTorikomi(const OpDataScreen& screen, PosiTable& PosiData, Prompter& prompter);

    // The four fields must be filled first: an empty one shows 400 and 401
    // and gives 1. Otherwise as PosiDataTorikomi.
    static int PosiDataCheckAndTorikomi(const OpDataScreen& screen, PosiTable& PosiData,
                                        Prompter& prompter);
};
