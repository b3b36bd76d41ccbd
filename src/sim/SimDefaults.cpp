#include "sim/SimDefaults.h"

#include "sim/HexField.h"
#include "sim/OperationRecord.h"

const QList<SimDefaults::Field>& SimDefaults::fields()
{
    static const QList<Field> table = {
        // Block 0: homing, encoder and special parameters.
        {0, 5, 4, 30},    // HOME OFFSET
        {0, 9, 2, 30},    // HOME byte
        {0, 11, 2, 10},   // HOME VEL
        {0, 13, 2, 10},   // HOME OFSVEL
        {0, 15, 2, 10},   // HOME speed byte
        {0, 17, 2, 0},    // PG FUNCTION
        {0, 19, 4, 1000}, // PG ALM
        {0, 23, 2, 0},    // AUTO HOME
        {0, 25, 2, 10},   // PG TIMER
        {0, 27, 2, 10},   // LS TIMER
        {0, 29, 2, 0},    // special flag
        {0, 31, 2, 0},    // EMG LOGIC
        {0, 33, 2, 0},    // ALM1 CLEAR
        {0, 35, 2, 0},    // Reserved0
        // Block 1: axis and motor code.
        {1, 5, 2, 2},      // actuator type
        {1, 7, 2, 2},      // AXIS byte
        {1, 9, 4, 400},    // PULSE
        {1, 13, 6, 65535}, // 6-digit axis value
        {1, 19, 2, 20},    // byte ranged by the AXIS byte (1 to 50 here)
        {1, 21, 2, 0},     // AUTODRIVE
        {1, 23, 2, 28},    // MOTOR size "1C"
        {1, 25, 2, 'L'},   // MOTOR letter
        {1, 27, 4, 100},   // MOTOR number
        {1, 31, 2, 0},     // size code of "28"
        {1, 33, 2, 0},     // Reserved1
        {1, 35, 2, 0},     // Reserved2
        // Block 2: miscellaneous.
        {2, 5, 2, 0}, // HOME OUT
        {2, 7, 2, 1},
        {2, 9, 2, 20},
        {2, 11, 2, 2},
        {2, 13, 6, 1000},
        {2, 19, 6, 2000},
        {2, 25, 2, 10}, // IN-P WID
        {2, 27, 2, 5},
        {2, 29, 2, 0}, // Reserved3
        {2, 31, 2, 0}, // Reserved4
        {2, 33, 2, 0}, // Reserved5
        {2, 35, 2, 0}, // Reserved6
        // Block 7: the operating current at data digits 13 to 16.
        {7, 17, 4, OperatingCurrentRaw},
    };
    return table;
}

QByteArray SimDefaults::block(int number)
{
    QByteArray digits(DataDigits, '0');
    for (const Field& f : fields()) {
        if (f.block == number)
            digits.replace(f.pos - 5, f.digits, HexField::digits(f.value, f.digits));
    }
    return digits;
}

QByteArray SimDefaults::record()
{
    OperationRecord r;
    r.vel = 300;
    r.acc = 1;
    r.dir = 0;
    r.division = 12;
    r.gear = 1;
    return r.toHex();
}

QByteArray SimDefaults::emptyRecord()
{
    return QByteArray(OperationRecord::HexLength, '0');
}
