#include "cli/CliSession.h"

#include "cli/ExitStatus.h"
#include "cli/GlobalOptions.h"
#include "common/MessageTable.h"
#include "link/PortNaming.h"
#include "link/QtSerialPort.h"
#include "sim/SimSerialPort.h"

namespace {
constexpr int UnexpectedArgument = 4818;
constexpr int SeeHelp = 4819;
} // namespace

CliSession::CliSession(const GlobalOptions& options, Interrupt& interrupt, QObject* parent)
    : QObject(parent)
    , m_out(stdout)
    , m_err(stderr)
    , m_interrupt(interrupt)
    , m_port(makePort(options, this))
    , m_link(*m_port, m_prompter, m_alarms, m_errors)
{
    // The built-in controller answers on any name; a device named for the
    // run, or stored by the options dialog, replaces the numbered port.
    if (options.simulator)
        m_link.setPortName(QStringLiteral("simulator"));
    else if (!options.portName.isEmpty())
        m_link.setPortName(options.portName);
    else
        m_link.setPortName(PortNaming::storedName());
}

SerialPort* CliSession::makePort(const GlobalOptions& options, QObject* parent)
{
    if (options.simulator)
        return new SimSerialPort(parent);
    return new QtSerialPort(parent);
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
