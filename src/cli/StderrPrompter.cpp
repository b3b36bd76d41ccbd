#include "cli/StderrPrompter.h"

#include <QTextStream>

StderrPrompter::StderrPrompter(QTextStream& err)
    : m_err(err)
{
}

Prompter::Answer StderrPrompter::ask(const QString& text, Buttons buttons, Icon, const QString&)
{
    switch (buttons) {
    case Buttons::Ok:
        m_err << QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")) << '\n';
        m_err.flush();
        return Answer::Ok;
    case Buttons::OkCancel:
        return Answer::Ok;
    case Buttons::YesNo:
    case Buttons::YesNoCancel:
        return Answer::Yes;
    }
    return Answer::Ok;
}
