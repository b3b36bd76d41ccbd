#pragma once

#include "print/OpDataPrintData.h"

#include <QString>

class PosiTable;
class Prompter;
struct OpDataScreen;

// Where an operation data printout takes its values: the page, once its
// values have been taken into row 0 of the table, or a saved file.
class OpDataPrintSource {
public:
    // The speed choice and the current as the page shows them, the record
    // as taken into PosiData.
    static OpDataPrintData fromScreen(const OpDataScreen& screen, const PosiTable& PosiData);

    // The file read as Open reads it: the reader keeps no direction, so the
    // direction is the one of `shown` (what the page would show after
    // opening the file). The speed choice is derived back from VEL and
    // GEAR. 0 when read; 1 after the reader's message when not.
    static int fromFile(const QString& path, const PosiTable& shown, Prompter& prompter,
                        OpDataPrintData& data);
};
