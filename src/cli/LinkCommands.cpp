#include "cli/LinkCommands.h"

#include "cli/CliSession.h"
#include "cli/CommandRegistry.h"
#include "cli/ExitStatus.h"
#include "common/MessageTable.h"
#include "link/AlarmReset.h"
#include "link/VersionQuery.h"
#include "record/JournalAction.h"

namespace {

constexpr int UnknownRunStatus = 4821;

int exitFor(int linkResult)
{
    return linkResult == 0 ? ExitDone : ExitLinkFailed;
}

int check(CliSession& session, const QStringList& args)
{
    if (const int bad = session.noArguments(args))
        return bad;
    const int result = session.commands().CheckCommunication();
    session.link().CloseCommPort();
    return exitFor(result);
}

int version(CliSession& session, const QStringList& args)
{
    if (const int bad = session.noArguments(args))
        return bad;
    VersionQuery query(session.context());
    if (query.run() != 0)
        return ExitLinkFailed;
    session.out() << query.version() << '\n';
    return ExitDone;
}

// A reply that arrived whole but carries no status digit is reported here:
// the link accepted it, so nothing else would say why there is no status.
int status(CliSession& session, const QStringList& args)
{
    if (const int bad = session.noArguments(args))
        return bad;
    const int runStatus = session.commands().ReadRunStatus();
    session.link().CloseCommPort();
    if (runStatus >= 0) {
        session.out() << runStatus << '\n';
        return ExitDone;
    }
    if (session.commands().outcome().ok())
        session.report(Msg(UnknownRunStatus).arg(session.commands().field(4, 1)));
    return ExitLinkFailed;
}

int reset(CliSession& session, const QStringList& args)
{
    if (const int bad = session.noArguments(args))
        return bad;
    JournalAction entry(session.journal(), JournalEntry::AlarmReset);
    const int result = AlarmReset(session.context(), session.alarms()).run();
    entry.finish(result == 0);
    return exitFor(result);
}

} // namespace

void addLinkCommands(CommandRegistry& registry)
{
    registry.add({QStringLiteral("check"), 4830, true, check});
    registry.add({QStringLiteral("version"), 4831, true, version});
    registry.add({QStringLiteral("status"), 4832, true, status});
    registry.add({QStringLiteral("reset"), 4833, true, reset});
}
