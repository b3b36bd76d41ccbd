#pragma once

#include "link/Prompter.h"

#include <QObject>

// A prompter that passes every box on to another and reports each text the
// user was told (not the questions asked), so that a record of an action
// can say what the user saw without each sequence telling it.
class PrompterTap : public QObject, public Prompter {
    Q_OBJECT
public:
    explicit PrompterTap(Prompter& target, QObject* parent = nullptr);

    Answer ask(const QString& text, Buttons buttons, Icon icon, const QString& title = {}) override;
    void notify(const QString& text, Icon icon = Icon::Exclamation) override;

signals:
    void told(const QString& text);

private:
    Prompter& m_target;
};
