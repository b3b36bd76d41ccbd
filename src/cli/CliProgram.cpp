#include "cli/CliProgram.h"

#include "cli/CliSession.h"
#include "cli/ExitStatus.h"
#include "cli/FrameTrace.h"
#include "cli/GlobalOptions.h"
#include "cli/JournalCommand.h"
#include "cli/LinkCommands.h"
#include "cli/ListFiles.h"
#include "cli/OpDataCommands.h"
#include "cli/ParamsCommands.h"
#include "cli/ReportCommand.h"
#include "common/LanguageStartup.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "common/StartupSettings.h"
#include "common/VersionText.h"
#include "common/Waiter.h"
#include "link/QtSerialPort.h"
#include "sim/SimSerialPort.h"

#include <QTextStream>

#include <array>

namespace {

constexpr int HelpFirst = 4801;
// The usage line, description, "Options:", the options.
constexpr std::array HelpLines{HelpFirst, 4802, 4803, 4804, 4805, 4806, 4823, 4807, 4808, 4809};
constexpr int CommandsHeading = 4810;
constexpr int ExitStatusLine = 4811;
constexpr int NoCommand = 4816;
constexpr int UnknownCommand = 4817;
constexpr int VersionLine = 4820;
constexpr int Interrupted = 4822;

const QString HelpOption = QStringLiteral("--help");

// --lang decides; without it, the language is chosen as the desktop tool
// chooses it at start.
void chooseLanguage(const GlobalOptions& options)
{
    ProgramState& state = ProgramState::instance();
    if (options.language == 0) {
        LanguageStartup::run(state);
        return;
    }
    state.gLanguage = options.language;
    state.gMsgBase = LanguageStartup::msgBaseFor(options.language);
}

QString withArgs(QString text, const QStringList& args)
{
    for (const QString& arg : args)
        text = text.arg(arg);
    return text;
}

SerialPort* defaultPort(const GlobalOptions& options)
{
    if (options.simulator)
        return new SimSerialPort;
    return new QtSerialPort;
}

} // namespace

CliProgram::CliProgram(QTextStream& out, QTextStream& err)
    : m_out(out)
    , m_err(err)
    , m_makePort(defaultPort)
{
    addLinkCommands(m_registry);
    addParamsCommands(m_registry);
    addOpDataCommands(m_registry);
    addReportCommand(m_registry);
    addJournalCommand(m_registry);
}

const CliCommand* CliProgram::command(const GlobalOptions& options, QStringList* args) const
{
    return m_registry.find(options.command, args);
}

int CliProgram::run(const GlobalOptions& options, Interrupt& interrupt, const QElapsedTimer& clock)
{
    chooseLanguage(options);
    StartupSettings::load(ProgramState::instance());
    CliSession session(options, m_makePort(options), interrupt, m_out, m_err);

    if (options.errorMessage != 0)
        return session.usageError(withArgs(Msg(options.errorMessage), options.errorArgs));
    if (options.help) {
        printHelp();
        return ExitDone;
    }
    if (options.version) {
        m_out << Msg(VersionLine).arg(ProgramVersionText()) << '\n';
        return ExitDone;
    }
    if (options.command.isEmpty())
        return session.usageError(Msg(NoCommand));
    QStringList args;
    const CliCommand* found = command(options, &args);
    if (!found && options.command.contains(HelpOption) && printGroupHelp(options.command.first()))
        return ExitDone;
    if (!found)
        return session.usageError(Msg(UnknownCommand).arg(options.command.first()));
    if (args.contains(HelpOption)) {
        printCommandHelp({found});
        return ExitDone;
    }
    return runCommand(session, *found, args, options, clock);
}

int CliProgram::runCommand(CliSession& session, const CliCommand& command, const QStringList& args,
                           const GlobalOptions& options, const QElapsedTimer& clock)
{
    if (m_hook)
        m_hook(session);
    if (options.trace != GlobalOptions::Trace::Off) {
        const ErrorList* decoding = options.trace == GlobalOptions::Trace::Decoded ? &session.errors() : nullptr;
        new FrameTrace(session.link(), clock, m_err, decoding, &session);
    }
    if (command.usesLink) {
        if (const int missing = requireErrorList(session))
            return missing;
    }
    const int status = command.run(session, args);
    if (Waiter::aborted()) {
        session.report(Msg(Interrupted));
        return ExitLinkFailed;
    }
    return status;
}

void CliProgram::printHelp() const
{
    for (const int id : HelpLines)
        m_out << Msg(id) << '\n';
    m_out << '\n'
          << Msg(CommandsHeading) << '\n';
    for (const CliCommand& command : m_registry.commands())
        m_out << Msg(command.usageMessage) << '\n';
    m_out << '\n'
          << Msg(ExitStatusLine) << '\n';
}

// ktrctl COMMAND --help: the usage line, the commands' own lines, the exit
// statuses.
void CliProgram::printCommandHelp(const QList<const CliCommand*>& commands) const
{
    m_out << Msg(HelpFirst) << "\n\n";
    for (const CliCommand* command : commands) {
        m_out << Msg(command->usageMessage) << '\n';
        if (command->detailMessage != 0)
            m_out << Msg(command->detailMessage) << '\n';
    }
    m_out << '\n'
          << Msg(ExitStatusLine) << '\n';
}

// ktrctl params --help: every command of the group whose first word is given.
bool CliProgram::printGroupHelp(const QString& word) const
{
    QList<const CliCommand*> group;
    for (const CliCommand& command : m_registry.commands()) {
        if (command.name.startsWith(word + u' '))
            group << &command;
    }
    if (!group.isEmpty())
        printCommandHelp(group);
    return !group.isEmpty();
}
