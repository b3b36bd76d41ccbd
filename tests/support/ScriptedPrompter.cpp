#include "support/ScriptedPrompter.h"

Prompter::Answer ScriptedPrompter::ask(const QString& text, Buttons buttons, Icon icon,
                                       const QString& title)
{
    shown.append({text, buttons, icon, title});
    if (!m_answers.isEmpty())
        return m_answers.takeFirst();
    switch (buttons) {
    case Buttons::Ok:
    case Buttons::OkCancel:
        return Answer::Ok;
    case Buttons::YesNo:
    case Buttons::YesNoCancel:
        return Answer::Yes;
    }
    return Answer::Ok;
}

void ScriptedPrompter::script(std::initializer_list<Answer> answers)
{
    m_answers.append(answers);
}

QStringList ScriptedPrompter::texts() const
{
    QStringList out;
    for (const Shown& s : shown)
        out << s.text;
    return out;
}
