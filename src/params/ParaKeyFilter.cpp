#include "params/ParaKeyFilter.h"

#include "common/StripLeadingZeros.h"

#include <array>

namespace {

struct BoxRule {
    ParaBox box;
    const char* name;
    int maxLength;
};

constexpr std::array<BoxRule, 8> rules{{
    {ParaBox::HomeOffset, "txtHomeOffset", 5},
    {ParaBox::HomeVel, "txtHomeVel", 2},
    {ParaBox::HomeOfsVel, "txtHomeOfsVel", 2},
    {ParaBox::AxisPulse, "txtAxisPulse", 5},
    {ParaBox::PgAlarm, "txtPgAlarm", 5},
    {ParaBox::InpLimit, "txtInpLimit", 3},
    {ParaBox::PgCheckTimer, "txtPgCheckTimer", 3},
    {ParaBox::LsSerchTimer, "txtLsSerchTimer", 3},
}};

constexpr int KeyBackspace = 8;
constexpr int KeyEnter = 13;

bool zeroNotAllowed(ParaBox box)
{
    return box == ParaBox::HomeOffset || box == ParaBox::HomeVel || box == ParaBox::HomeOfsVel;
}

} // namespace

std::optional<ParaBox> ParaBoxFromName(const QString& objectName)
{
    for (const BoxRule& r : rules)
        if (objectName == QLatin1String(r.name))
            return r.box;
    return std::nullopt;
}

int ParaBoxMaxLength(ParaBox box)
{
    for (const BoxRule& r : rules)
        if (r.box == box)
            return r.maxLength;
    return 0;
}

ParaKeyResult ParaKeyFilter(ParaBox box, const QString& text, bool selectionCoversAll, int keyAscii)
{
    if (keyAscii == KeyBackspace)
        return ParaKeyResult::Accept;
    if (!selectionCoversAll && text.size() >= ParaBoxMaxLength(box))
        return ParaKeyResult::Discard;
    if (keyAscii == KeyEnter)
        return ParaKeyResult::Enter;
    if (keyAscii < '0' || keyAscii > '9')
        return ParaKeyResult::Discard;
    return ParaKeyResult::Accept;
}

QString ParaLostFocus(ParaBox box, const QString& text)
{
    QString work = text;
    StripLeadingZeros(work);
    if (zeroNotAllowed(box) && work == QLatin1String("0"))
        work.clear();
    return work;
}
