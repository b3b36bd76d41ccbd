#include "params/TakeCtParaImage.h"

#include "common/ProgramState.h"
#include "device/DeviceDialogMode.h"
#include "params/ParaEntries.h"

void TakeCtParaImage(const CtParaImage& image, ParaSet& set)
{
    ParaSet taken = set;
    for (int entry = 1; entry < CtParaImage::EntryCount; ++entry)
        if (IsParaEntry(entry))
            SetParaEntry(taken, entry, image[entry]);
    set = taken;

    SetDeviceDialogMode(set.axis.actType);
    ProgramState::instance().gPgUse = set.pg.function != 0;
}
