#include "link/ReadBack.h"

#include "common/MessageTable.h"
#include "common/Settings.h"
#include "link/Prompter.h"

namespace {

constexpr int Confirmed = 5560;
constexpr int NotConfirmed = 5561;

} // namespace

bool ReadBack::chosen()
{
    return Settings::read(Setting::ConfirmWrites) > 0;
}

QString ReadBack::message() const
{
    switch (result) {
    case Result::Confirmed:
        return Msg(Confirmed);
    case Result::Differs:
        return report;
    case Result::Failed:
        return Msg(NotConfirmed);
    case Result::NotRun:
        break;
    }
    return {};
}

void ReadBack::tell(Prompter& prompter) const
{
    const bool confirmed = result == Result::Confirmed;
    prompter.tell(message(), confirmed ? Prompter::Icon::Information : Prompter::Icon::Exclamation);
}
