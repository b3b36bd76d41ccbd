#pragma once

// The actuator selection as the standard parameters ask for it: the window
// shows the device dialog modally, the command line takes the size from its
// arguments. The choice lands in gActSize, gActKindChar, gActNumber, gPgUse.
class DeviceSelector {
public:
    virtual ~DeviceSelector() = default;

    // true when the user cancelled the selection.
    virtual bool selectDevice() = 0;
};
