#pragma once

#include <QByteArray>

// What a fresh virtual controller holds, written out from the memory map by
// hand (not taken from the code under test), and a pattern to write over it.
namespace FactoryMemory {

// OFFSET 30, HOME byte 30, VEL 10, OFSVEL 10, speed 10, PG FUNCTION 0,
// ALM 1000, AUTO HOME 0, PG TIMER 10, LS TIMER 10, flag 0, EMG 0, ALM1 CLEAR 0.
inline const QByteArray Block0 = "001E1E0A0A0A0003E8000A0A00000000";
// Type 2, AXIS byte 2, PULSE 400, 65535, 20, AUTODRIVE 0, motor "1C" "L" 100, size code 00.
inline const QByteArray Block1 = "0202019000FFFF14001C4C0064000000";
// HOME OUT 0, 1, 20, 2, 1000, 2000, IN-P WID 10, 5.
inline const QByteArray Block2 = "000114020003E80007D00A0500000000";
// The operating current 1.5 A (2812 = 0AFC) at data digits 13 to 16.
inline const QByteArray Block7 = "0000000000000AFC0000000000000000";
// VEL 300, ACC 1, spares 0, DIR CW, DIVISION 12, GEAR 1.
inline const QByteArray Record1 = "012C100000000C01";

inline const QByteArray OtherBlock = "0123456789ABCDEF0123456789ABCDEF";
inline const QByteArray OtherRecord = "2328100000000C01";

} // namespace FactoryMemory
