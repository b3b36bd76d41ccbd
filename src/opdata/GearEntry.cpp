#include "opdata/GearEntry.h"

#include "common/NumberText.h"
#include "common/StripLeadingZeros.h"
#include "opdata/DivisionEntry.h"
#include "opdata/VelocityRules.h"

KeyAction GearEntry::keyPress(const QString& text, QChar key)
{
    return DivisionEntry::filterKey(text, key, KeyAction::Enter);
}

EntryOutcome GearEntry::textChanged(const QString& text, const QString& comboVEL, bool mEventsOff,
                                    bool suppressVelCalc)
{
    if (!IsNumeric(text))
        return EntryOutcome::cleared();
    EntryOutcome outcome;
    if (!mEventsOff) {
        outcome.background = Background::Window;
        outcome.txtVEL = VelocityRules::VelOnGearChange(comboVEL, text, mEventsOff, suppressVelCalc);
    }
    return DivisionEntry::limitTo100(text, outcome);
}

EntryOutcome GearEntry::leave(const QString& text)
{
    QString digits = text;
    StripLeadingZeros(digits);
    if (digits.startsWith(u'0'))
        return EntryOutcome::clearedAndMarked();
    return EntryOutcome::withText(digits);
}
