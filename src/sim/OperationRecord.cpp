#include "sim/OperationRecord.h"

#include "sim/HexField.h"

std::optional<OperationRecord> OperationRecord::fromHex(const QByteArray& digits)
{
    if (digits.size() != HexLength || !HexField::isHex(digits))
        return std::nullopt;
    OperationRecord r;
    r.vel = HexField::value(digits, 0, 4);
    r.acc = HexField::value(digits, 4, 1);
    r.spare1 = HexField::value(digits, 5, 1);
    r.spare2 = HexField::value(digits, 6, 5);
    r.dir = HexField::value(digits, 11, 1);
    r.division = HexField::value(digits, 12, 2);
    r.gear = HexField::value(digits, 14, 2);
    return r;
}

QByteArray OperationRecord::toHex() const
{
    return HexField::digits(vel, 4) + HexField::digits(acc, 1) + HexField::digits(spare1, 1)
        + HexField::digits(spare2, 5) + HexField::digits(dir, 1) + HexField::digits(division, 2)
        + HexField::digits(gear, 2);
}

bool OperationRecord::movable() const
{
    return vel >= 1 && acc >= 1 && acc <= 3 && dir <= 1 && division >= 1 && gear >= 1;
}
