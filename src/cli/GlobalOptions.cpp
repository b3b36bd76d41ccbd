#include "cli/GlobalOptions.h"

namespace {

constexpr int UnknownOption = 4812;
constexpr int NeedsValue = 4813;
constexpr int InvalidValue = 4814;
constexpr int PortAndSimulator = 4815;

qint16 languageOf(const QString& value)
{
    if (value == u"ja")
        return 1;
    if (value == u"en")
        return 2;
    return 0;
}

} // namespace

GlobalOptions GlobalOptions::parse(const QStringList& args)
{
    GlobalOptions options;
    const auto fail = [&options](int message, const QStringList& texts) {
        if (options.errorMessage == 0) {
            options.errorMessage = message;
            options.errorArgs = texts;
        }
    };
    qsizetype i = 0;
    for (; i < args.size() && args[i].startsWith(u"--"); ++i) {
        const QString& option = args[i];
        if (option == u"--simulator") {
            options.simulator = true;
        } else if (option == u"--trace") {
            options.trace = GlobalOptions::Trace::Plain;
        } else if (option == u"--trace=decoded") {
            options.trace = GlobalOptions::Trace::Decoded;
        } else if (option == u"--help") {
            options.help = true;
        } else if (option == u"--version") {
            options.version = true;
        } else if (option == u"--port" || option == u"--lang" || option == u"--unit") {
            if (i + 1 >= args.size()) {
                fail(NeedsValue, {option});
                break;
            }
            const QString value = args[++i];
            if (option == u"--port")
                options.portName = value;
            else if (option == u"--unit")
                options.unit = value.trimmed();
            else if ((options.language = languageOf(value)) == 0)
                fail(InvalidValue, {option, value});
        } else {
            fail(UnknownOption, {option});
        }
    }
    options.command = args.mid(i);
    if (options.simulator && !options.portName.isEmpty())
        fail(PortAndSimulator, {});
    return options;
}
