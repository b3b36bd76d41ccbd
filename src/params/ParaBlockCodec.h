#pragma once

#include "params/CtParaImage.h"
#include "params/ParaSet.h"

#include <QString>

#include <array>

// Between the controller's parameter blocks and the program's data, driven
// by the memory map.

// The three "0RD" replies of blocks 0, 1, 2 (38 characters each, CR LF
// included) into the image: every entry is cleared first, then each field
// is taken from its digits; entry 12 is the motor code joined from 37..39.
void DecodeParaBlocks(const std::array<QString, 3>& replies, CtParaImage& image);

// The "0WD" data of blocks 0, 1, 2: the block digit followed by 16 bytes of
// two capital hexadecimal digits, in map order, wider fields high byte first.
std::array<QString, 3> EncodeParaBlocks(const ParaSet& set);
