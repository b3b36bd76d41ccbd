#include "cli/NumberArgument.h"

#include "cli/CliSession.h"
#include "common/MessageTable.h"

namespace {
constexpr int OutOfRange = 4524;
constexpr int MaxDigits = 5;
} // namespace

bool NumberArgument::valid(const QString& text, int low, int high)
{
    if (text.isEmpty() || text.size() > MaxDigits)
        return false;
    for (QChar c : text)
        if (c < u'0' || c > u'9')
            return false;
    const int value = text.toInt();
    return value >= low && value <= high;
}

int NumberArgument::reject(CliSession& session, const QString& option, int low, int high)
{
    return session.usageError(Msg(OutOfRange).arg(option).arg(low).arg(high));
}
