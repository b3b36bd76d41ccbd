#pragma once

#include <QString>

class PosiTable;

// Row 0 of the operation data as the controller exchanges it: one string of
// upper-case hexadecimal fields, each padded with leading zeros,
//   record "01" (2), VEL (4), ACC (1), Spare1 (1), Spare2 (5), DIR (1),
//   DIVISION (2), GEAR (2)
// e.g. 012328100000000C01. The "0RP" reply carries the same fields after the
// record number, from its sixth character.
class OpDataRecord {
public:
    // The 18-character data of "0WP". Empty cells are sent as 0.
    static QString WriteText(const PosiTable& PosiData);

    // The fields of a "0RP" reply into columns 1 to 7 of row 0: Spare2 as a
    // 32-bit value, the others as 16-bit ones. false (the table unchanged)
    // when a field is not hexadecimal.
    static bool parseReply(const QString& reply, PosiTable& PosiDataRead);
};
