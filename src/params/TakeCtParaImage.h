#pragma once

#include "params/CtParaImage.h"
#include "params/ParaSet.h"

// Copies every image entry into its parameter set field, after a controller
// read or a file load. The program-wide state follows the set taken in:
// the device dialog's mode from the actuator type and the encoder use from
// FUNCTION (non-zero: an encoder is fitted).
//
// An entry that does not fit its field (a text where a number belongs, a
// number too large) raises RuntimeError; the set and the state are then left
// as they were.
void TakeCtParaImage(const CtParaImage& image, ParaSet& set);
