// ktrctl: the controller sequences of the desktop tool from the command line.

#include "cli/CliSession.h"
#include "cli/CommandRegistry.h"
#include "cli/ExitStatus.h"
#include "cli/FrameTrace.h"
#include "cli/GlobalOptions.h"
#include "cli/Interrupt.h"
#include "cli/LinkCommands.h"
#include "cli/ParamsCommands.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "common/Waiter.h"
#include "shell/LanguageStartup.h"
#include "shell/StartupSettings.h"
#include "shell/VersionText.h"

#include <QCoreApplication>
#include <QElapsedTimer>

namespace {

constexpr int HelpFirst = 4801;      // usage line, description, "Options:", the options
constexpr int HelpLast = 4809;
constexpr int CommandsHeading = 4810;
constexpr int ExitStatusLine = 4811;
constexpr int NoCommand = 4816;
constexpr int UnknownCommand = 4817;
constexpr int VersionLine = 4820;
constexpr int Interrupted = 4822;

// Every group of commands adds itself here.
void registerCommands(CommandRegistry& registry)
{
    addLinkCommands(registry);
    addParamsCommands(registry);
}

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

void printHelp(QTextStream& out, const CommandRegistry& registry)
{
    for (int id = HelpFirst; id <= HelpLast; ++id)
        out << Msg(id) << '\n';
    out << '\n' << Msg(CommandsHeading) << '\n';
    for (const CliCommand& command : registry.commands())
        out << Msg(command.usageMessage) << '\n';
    out << '\n' << Msg(ExitStatusLine) << '\n';
}

} // namespace

int main(int argc, char* argv[])
{
    QElapsedTimer clock;
    clock.start();
    Interrupt::blockSignal();
    QCoreApplication app(argc, argv);
    const GlobalOptions options = GlobalOptions::parse(app.arguments().mid(1));
    chooseLanguage(options);
    StartupSettings::load(ProgramState::instance());

    Interrupt interrupt;
    CliSession session(options, interrupt);
    CommandRegistry registry;
    registerCommands(registry);

    if (options.errorMessage != 0)
        return session.usageError(withArgs(Msg(options.errorMessage), options.errorArgs));
    if (options.help) {
        printHelp(session.out(), registry);
        return ExitDone;
    }
    if (options.version) {
        session.out() << Msg(VersionLine).arg(ProgramVersionText()) << '\n';
        return ExitDone;
    }
    if (options.command.isEmpty())
        return session.usageError(Msg(NoCommand));
    QStringList args;
    const CliCommand* command = registry.find(options.command, &args);
    if (!command)
        return session.usageError(Msg(UnknownCommand).arg(options.command.first()));

    if (options.trace)
        new FrameTrace(session.link(), clock, session.err(), &session);
    if (command->usesLink)
        session.loadErrorList();
    const int status = command->run(session, args);
    if (Waiter::aborted()) {
        session.report(Msg(Interrupted));
        return ExitLinkFailed;
    }
    return status;
}
