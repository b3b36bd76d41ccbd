#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <optional>

// One indexing record as the controller keeps it: the 16 hexadecimal data
// characters of "0RP"/"0WP" (VEL 4, ACC 1, Spare1 1, Spare2 5, DIR 1,
// DIVISION 2, GEAR 2).
struct OperationRecord {
    static constexpr int HexLength = 16;

    int vel = 0;
    int acc = 0;
    int spare1 = 0;
    qint32 spare2 = 0;
    int dir = 0;
    int division = 0;
    int gear = 0;

    // Empty when the text is not 16 upper-case hexadecimal digits.
    static std::optional<OperationRecord> fromHex(const QByteArray& digits);
    QByteArray toHex() const;

    // What the controller accepts for a move: a speed, an acceleration
    // choice of 1 to 3, a direction of 0 or 1, and at least one division
    // and one gear turn. The spares are the controller's own business.
    bool movable() const;
};
