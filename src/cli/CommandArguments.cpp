#include "cli/CommandArguments.h"

#include "cli/CliSession.h"
#include "cli/ExitStatus.h"
#include "common/MessageTable.h"

namespace {
constexpr int UnknownOption = 4812;
constexpr int OptionNeedsValue = 4813;
constexpr int UnexpectedArgument = 4818;
} // namespace

CommandArguments::CommandArguments(const QStringList& valueOptions, const QStringList& flags,
                                   int maxWords)
    : m_valueOptions(valueOptions)
    , m_flags(flags)
    , m_maxWords(maxWords)
{
}

int CommandArguments::parse(CliSession& session, const QStringList& args)
{
    for (int i = 0; i < args.size(); ++i) {
        const QString& arg = args.at(i);
        if (!arg.startsWith(u'-') || arg == QLatin1String("-")) {
            if (m_words.size() == m_maxWords)
                return session.usageError(Msg(UnexpectedArgument).arg(arg));
            m_words << arg;
        } else if (m_flags.contains(arg)) {
            m_values[arg];
        } else if (!m_valueOptions.contains(arg)) {
            return session.usageError(Msg(UnknownOption).arg(arg));
        } else if (i + 1 >= args.size()) {
            return session.usageError(Msg(OptionNeedsValue).arg(arg));
        } else {
            m_values[arg] << args.at(++i);
        }
    }
    return ExitDone;
}

QString CommandArguments::value(const QString& option) const
{
    const QStringList given = m_values.value(option);
    return given.isEmpty() ? QString() : given.last();
}
