// ktrctl: the controller sequences of the desktop tool from the command line.

#include "cli/CliSession.h"
#include "cli/CommandRegistry.h"
#include "cli/ExitStatus.h"
#include "cli/FrameTrace.h"
#include "cli/GlobalOptions.h"
#include "cli/Interrupt.h"
#include "cli/LinkCommands.h"
#include "cli/ListFiles.h"
#include "cli/OpDataCommands.h"
#include "cli/ParamsCommands.h"
#include "common/LanguageStartup.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "common/StartupSettings.h"
#include "common/VersionText.h"
#include "common/Waiter.h"

#include <QElapsedTimer>
#include <QGuiApplication>

#include <memory>

namespace {

constexpr int HelpFirst = 4801; // usage line, description, "Options:", the options
constexpr int HelpLast = 4809;
constexpr int CommandsHeading = 4810;
constexpr int ExitStatusLine = 4811;
constexpr int NoCommand = 4816;
constexpr int UnknownCommand = 4817;
constexpr int VersionLine = 4820;
constexpr int Interrupted = 4822;

const QString HelpOption = QStringLiteral("--help");

// Every group of commands adds itself here.
void registerCommands(CommandRegistry& registry)
{
    addLinkCommands(registry);
    addParamsCommands(registry);
    addOpDataCommands(registry);
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
    out << '\n'
        << Msg(CommandsHeading) << '\n';
    for (const CliCommand& command : registry.commands())
        out << Msg(command.usageMessage) << '\n';
    out << '\n'
        << Msg(ExitStatusLine) << '\n';
}

// ktrctl COMMAND --help: the usage line, the command's own lines, the exit
// statuses.
void printCommandHelp(QTextStream& out, const CliCommand& command)
{
    out << Msg(HelpFirst) << "\n\n"
        << Msg(command.usageMessage) << '\n';
    if (command.detailMessage != 0)
        out << Msg(command.detailMessage) << '\n';
    out << '\n'
        << Msg(ExitStatusLine) << '\n';
}

QStringList argumentsOf(int argc, char* argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

// The print commands draw a page, which takes the fonts of a GUI
// application; on the offscreen platform that needs no display.
bool drawsPages(const CliCommand* command)
{
    return command && command->name.endsWith(QLatin1String(" print"));
}

std::unique_ptr<QCoreApplication> makeApplication(int& argc, char* argv[], bool guiFonts)
{
    if (!guiFonts)
        return std::make_unique<QCoreApplication>(argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QGuiApplication>(argc, argv);
}

} // namespace

int main(int argc, char* argv[])
{
    QElapsedTimer clock;
    clock.start();
    Interrupt::blockSignal();
    const GlobalOptions options = GlobalOptions::parse(argumentsOf(argc, argv));
    CommandRegistry registry;
    registerCommands(registry);
    QStringList args;
    const CliCommand* command = registry.find(options.command, &args);
    const std::unique_ptr<QCoreApplication> app = makeApplication(argc, argv, drawsPages(command));
    chooseLanguage(options);
    StartupSettings::load(ProgramState::instance());

    Interrupt interrupt;
    CliSession session(options, interrupt);

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
    if (!command)
        return session.usageError(Msg(UnknownCommand).arg(options.command.first()));
    if (args.contains(HelpOption)) {
        printCommandHelp(session.out(), *command);
        return ExitDone;
    }

    if (options.trace)
        new FrameTrace(session.link(), clock, session.err(), &session);
    if (command->usesLink) {
        if (const int missing = requireErrorList(session))
            return missing;
    }
    const int status = command->run(session, args);
    if (Waiter::aborted()) {
        session.report(Msg(Interrupted));
        return ExitLinkFailed;
    }
    return status;
}
