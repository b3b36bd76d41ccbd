#pragma once

#include <QVariant>

#include <array>

class Prompter;
class SeqReader;

// The common standard parameters "hb4cmstpr.lst" beside the program: the
// PG, ETC and SPECIAL values that every actuator starts from.
//
// Format: "QM-B4","QM-CMNPRM",sectionCount, then per section its name, row
// count and column count, and the values row by row. The sections are "PG",
// "ETC" and "SPECIAL" in this order, and their rows run on in one table, so
// the rows are the image entries 13 to 28 in order: FUNCTION, ALM, HOME OUT,
// the ETC selector, the two ETC 6-digit values, IN-P WID, the ETC byte, the
// ETC flag, the ETC byte of 0 to 100, PG TIMER, AUTO HOME, LS TIMER,
// EMG LOGIC, ALM1 CLEAR and the SPECIAL flag. Column 0 holds the values for
// an actuator without encoder, column 1 those with an encoder.
class StdParaList {
public:
    static constexpr int MaxRows = 21;
    static constexpr int MaxColumns = 3;
    static constexpr int FirstEntry = 13;

    // 0 when read. 1 on failure, with message 28 and 29 for a missing file
    // and message 27 for a file that is not the list or cannot be read to its
    // end. A section name out of order ends the reading early (the rows read
    // so far are the list).
    int ReadStdParaList(Prompter& prompter);

    // The value of a row and column; an empty variant where the file gave none.
    QVariant value(int row, int column) const { return m_table.at(size_t(row)).at(size_t(column)); }

private:
    void readRows(SeqReader& in, int& row, int rows, int columns);

    std::array<std::array<QVariant, MaxColumns>, MaxRows> m_table;
};
