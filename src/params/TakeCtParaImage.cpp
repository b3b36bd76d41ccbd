#include "params/TakeCtParaImage.h"

#include "common/ProgramState.h"
#include "device/DeviceDialogMode.h"
#include "params/ActuatorSize.h"
#include "params/ParaEntries.h"

void TakeCtParaImage(const CtParaImage& image, ParaSet& set)
{
    ParaSet taken = set;
    for (int entry = 1; entry < CtParaImage::EntryCount; ++entry)
        if (IsParaEntry(entry))
            SetParaEntry(taken, entry, image[entry]);
    set = taken;

    ProgramState& g = ProgramState::instance();
    SetDeviceDialogMode(set.axis.actType);
    g.gPgUse = set.pg.function != 0;
    g.gActSizeDefault = SizeDisplayText(set.axis.sizeText);
}
