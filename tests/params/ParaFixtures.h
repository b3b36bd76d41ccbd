#pragma once

#include "params/ParaSet.h"

#include <QString>

#include <array>

// A size-28 actuator with the values the virtual controller starts with,
// as a parameter set and as the data digits of its three blocks.
inline ParaSet Size28Set()
{
    ParaSet s;
    s.home = {.offset = 30, .homeByte = 30, .vel = 10, .ofsVel = 10, .homeSpeed = 10};
    s.axis.actType = 2;
    s.axis.axisByte = 2;
    s.axis.pulse = 400;
    s.axis.axisValue = 65535;
    s.axis.dependentByte = 20;
    s.axis.autoDrive = 0;
    s.axis.motorCode = QStringLiteral("28L100");
    s.axis.sizeText = QStringLiteral("28");
    s.axis.letter = QStringLiteral("L");
    s.axis.motorNumber = 100;
    s.pg = {.function = 0, .alm = 1000};
    s.etc = {.homeOut = 0, .selector = 2, .value1 = 1000, .value2 = 2000,
             .inpWid = 10, .etcByte = 5, .flag = 1, .percent = 20};
    s.special = {.pgTimer = 10, .autoHome = 0, .lsTimer = 10, .emgLogic = 0, .alm1Clear = 0, .flag = 0};
    return s;
}

inline std::array<QString, 3> Size28Digits()
{
    return {QStringLiteral("001E1E0A0A0A0003E8000A0A00000000"),
            QStringLiteral("0202019000FFFF14001C4C0064000000"),
            QStringLiteral("000114020003E80007D00A0500000000")};
}

// The "0RD" reply of a block: echo, block digit, data, CR LF.
inline QString ReadReply(int block, const QString& digits)
{
    return QStringLiteral("0RD") + QString::number(block) + digits + QStringLiteral("\r\n");
}

inline std::array<QString, 3> Size28Replies()
{
    const auto d = Size28Digits();
    return {ReadReply(0, d[0]), ReadReply(1, d[1]), ReadReply(2, d[2])};
}

inline bool SameSet(const ParaSet& a, const ParaSet& b)
{
    const auto& x = a.axis;
    const auto& y = b.axis;
    return a.home.offset == b.home.offset && a.home.homeByte == b.home.homeByte
        && a.home.vel == b.home.vel && a.home.ofsVel == b.home.ofsVel
        && a.home.homeSpeed == b.home.homeSpeed
        && x.actType == y.actType && x.axisByte == y.axisByte && x.pulse == y.pulse
        && x.axisValue == y.axisValue && x.dependentByte == y.dependentByte
        && x.autoDrive == y.autoDrive && x.motorCode == y.motorCode && x.sizeText == y.sizeText
        && x.letter == y.letter && x.motorNumber == y.motorNumber
        && a.pg.function == b.pg.function && a.pg.alm == b.pg.alm
        && a.etc.homeOut == b.etc.homeOut && a.etc.selector == b.etc.selector
        && a.etc.value1 == b.etc.value1 && a.etc.value2 == b.etc.value2
        && a.etc.inpWid == b.etc.inpWid && a.etc.etcByte == b.etc.etcByte
        && a.etc.flag == b.etc.flag && a.etc.percent == b.etc.percent
        && a.special.pgTimer == b.special.pgTimer && a.special.autoHome == b.special.autoHome
        && a.special.lsTimer == b.special.lsTimer && a.special.emgLogic == b.special.emgLogic
        && a.special.alm1Clear == b.special.alm1Clear && a.special.flag == b.special.flag
        && a.reserved == b.reserved;
}
