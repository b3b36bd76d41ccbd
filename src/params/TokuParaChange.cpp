#include "params/TokuParaChange.h"

#include "common/MessageTable.h"
#include "link/Prompter.h"
#include "params/ParaScreen.h"

void chkTokuParaChange_Click(ParaScreen& screen, Prompter& prompter)
{
    if (!screen.chkTokuParaChange) {
        screen.specialControlsEnabled = false;
        return;
    }
    const Prompter::Answer answer =
        prompter.ask(MsgLines({671, 672}), Prompter::Buttons::YesNo, Prompter::Icon::Exclamation);
    if (answer != Prompter::Answer::Yes) {
        screen.chkTokuParaChange = false;
        return;
    }
    screen.specialControlsEnabled = true;
}
