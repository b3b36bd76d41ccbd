#pragma once

#include "params/ParaScreen.h"
#include "params/ParaSet.h"

// Before a write, a save or a verification: 0 when every numeric parameter
// box holds data, 1 when some box is empty. A box holding only blanks counts
// as empty, since it holds no number either.
int CheckParaInput(const ParaScreen& screen);

// 0 when every field of the set lies in its range, 1 otherwise. The caller
// tells the user that "some" value is invalid.
int ParametaValueCheck(const ParaSet& set);
