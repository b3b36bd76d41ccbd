#pragma once

struct OpDataScreen;
class PosiTable;

// Fills the screen from row 0 of a table, after a read from the controller
// or from a file.
class OpDataHyoji {
public:
    // txtVEL, txtACC, txtDIVISION and txtGEAR from VEL, ACC, DIVISION and
    // GEAR; the direction from DIR (an empty cell counts as 0, CW).
    static void PosiDataHyoji(const PosiTable& table, OpDataScreen& screen);

    // The speed and acceleration choices back from the values shown: comboACC
    // takes txtACC, comboVEL the choice that stands for txtVEL at txtGEAR.
    // A speed value or gear that is no number leaves comboVEL as it is.
    static void ChoicesFromValues(OpDataScreen& screen);
};
