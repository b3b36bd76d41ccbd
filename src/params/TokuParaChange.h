#pragma once

struct ParaScreen;
class Prompter;

// The unlock box of the SPECIAL group (chkTokuParaChange), after a click
// has changed its state in the screen. Ticking it asks for confirmation
// (messages 671 and 672, Yes/No, exclamation): Yes enables the five SPECIAL
// controls, anything else clears the box again. Clearing it disables them
// without a question.
void chkTokuParaChange_Click(ParaScreen& screen, Prompter& prompter);
