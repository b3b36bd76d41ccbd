#pragma once

#include "link/Prompter.h"

#include <QPointer>

class QWidget;

// Every message and question of the desktop tool, as a modal message box
// over the given window. Lines joined with CR LF show as lines; an empty
// title shows the program's title.
class MessageBoxPrompter : public Prompter {
public:
    explicit MessageBoxPrompter(QWidget* parent);

    Answer ask(const QString& text, Buttons buttons, Icon icon, const QString& title = {}) override;
    // A box that is not modal: shown, and the caller goes on at once.
    void notify(const QString& text, Icon icon = Icon::Exclamation) override;

    static QString displayText(const QString& text);
    static QString displayTitle(const QString& title);

private:
    QPointer<QWidget> m_parent;
};
