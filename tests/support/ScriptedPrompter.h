#pragma once

#include "link/Prompter.h"

#include <QList>
#include <QString>
#include <QStringList>

// A Prompter for tests: answers from a script (Ok/Yes first-come when the
// script is empty) and keeps every text it was shown.
class ScriptedPrompter : public Prompter {
public:
    struct Shown {
        QString text;
        Buttons buttons;
        Icon icon;
        QString title;
    };

    Answer ask(const QString& text, Buttons buttons, Icon icon, const QString& title = {}) override;

    // Answers for the next questions, in order.
    void script(std::initializer_list<Answer> answers);

    QList<Shown> shown;
    QStringList texts() const;
    QString lastText() const { return shown.isEmpty() ? QString() : shown.last().text; }
    void clear()
    {
        shown.clear();
        m_answers.clear();
    }

private:
    QList<Answer> m_answers;
};
