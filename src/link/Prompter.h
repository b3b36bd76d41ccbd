#pragma once

#include <QString>

// Every message box and question goes through a Prompter. The desktop tool
// shows message boxes, the command line prints to stderr without asking, and
// tests script the answers and read the texts that were shown.
class Prompter {
public:
    enum class Buttons {
        Ok,
        OkCancel,
        YesNo,
        YesNoCancel
    };
    enum class Icon {
        None,
        Information,
        Question,
        Exclamation,
        Critical
    };
    enum class Answer {
        Ok,
        Cancel,
        Yes,
        No
    };

    virtual ~Prompter() = default;

    // text: message-table texts joined with CR LF. title: empty for the
    // program's own title.
    virtual Answer ask(const QString& text, Buttons buttons, Icon icon,
                       const QString& title = {}) = 0;

    void tell(const QString& text, Icon icon = Icon::None, const QString& title = {})
    {
        ask(text, Buttons::Ok, icon, title);
    }

    // A message that is not waited for: the caller goes on at once. For
    // what must be said while another sequence waits below, which a modal
    // box would hold up. Where nothing waits it is told like any other.
    virtual void notify(const QString& text, Icon icon = Icon::Exclamation) { tell(text, icon); }
};
