#include "params/ParaMemoryMap.h"

const std::array<ParaMapRow, ParaMapRowCount>& ParaMemoryMap()
{
    using G = ParaGroup;
    using C = ParaCodec;
    static const std::array<ParaMapRow, ParaMapRowCount> rows{{
        {0, 5, 4, 1, "OFFSET", G::Home, C::Number},
        {0, 9, 2, 2, {}, G::Home, C::Number},
        {0, 11, 2, 3, "VEL", G::Home, C::Number},
        {0, 13, 2, 4, "OFSVEL", G::Home, C::Number},
        {0, 15, 2, 5, {}, G::Home, C::Number},
        {0, 17, 2, 13, "FUNCTION", G::Pg, C::Number},
        {0, 19, 4, 14, "ALM", G::Pg, C::Number},
        {0, 23, 2, 24, "AUTO HOME", G::Special, C::Number},
        {0, 25, 2, 23, "PG TIMER", G::Special, C::Number},
        {0, 27, 2, 25, "LS TIMER", G::Special, C::Number},
        {0, 29, 2, 28, {}, G::Special, C::Number},
        {0, 31, 2, 26, "EMG LOGIC", G::Special, C::Number},
        {0, 33, 2, 27, "ALM1 CLEAR", G::Special, C::Number},
        {0, 35, 2, 29, "Reserved0", G::Reserved, C::Number},

        {1, 5, 2, 11, {}, G::Axis, C::Number},
        {1, 7, 2, 7, {}, G::Axis, C::Number},
        {1, 9, 4, 8, "PULSE", G::Axis, C::Number},
        {1, 13, 6, 6, {}, G::Axis, C::Number},
        {1, 19, 2, 10, {}, G::Axis, C::Number},
        {1, 21, 2, 9, "AUTODRIVE", G::Axis, C::Number},
        // Verification compares the joined motor code (entry 12) under this name.
        {1, 23, 2, MotorSizeEntry, "MOTOR", G::Axis, C::SizeNumber},
        {1, 25, 2, MotorLetterEntry, {}, G::Axis, C::LetterCode},
        {1, 27, 4, MotorNumberEntry, {}, G::Axis, C::Number},
        {1, 31, 2, 36, {}, G::Axis, C::SizeCode},
        {1, 33, 2, 30, "Reserved1", G::Reserved, C::Number},
        {1, 35, 2, 31, "Reserved2", G::Reserved, C::Number},

        {2, 5, 2, 15, "HOME OUT", G::Etc, C::Number},
        {2, 7, 2, 21, {}, G::Etc, C::Number},
        {2, 9, 2, 22, {}, G::Etc, C::Number},
        {2, 11, 2, 16, {}, G::Etc, C::Number},
        {2, 13, 6, 17, {}, G::Etc, C::Number},
        {2, 19, 6, 18, {}, G::Etc, C::Number},
        {2, 25, 2, 19, "IN-P WID", G::Etc, C::Number},
        {2, 27, 2, 20, {}, G::Etc, C::Number},
        {2, 29, 2, 32, "Reserved3", G::Reserved, C::Number},
        {2, 31, 2, 33, "Reserved4", G::Reserved, C::Number},
        {2, 33, 2, 34, "Reserved5", G::Reserved, C::Number},
        {2, 35, 2, 35, "Reserved6", G::Reserved, C::Number},
    }};
    return rows;
}
