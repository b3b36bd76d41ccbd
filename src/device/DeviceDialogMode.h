#pragma once

#include <QtGlobal>

// The actuator type code of the parameter set decides how the device
// dialog opens: types 0 and 1 offer the encoder box, any other type does not.
// Sets gDeviceDialogMode.
void SetDeviceDialogMode(qint16 typeCode);
