#include "opdata/CurrentEntry.h"

#include "common/NumberText.h"

KeyAction CurrentEntry::keyPress(const QString& text, QChar key)
{
    if (key == BackspaceKey)
        return KeyAction::Accept;
    if (key == EnterKey)
        return KeyAction::Enter;
    if (key == u'.' && !text.contains(u'.'))
        return KeyAction::Accept;
    if (text.size() >= MaxLength)
        return KeyAction::Refuse;
    if (key < u'0' || key > u'9')
        return KeyAction::Refuse;
    return KeyAction::Accept;
}

CurrentEntry::Change CurrentEntry::textChanged(const QString& text)
{
    Change change;
    QString result = text;
    if (text == u".") {
        result = QStringLiteral("0.");
        change.outcome.text = result;
        change.outcome.caret = int(result.size());
    }
    const double amperes = LeadingNumber(result);
    if (amperes < 0.0 || amperes > 2.0) {
        result.clear();
        change.outcome.text = result;
        change.outcome.caret = -1;
    }
    change.mHasDecimalPoint = result.contains(u'.');
    return change;
}
