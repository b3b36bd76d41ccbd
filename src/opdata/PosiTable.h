#pragma once

#include <QVariant>

#include <array>

// The operation data table: 65 rows (0 to 64) by 10 columns (0 to 9) of
// variant cells. It has room for a point table; the indexer uses row 0 only,
// and columns 0 and 9 are never used. An empty cell is an invalid QVariant.
class PosiTable {
public:
    static constexpr int Rows = 65;
    static constexpr int Columns = 10;

    // Columns of row 0.
    enum Column {
        VEL = 1,      // speed value sent to the controller
        ACC = 2,      // acceleration choice 1..3
        Spare1 = 3,   // carried unchanged from the last read
        Spare2 = 4,   // carried unchanged from the last read
        DIR = 5,      // 0 CW, 1 CCW
        DIVISION = 6, // index positions per output turn
        GEAR = 7,     // motor turns per output turn
        Spare3 = 8,   // kept in the file only
    };

    // Throws RuntimeError Subscript outside the table.
    QVariant& cell(int row, int column);
    const QVariant& cell(int row, int column) const;

    // Row 0, the only row the indexer uses.
    QVariant& operator[](Column column) { return cell(0, column); }
    const QVariant& operator[](Column column) const { return cell(0, column); }

    // A cell as a number; an empty cell counts as 0.
    qint64 number(Column column) const;

    // Copies columns first..last of row 0 from another table.
    void copyRow0(const PosiTable& from, Column first, Column last);

private:
    std::array<QVariant, Rows * Columns> m_cells;
};
