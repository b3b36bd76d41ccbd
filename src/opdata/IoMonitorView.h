#pragma once

#include "opdata/IoBits.h"

#include <QString>

// What the input/output monitor drives on the operation data tab. The page
// implements it with its lamp widgets and the cmdIoMonitor button.
class IoMonitorView {
public:
    virtual ~IoMonitorView() = default;

    virtual void setLamp(IoLamp lamp, bool on) = 0;
    // The caption of cmdIoMonitor: "Start Monitor" or "Stop Monitor".
    virtual void setMonitorCaption(const QString& caption) = 0;
    // The other commands of the tab while the monitor runs: the file,
    // transfer and print buttons, cmdMOVE, cmdHOME, Frame1, Frame2, cmdRESET.
    virtual void setOtherCommandsEnabled(bool enabled) = 0;
};
