// ktrctl: the controller sequences of the desktop tool from the command line.

#include "cli/CliProgram.h"
#include "cli/GlobalOptions.h"
#include "cli/Interrupt.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTextStream>

#include <memory>

namespace {

QStringList argumentsOf(int argc, char* argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

// The print commands and the report draw pages, which takes the fonts of a
// GUI application; on the offscreen platform that needs no display.
bool drawsPages(const CliCommand* command)
{
    return command && (command->name.endsWith(QLatin1String(" print")) || command->name == QLatin1String("report"));
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
    QTextStream out(stdout);
    QTextStream err(stderr);
    CliProgram program(out, err);
    const std::unique_ptr<QCoreApplication> app = makeApplication(argc, argv, drawsPages(program.command(options)));
    Interrupt interrupt;
    return program.run(options, interrupt, clock);
}
