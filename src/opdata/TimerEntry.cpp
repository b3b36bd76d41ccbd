#include "opdata/TimerEntry.h"

#include "common/NumberText.h"

namespace {

constexpr int TimerLimit = 656; // tenths of a second; 655 is the longest dwell

bool allDigits(const QString& text)
{
    for (QChar c : text)
        if (c < u'0' || c > u'9')
            return false;
    return true;
}

} // namespace

KeyAction TimerEntry::keyPress(const QString& text, bool allSelected, QChar key)
{
    if (key == BackspaceKey)
        return KeyAction::Accept;
    if (key == EnterKey)
        return KeyAction::Enter;
    if (text.size() > 2 && !allSelected)
        return KeyAction::Refuse;
    if (key < u'0' || key > u'9')
        return KeyAction::Refuse;
    return KeyAction::Accept;
}

EntryOutcome TimerEntry::textChanged(const QString& text)
{
    if (text.isEmpty())
        return {};
    if (!allDigits(text) || LeadingNumber(text) >= TimerLimit)
        return EntryOutcome::cleared();
    return {};
}

EntryOutcome TimerEntry::leave(const QString& text)
{
    if (!text.isEmpty() && LeadingNumber(text) == 0)
        return EntryOutcome::withText(QStringLiteral("0"));
    return {};
}
