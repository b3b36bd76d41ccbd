#pragma once

#include "params/CtParaImage.h"
#include "params/ParaSet.h"

#include <QString>

// The parameter page's data: the set it shows and edits, the image of the
// last controller read or file load, whether the page was edited since, and
// the parameter file last opened or saved (proposed again by the save dialog).
struct ParaData {
    ParaSet set;
    CtParaImage image;
    bool paraEdited = false;
    QString fileName;
};
