#pragma once

#include "link/SequenceGuard.h"

struct SequenceContext;

// One controller command of the window at a time.
//
// mayStart is the second guard; the disabled controls are the first. A
// command that can be chosen while another one runs (the version item is
// left enabled throughout, and a command may be chosen while another waits
// for the controller) asks it before anything else. While another command
// runs it is refused with a notice that is not waited for, so the running
// command's wait, busy flag, port and controls are left as they are.
//
// A CommandHold then keeps the others off for the command's run, as the
// transfers do: command buttons, tab strip and menus disabled, gCommBusy
// set; when it ends the port is closed (unless held open) and all comes
// back.
class CommandHold {
public:
    static bool mayStart(SequenceContext& ctx);

    explicit CommandHold(SequenceContext& ctx);

private:
    SequenceGuard m_guard;
};
