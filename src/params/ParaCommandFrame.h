#pragma once

#include "common/ControlLock.h"
#include "common/ProgramState.h"
#include "link/Link.h"
#include "link/SequenceContext.h"

// Runs a parameter command that talks to the controller with the menus, the
// parameter commands and the tab strip disabled and the link marked busy;
// the user cannot start a second transaction from the other tab meanwhile.
// Everything is restored and the port closed whatever the outcome.
template<typename Sequence>
void runParaTransaction(SequenceContext& ctx, Sequence&& sequence)
{
    ctx.lock.Menyu_Muko();
    ctx.lock.ParaCMDBTN_Muko();
    ctx.lock.setTabsEnabled(false);
    ProgramState::instance().gCommBusy = true;
    sequence();
    ProgramState::instance().gCommBusy = false;
    ctx.link.CloseCommPort();
    ctx.lock.setTabsEnabled(true);
    ctx.lock.ParaCMDBTN_Yuko();
    ctx.lock.Menyu_Yuko();
}
