#include "shell/StartupOptions.h"

#include "common/MessageTable.h"

#include <QCommandLineParser>

namespace {

constexpr int UsageFirst = 5400; // usage line, description, "Options:", the options
constexpr int UsageLast = 5407;
constexpr int UnknownOption = 5410;
constexpr int NeedsValue = 5411;
constexpr int UnexpectedArgument = 5412;

const QCommandLineOption SimulatorOption(QStringLiteral("simulator"));
const QCommandLineOption PortOption(QStringLiteral("port"), QString(), QStringLiteral("NAME"));
const QCommandLineOption ScreenshotOption(QStringLiteral("screenshot"), QString(), QStringLiteral("DIR"));
const QCommandLineOption HelpOption(QStringLiteral("help"));
const QCommandLineOption VersionOption(QStringLiteral("version"));

// The parser says only in English which value is missing; a missing value
// can only be the last argument, an option that takes one.
QString optionMissingItsValue(const QStringList& arguments)
{
    const QString last = arguments.last();
    for (const QCommandLineOption* option : {&PortOption, &ScreenshotOption}) {
        if (last == QLatin1String("--") + option->names().first())
            return last;
    }
    return {};
}

// The parser names an unknown option without its dashes.
QString asTyped(const QString& name)
{
    return (name.size() == 1 ? QStringLiteral("-") : QStringLiteral("--")) + name;
}

} // namespace

StartupOptions StartupOptions::parse(const QStringList& arguments)
{
    StartupOptions o;
    QCommandLineParser parser;
    parser.addOptions({SimulatorOption, PortOption, ScreenshotOption, HelpOption, VersionOption});
    if (!parser.parse(arguments)) {
        const QStringList unknown = parser.unknownOptionNames();
        o.errorMessage = unknown.isEmpty() ? NeedsValue : UnknownOption;
        o.errorArg = unknown.isEmpty() ? optionMissingItsValue(arguments) : asTyped(unknown.first());
        return o;
    }
    if (!parser.positionalArguments().isEmpty()) {
        o.errorMessage = UnexpectedArgument;
        o.errorArg = parser.positionalArguments().first();
    }
    o.simulator = parser.isSet(SimulatorOption);
    o.portName = parser.value(PortOption);
    o.screenshotDir = parser.value(ScreenshotOption);
    o.help = parser.isSet(HelpOption);
    o.version = parser.isSet(VersionOption);
    return o;
}

QString StartupOptions::usage()
{
    QStringList lines;
    for (int id = UsageFirst; id <= UsageLast; ++id)
        lines << Msg(id);
    return lines.join(u'\n');
}
