#include "params/widgets/ParaEntryRules.h"

#include "params/ParaKeyFilter.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>

namespace {

constexpr int KeyBackspace = 8;
constexpr int KeyEnter = 13;
// Keys that type no character (arrows, Tab, Delete, Escape, shortcuts) are
// not filtered: the entry rules are about characters, and these keys move
// the focus or edit as in every other box.
constexpr int NoCharacter = -1;

int characterCode(const QKeyEvent& key)
{
    if (key.key() == Qt::Key_Backspace)
        return KeyBackspace;
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter)
        return KeyEnter;
    if (key.text().isEmpty() || !key.text().at(0).isPrint()
        || (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)))
        return NoCharacter;
    return key.text().at(0).unicode();
}

bool selectionCoversAll(const QLineEdit* box)
{
    return box->selectedText().size() == box->text().size();
}

} // namespace

ParaEntryRules::ParaEntryRules(QObject* parent)
    : QObject(parent)
{
}

bool ParaEntryRules::watch(QLineEdit* box)
{
    if (!ParaBoxFromName(box->objectName()))
        return false;
    box->installEventFilter(this);
    return true;
}

bool ParaEntryRules::eventFilter(QObject* watched, QEvent* event)
{
    auto* box = qobject_cast<QLineEdit*>(watched);
    if (!box)
        return false;
    if (event->type() == QEvent::KeyPress)
        return KeyPress(box, static_cast<const QKeyEvent&>(*event));
    if (event->type() == QEvent::FocusOut)
        LostFocus(box, static_cast<const QFocusEvent&>(*event));
    return false;
}

// true: the key is discarded.
bool ParaEntryRules::KeyPress(QLineEdit* box, const QKeyEvent& key)
{
    const int code = characterCode(key);
    if (code == NoCharacter)
        return false;
    const ParaBox rule = *ParaBoxFromName(box->objectName());
    switch (ParaKeyFilter(rule, box->text(), selectionCoversAll(box), code)) {
    case ParaKeyResult::Accept:
        return false;
    case ParaKeyResult::Discard:
        return true;
    case ParaKeyResult::Enter:
        // Disabling the box moves the focus on, which runs LostFocus.
        box->setEnabled(false);
        box->setEnabled(true);
        return true;
    }
    return true;
}

// A menu or another window taking the focus for a moment is not leaving the box.
void ParaEntryRules::LostFocus(QLineEdit* box, const QFocusEvent& focus)
{
    if (focus.reason() == Qt::PopupFocusReason || focus.reason() == Qt::ActiveWindowFocusReason)
        return;
    const QString text = ParaLostFocus(*ParaBoxFromName(box->objectName()), box->text());
    if (text != box->text())
        box->setText(text);
}
