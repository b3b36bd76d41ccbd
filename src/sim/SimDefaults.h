#pragma once

#include <QByteArray>
#include <QList>

// The factory contents of the virtual controller, all in one place: the
// parameter blocks of a size-28 actuator (type letter "L", motor number 100)
// and the indexing record. The standard parameters shipped with the tool
// must hold the same values, so that a fresh virtual controller verifies
// equal against them.
class SimDefaults {
public:
    // One field of a block: its first character in a "0RD" reply (the
    // first data digit is character 5), its width in hex digits, its value.
    struct Field {
        int block;
        int pos;
        int digits;
        qint64 value;
    };

    static constexpr int DataDigits = 32;
    // 1.5 A in the controller's unit of 1/1875 A (2812.5, rounded to even).
    static constexpr int OperatingCurrentRaw = 2812;

    static const QList<Field>& fields();
    // The 32 hexadecimal data digits of block 0, 1, 2 or 7.
    static QByteArray block(int number);
    // The 16 data characters of the indexing record (record 1); every other
    // record holds zeros.
    static QByteArray record();
    static QByteArray emptyRecord();
};
