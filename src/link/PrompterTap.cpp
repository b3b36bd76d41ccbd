#include "link/PrompterTap.h"

PrompterTap::PrompterTap(Prompter& target, QObject* parent)
    : QObject(parent)
    , m_target(target)
{
}

Prompter::Answer PrompterTap::ask(const QString& text, Buttons buttons, Icon icon, const QString& title)
{
    if (buttons == Buttons::Ok)
        emit told(text);
    return m_target.ask(text, buttons, icon, title);
}

void PrompterTap::notify(const QString& text, Icon icon)
{
    emit told(text);
    m_target.notify(text, icon);
}
