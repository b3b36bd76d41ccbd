#pragma once

#include "params/CtParaImage.h"
#include "params/ParaSet.h"

#include <QString>

class Prompter;

// The parameter file (.pmt): a header "QM-KTR","PRM", the section count 6,
// then the sections HOME, AXIS, PG, ETC, SPECIAL, RESERVED, each a line
// "NAME",count,1 followed by one value per line, in the order of the image
// entries 1 to 35. Lines end in CR LF.

// Writes the set to path, replacing the file in one step (a failed write
// leaves the old file as it was). The motor code is rebuilt from the size
// text, letter and motor number first, and kept in the set.
// 0 on success, 1 when the file could not be written (errorString says why).
int SaveParaFile(const QString& path, ParaSet& set, QString* errorString = nullptr);

// Reads a parameter file into the image, entry by entry as a controller read
// fills it. Entry 0 receives the file's name; the motor code pieces (37 to
// 39) are cut from the motor code so the image holds what a read gives.
//  0: read.
//  1: not a parameter file (messages 22 and 20 shown, image unchanged) or a
//     section name out of order (the entries read so far stay).
// -1: the read failed part-way (missing file, short file, a text where a
//     number belongs, too many values); the caller shows message 681.
int LoadParaFile(const QString& path, CtParaImage& image, Prompter& prompter);
