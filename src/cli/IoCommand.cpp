#include "cli/IoCommand.h"

#include "cli/CliSession.h"
#include "cli/CommandArguments.h"
#include "cli/ExitStatus.h"
#include "cli/Interrupt.h"
#include "common/MessageTable.h"
#include "common/Waiter.h"

namespace {

constexpr int InvalidValue = 4814;

const QString Watch = QStringLiteral("--watch");
const QString Toggle = QStringLiteral("--toggle");

} // namespace

IoCommand::IoCommand(CliSession& session, QObject* parent)
    : QObject(parent)
    , m_session(session)
    , m_monitor(session.context(), *this)
    , m_journal(session.journal(), m_monitor)
{
    connect(&m_monitor, &IoMonitor::lampsShown, this, &IoCommand::readingShown);
}

QString IoCommand::lampLine(const std::array<bool, AllIoLamps.size()>& lamps)
{
    QStringList parts;
    for (IoLamp lamp : AllIoLamps)
        parts << IoBits::label(lamp) + (lamps[IoBits::index(lamp)] ? QStringLiteral("=1") : QStringLiteral("=0"));
    return parts.join(u' ');
}

void IoCommand::setLamp(IoLamp lamp, bool on)
{
    m_lamps[IoBits::index(lamp)] = on;
}

int IoCommand::parse(const QStringList& args)
{
    CommandArguments parsed({Toggle}, {Watch}, 0);
    if (const int bad = parsed.parse(m_session, args))
        return bad;
    m_watch = parsed.has(Watch);
    for (const QString& name : parsed.values(Toggle)) {
        const auto output = std::find_if(AllIoLamps.begin(), AllIoLamps.end(), [&name](IoLamp l) {
            return IoBits::source(l).output && IoBits::label(l).compare(name, Qt::CaseInsensitive) == 0;
        });
        if (output == AllIoLamps.end())
            return m_session.usageError(Msg(InvalidValue).arg(Toggle, name));
        m_toggles << *output;
    }
    return ExitDone;
}

int IoCommand::run(const QStringList& args)
{
    if (const int bad = parse(args))
        return bad;
    // Ctrl-C ends the watch the way the button does: monitoring mode is left.
    m_session.interrupt().setAbortsWaits(false);
    connect(&m_session.interrupt(), &Interrupt::raised, this, &IoCommand::finish);
    // The monitor tells a failed output write and goes on; the exit status must say it too.
    connect(&m_session.tap(), &PrompterTap::told, this, [this] { m_failureTold = true; });

    m_monitor.start();
    Waiter::waitUntil([this] { return !m_monitor.mIoRunning; });
    m_journal.monitorStopped();
    // The monitor stops by itself only when a transaction failed.
    return m_finishing && !Waiter::aborted() && !m_failureTold ? ExitDone : ExitLinkFailed;
}

void IoCommand::readingShown()
{
    ++m_readings;
    if (m_readings == 1 && !m_toggles.isEmpty()) {
        for (IoLamp output : m_toggles) {
            m_monitor.outputClicked(output);
            m_journal.clicked(output);
        }
        return;
    }
    if (!m_watch) {
        print();
        finish();
    } else if (lampLine(m_lamps) != m_printed) {
        print();
    }
}

void IoCommand::print()
{
    m_printed = lampLine(m_lamps);
    m_session.out() << m_printed << '\n';
    m_session.out().flush();
}

void IoCommand::finish()
{
    if (m_finishing)
        return;
    m_finishing = true;
    m_monitor.stop();
}

int io(CliSession& session, const QStringList& args)
{
    IoCommand command(session);
    return command.run(args);
}
