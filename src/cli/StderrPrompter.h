#pragma once

#include "link/Prompter.h"

class QTextStream;

// The message boxes of the command line: what the desktop tool would show
// is printed to stderr, one line per line of the box. Questions are not
// asked (the command itself is the confirmation): they are answered OK or
// Yes without being printed.
class StderrPrompter : public Prompter {
public:
    explicit StderrPrompter(QTextStream& err);

    Answer ask(const QString& text, Buttons buttons, Icon icon, const QString& title = {}) override;

private:
    QTextStream& m_err;
};
