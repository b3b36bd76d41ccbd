#pragma once

#include "link/Prompter.h"

// A silent Prompter: counts the boxes that would have been shown and
// answers each with the first button.
class CountingPrompter : public Prompter {
public:
    Answer ask(const QString&, Buttons buttons, Icon, const QString& = {}) override
    {
        ++count;
        return buttons == Buttons::YesNo || buttons == Buttons::YesNoCancel ? Answer::Yes : Answer::Ok;
    }

    int count = 0;
};
