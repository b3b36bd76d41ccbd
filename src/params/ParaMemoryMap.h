#pragma once

#include <QString>

#include <array>

// The controller's parameter memory: blocks 0 to 2 of 16 bytes, read and
// written as 32 hexadecimal digits each. One row per field; the decoder, the
// encoder and the verification all walk this table.

enum class ParaGroup {
    Home,
    Axis,
    Pg,
    Etc,
    Special,
    Reserved
};

// How a field's digits turn into its image entry and back.
enum class ParaCodec {
    Number,     // the digits as an unsigned hexadecimal number
    SizeNumber, // actuator size: the number as decimal text ("1C" <-> "28"); "E35" sends 35
    LetterCode, // type letter: its character code ("4C" <-> "L"); "E35" sends "E"
    SizeCode,   // chosen from the size text and letter on writing
};

struct ParaMapRow {
    int block;
    int pos;      // first character in the "0RD" reply, counted from 1
    int digits;   // 2, 4 or 6
    int entry;    // CtParaImage entry
    QString name; // verification name; empty for fields that are not compared
    ParaGroup group;
    ParaCodec codec;
};

constexpr int ParaMapRowCount = 38;
const std::array<ParaMapRow, ParaMapRowCount>& ParaMemoryMap();

// Image entries that have no row of their own: the motor code joined from
// its pieces, and the pieces themselves.
constexpr int MotorCodeEntry = 12;
constexpr int MotorSizeEntry = 37;
constexpr int MotorLetterEntry = 38;
constexpr int MotorNumberEntry = 39;
