#pragma once

#include <QtGlobal>

// The actuator type code of the parameter set decides how the device
// dialog opens: type 0 opens it with the encoder box offered and the device
// not yet known; type 1 with the device known; any other type does not offer
// the encoder box and counts the selection as done. Sets gDeviceDialogMode,
// gDeviceKnown and gDeviceSetDone.
void SetDeviceDialogMode(qint16 typeCode);
