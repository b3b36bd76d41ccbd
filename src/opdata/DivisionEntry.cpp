#include "opdata/DivisionEntry.h"

#include "common/NumberText.h"
#include "common/StripLeadingZeros.h"

KeyAction DivisionEntry::keyPress(const QString& text, QChar key)
{
    return filterKey(text, key, KeyAction::EnterToWriteButton);
}

KeyAction DivisionEntry::filterKey(const QString& text, QChar key, KeyAction onEnter)
{
    if (key == BackspaceKey)
        return KeyAction::Accept;
    if (key == EnterKey)
        return onEnter;
    if (text == u"100" || text.size() > 3)
        return KeyAction::Refuse;
    if (key < u'0' || key > u'9')
        return KeyAction::Refuse;
    return KeyAction::Accept;
}

EntryOutcome DivisionEntry::limitTo100(const QString& text, EntryOutcome outcome)
{
    if (LeadingNumber(text) > 100) {
        outcome.text = QString();
        outcome.background = Background::Marker;
    }
    return outcome;
}

EntryOutcome DivisionEntry::textChanged(const QString& text)
{
    if (!IsNumeric(text))
        return EntryOutcome::cleared();
    EntryOutcome outcome;
    outcome.background = Background::Window;
    return limitTo100(text, outcome);
}

EntryOutcome DivisionEntry::leave(const QString& text)
{
    QString digits = text;
    StripLeadingZeros(digits);
    if (digits == u"1" || digits.startsWith(u'0'))
        return EntryOutcome::clearedAndMarked();
    return EntryOutcome::withText(digits);
}
