#include "shell/widgets/MessageBoxPrompter.h"

#include <QMessageBox>

namespace {

QMessageBox::Icon boxIcon(Prompter::Icon icon)
{
    switch (icon) {
    case Prompter::Icon::None: return QMessageBox::NoIcon;
    case Prompter::Icon::Information: return QMessageBox::Information;
    case Prompter::Icon::Question: return QMessageBox::Question;
    case Prompter::Icon::Exclamation: return QMessageBox::Warning;
    case Prompter::Icon::Critical: return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons boxButtons(Prompter::Buttons buttons)
{
    switch (buttons) {
    case Prompter::Buttons::Ok: return QMessageBox::Ok;
    case Prompter::Buttons::OkCancel: return QMessageBox::Ok | QMessageBox::Cancel;
    case Prompter::Buttons::YesNo: return QMessageBox::Yes | QMessageBox::No;
    case Prompter::Buttons::YesNoCancel: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    }
    return QMessageBox::Ok;
}

// Closing a box from its frame or with Escape answers with its last button.
Prompter::Answer answerOf(int button, Prompter::Buttons buttons)
{
    switch (button) {
    case QMessageBox::Ok: return Prompter::Answer::Ok;
    case QMessageBox::Yes: return Prompter::Answer::Yes;
    case QMessageBox::No: return Prompter::Answer::No;
    case QMessageBox::Cancel: return Prompter::Answer::Cancel;
    default: break;
    }
    switch (buttons) {
    case Prompter::Buttons::Ok: return Prompter::Answer::Ok;
    case Prompter::Buttons::YesNo: return Prompter::Answer::No;
    default: return Prompter::Answer::Cancel;
    }
}

} // namespace

MessageBoxPrompter::MessageBoxPrompter(QWidget* parent)
    : m_parent(parent)
{
}

QString MessageBoxPrompter::displayText(const QString& text)
{
    QString shown = text;
    shown.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return shown;
}

QString MessageBoxPrompter::displayTitle(const QString& title)
{
    return title.isEmpty() ? QStringLiteral("KTR-W5") : title;
}

Prompter::Answer MessageBoxPrompter::ask(const QString& text, Buttons buttons, Icon icon,
                                         const QString& title)
{
    QMessageBox box(boxIcon(icon), displayTitle(title), displayText(text), boxButtons(buttons),
                    m_parent);
    box.setObjectName(QStringLiteral("MessageBox"));
    box.setTextFormat(Qt::PlainText);
    const int button = box.exec();
    return answerOf(button, buttons);
}

void MessageBoxPrompter::notify(const QString& text, Icon icon)
{
    auto* box = new QMessageBox(boxIcon(icon), displayTitle({}), displayText(text), QMessageBox::Ok,
                                m_parent);
    box->setObjectName(QStringLiteral("NoticeBox"));
    box->setTextFormat(Qt::PlainText);
    box->setWindowModality(Qt::NonModal);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->show();
}
