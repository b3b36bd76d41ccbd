#include "cli/CliSession.h"

#include "cli/ExitStatus.h"
#include "cli/GlobalOptions.h"
#include "common/MessageTable.h"
#include "common/SerialPort.h"
#include "link/PortNaming.h"

namespace {
constexpr int UnexpectedArgument = 4818;
constexpr int SeeHelp = 4819;
} // namespace

CliSession::CliSession(const GlobalOptions& options, SerialPort* port, Interrupt& interrupt, QTextStream& out,
                       QTextStream& err, QObject* parent)
    : QObject(parent)
    , m_out(out)
    , m_err(err)
    , m_interrupt(interrupt)
    , m_unit(options.unit)
    , m_port(port)
    , m_link(*m_port, m_tap, m_alarms, m_errors)
    , m_journal(
          m_context, m_errors, m_tap, QStringLiteral("ktrctl"), [this](const QString&) { return m_unit; },
          Journal(Journal::defaultDirectory(), [this](const QString& text) { report(text); }))
{
    m_port->setParent(this);
    // The built-in controller answers on any name; a device named for the
    // run, or stored by the options dialog, replaces the numbered port.
    if (options.simulator)
        m_link.setPortName(QStringLiteral("simulator"));
    else if (!options.portName.isEmpty())
        m_link.setPortName(options.portName);
    else
        m_link.setPortName(PortNaming::storedName());
}

void CliSession::report(const QString& text)
{
    m_err << text << '\n';
    m_err.flush();
}

int CliSession::usageError(const QString& text)
{
    report(text);
    report(Msg(SeeHelp));
    return ExitUsage;
}

int CliSession::noArguments(const QStringList& args)
{
    return args.isEmpty() ? int(ExitDone) : usageError(Msg(UnexpectedArgument).arg(args.first()));
}
