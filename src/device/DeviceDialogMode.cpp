#include "device/DeviceDialogMode.h"

#include "common/ProgramState.h"

void SetDeviceDialogMode(qint16 typeCode)
{
    ProgramState::instance().gDeviceDialogMode = typeCode == 0 || typeCode == 1;
}
