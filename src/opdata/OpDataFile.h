#pragma once

#include <QString>

class Prompter;
class PosiTable;

// The operation data file (.qmd): three lines of comma-separated items,
//   "QM-B4","Position"
//   "","NEW"
//   0,"VEL","ACC","Spare1","Spare2","DIR","DIVISION","GEAR","Spare3"
// each ended by CR LF. Files of the old generation have a single item on
// their second line.
class OpDataFile {
public:
    // The file's bytes for row 0 of the table.
    static QByteArray format(const PosiTable& PosiData);

    // Replaces the file with the table's row 0 in one step. false when it
    // could not be written (errorString says why; the old file is intact).
    static bool write(const QString& path, const PosiTable& PosiData, QString* errorString);

    // Reads VEL, ACC, DIVISION and GEAR into row 0 of PosiDataRead; the
    // direction and the spares on the line are read and deliberately not
    // kept, so they stay what the last read from the controller left.
    // generationLabel receives the label message of the file's generation
    // (148 new, 149 old). 0 when read; 1 after messages 21 and 20 when the
    // file is not an operation data file or cannot be read.
    static int ReadPosidataFile(const QString& path, PosiTable& PosiDataRead, int& generationLabel,
                                Prompter& prompter);
};
