#include "device/DeviceDialogMode.h"

#include "common/ProgramState.h"

void SetDeviceDialogMode(qint16 typeCode)
{
    ProgramState& g = ProgramState::instance();
    g.gDeviceDialogMode = typeCode == 0 || typeCode == 1;
    g.gDeviceKnown = typeCode == 1;
    g.gDeviceSetDone = typeCode != 0 && typeCode != 1;
}
