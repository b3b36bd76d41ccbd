#pragma once

#include "common/FileBytes.h"
#include "params/CtParaImage.h"
#include "params/ParaEntries.h"

#include <QVariantList>

#include <array>

// A size-28 actuator with the values the virtual controller starts with,
// as a parameter set and as the data digits of its three blocks.
inline ParaSet Size28Set()
{
    ParaSet s;
    s.home = {.offset = 30, .homeByte = 30, .vel = 10, .ofsVel = 10, .homeSpeed = 10};
    s.axis = {.actType = 2, .axisByte = 2, .pulse = 400, .axisValue = 65535, .dependentByte = 20, .autoDrive = 0, .motorCode = "28L100", .sizeText = "28", .letter = "L", .motorNumber = 100};
    s.pg = {.function = 0, .alm = 1000};
    s.etc = {.homeOut = 0, .selector = 2, .value1 = 1000, .value2 = 2000, .inpWid = 10, .etcByte = 5, .flag = 1, .percent = 20};
    s.special = {.pgTimer = 10, .autoHome = 0, .lsTimer = 10, .emgLogic = 0, .alm1Clear = 0, .flag = 0};
    return s;
}

inline std::array<QString, 3> Size28Digits()
{
    return {"001E1E0A0A0A0003E8000A0A00000000", "0202019000FFFF14001C4C0064000000",
            "000114020003E80007D00A0500000000"};
}

// The "0RD" reply of a block: echo, block digit, data, CR LF.
inline QString ReadReply(int block, const QString& digits)
{
    return QStringLiteral("0RD%1%2\r\n").arg(block).arg(digits);
}

inline std::array<QString, 3> Size28Replies()
{
    const auto d = Size28Digits();
    return {ReadReply(0, d[0]), ReadReply(1, d[1]), ReadReply(2, d[2])};
}

// Every field of a set in entry order, so that two sets compare as lists.
inline QVariantList Fields(const ParaSet& set)
{
    QVariantList out;
    for (int entry = 1; entry < CtParaImage::EntryCount; ++entry) {
        if (IsParaEntry(entry))
            out << ParaEntryValue(set, entry);
    }
    return out;
}
