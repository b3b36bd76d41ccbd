#pragma once

#include "print/PrintParaList.h"

#include <QString>

class CtParaImage;
struct ParaSet;

// The values of the parameter sheet in print order: 1 OFFSET, 2 VEL,
// 3 OFSVEL, 4 PULSE, 5 AUTODRIVE, 6 the size text (kept beside the motor
// code, not printed), 7 the motor code, 8 FUNCTION, 9 ALM, 10 HOME OUT,
// 11 IN-P WID, 12 PG TIMER, 13 AUTO HOME, 14 LS TIMER, 15 EMG LOGIC,
// 16 ALM1 CLEAR. Entry 0 is the file name when a file is printed.

// From the parameters shown on the page (taken over and checked).
PrintParaList PrintParaListFromSet(const ParaSet& set);

// From a parameter file read into an image; fileName is the bare name
// printed in the heading.
PrintParaList PrintParaListFromImage(const CtParaImage& image, const QString& fileName);
