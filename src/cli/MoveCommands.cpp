#include "cli/MoveCommands.h"

#include "cli/CliSession.h"
#include "cli/CommandArguments.h"
#include "cli/ExitStatus.h"
#include "cli/Interrupt.h"
#include "cli/NumberArgument.h"
#include "common/MessageTable.h"
#include "link/CommandSet.h"
#include "opdata/HeadlessOpDataView.h"
#include "opdata/Homing.h"
#include "opdata/MoveRun.h"
#include "opdata/MoveTestState.h"
#include "record/JournalAction.h"
#include "record/MoveJournal.h"

namespace {

constexpr int MoveFinished = 4520;
constexpr int NotAtRest = 4521;
constexpr int DwellNeedsContinuous = 4526;
constexpr int LongestDwell = 655; // tenths of a second, as the page allows

const QString Continuous = QStringLiteral("--continuous");
const QString Dwell = QStringLiteral("--dwell");

// The move-test controls as the options set them.
int screenFromOptions(CliSession& session, const QStringList& args, OpDataScreen& screen)
{
    CommandArguments parsed({Dwell}, {Continuous}, 0);
    if (const int bad = parsed.parse(session, args))
        return bad;
    screen.optCNT = parsed.has(Continuous);
    if (!parsed.has(Dwell))
        return ExitDone;
    if (!screen.optCNT)
        return session.usageError(Msg(DwellNeedsContinuous));
    if (!NumberArgument::valid(parsed.value(Dwell), 0, LongestDwell))
        return NumberArgument::reject(session, Dwell, 0, LongestDwell);
    screen.chkTimerUse = true;
    screen.txtTimer = QString::number(parsed.value(Dwell).toInt());
    return ExitDone;
}

// The status digit of the last "0RA" reply, which refused the run.
QString lastStatus(const CommandSet& commands)
{
    return commands.field(4, 1);
}

} // namespace

int home(CliSession& session, const QStringList& args)
{
    if (const int bad = session.noArguments(args))
        return bad;
    HeadlessOpDataView view;
    JournalAction entry(session.journal(), JournalEntry::Home);
    const int result = Homing(session.context(), view).run();
    entry.finish(result == 0);
    return result == 0 ? ExitDone : ExitLinkFailed;
}

int move(CliSession& session, const QStringList& args)
{
    HeadlessOpDataView view;
    if (const int bad = screenFromOptions(session, args, view.shown))
        return bad;

    MoveTestState state;
    MoveRun run(session.context(), state, view);
    QObject::connect(&run, &MoveRun::moveFinished, &run, [&session](int moveNo) {
        session.out() << Msg(MoveFinished).arg(moveNo) << '\n';
        session.out().flush();
    });
    // Ctrl-C is STOP: the move in progress completes and the run ends.
    session.interrupt().setAbortsWaits(false);
    QObject::connect(&session.interrupt(), &Interrupt::raised, &run, &MoveRun::stop);

    MoveJournal journal(session.journal(), run);
    const MoveRun::Result result = run.run();
    const QString refused = Msg(NotAtRest).arg(lastStatus(session.commands()));
    journal.runEnded(result == MoveRun::Result::Done, result == MoveRun::Result::NotAtRest ? refused : QString());
    switch (result) {
    case MoveRun::Result::Done:
        return ExitDone;
    case MoveRun::Result::NotAtRest:
        session.report(refused);
        return ExitLinkFailed;
    case MoveRun::Result::Failed:
    default:
        return ExitLinkFailed;
    }
}
