#pragma once

#include "params/CtParaImage.h"
#include "params/ParaMemoryMap.h"
#include "params/ParaSet.h"

#include <QString>

#include <array>
#include <vector>

// Verification of the shown parameters against an image (from the
// controller or a file): which named parameters differ, grouped.

// Lines 0..5 are HOME, AXIS, PG, ETC, SPECIAL, RESERVED; line 6 stays empty.
using ParaCompareLines = std::array<QString, 7>;

// The named parameters in the order the report lists them (by entry;
// MOTOR stands at the motor code's entry 12).
std::vector<const ParaMapRow*> NamedParaRows();
// The entry a named row is compared on: the joined motor code for MOTOR.
int ComparedEntry(const ParaMapRow& row);

// Fills the lines with the names of the differing parameters ("VEL," and so
// on; "MOTOR" without a comma, compared on the first three characters of the
// motor code) and returns 1 when any differs, 0 otherwise.
// The RESERVED line has an oddity that is kept: a difference in Reserved2,
// Reserved3 or Reserved5 replaces the line with the value of Reserved5
// followed by the name. The line never reaches the report.
int MakeParaCompareList(const CtParaImage& image, const ParaSet& set, ParaCompareLines& lines);

// The text of the verification message box: message 826 when equal;
// otherwise message 823 and, for the groups HOME to SPECIAL with a
// difference, "<" title "> :" names, each line ended by CR LF.
QString ParaVerifyReport(int compareResult, const ParaCompareLines& lines);
