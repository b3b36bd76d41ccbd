#pragma once

#include "params/ParaScreen.h"
#include "params/ParaSet.h"

// Moving values between the parameter controls and the parameter set.

// Takes the controls into the set (fields without a control keep their
// values). A box text must be a number that fits its field: anything
// else (letters pasted into a box, a number too large for its field) leaves
// the set unchanged and returns 1, and the caller rejects it as an invalid
// value, as it does a value out of range. Returns 0 otherwise. The motor code
// is rebuilt from the size shown, so a changed size is seen by verification.
int TorikomiParametaValue(const ParaScreen& screen, ParaSet& set);

// Shows the set in the controls. A list value outside its list leaves the
// list without a selection. The operating current follows the size for the
// three sizes whose current is fixed; for "SP" it is read from the controller.
void ParametaHyoji(const ParaSet& set, ParaScreen& screen);
