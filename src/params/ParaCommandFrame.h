#pragma once

#include "link/SequenceContext.h"
#include "link/SequenceGuard.h"

inline const SequenceGuard::Bracket ParaTransaction{
    {SequenceGuard::Step::Menus, SequenceGuard::Step::ParaButtons, SequenceGuard::Step::Tabs,
     SequenceGuard::Step::Busy},
    {SequenceGuard::Step::Busy, SequenceGuard::Step::ClosePort, SequenceGuard::Step::Tabs,
     SequenceGuard::Step::ParaButtons, SequenceGuard::Step::Menus}};

// Runs a parameter command that talks to the controller with the menus, the
// parameter commands and the tab strip disabled and the link marked busy;
// the user cannot start a second transaction from the other tab meanwhile.
// Everything is restored and the port closed whatever the outcome.
template<typename Sequence>
void runParaTransaction(SequenceContext& ctx, Sequence&& sequence)
{
    const SequenceGuard guard(ctx.lock, &ctx.link, ParaTransaction);
    sequence();
}
