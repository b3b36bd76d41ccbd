#include "cli/ParamsArguments.h"

#include "cli/CliSession.h"
#include "cli/ExitStatus.h"
#include "common/MessageTable.h"

namespace {
constexpr int UnknownOption = 4812;
constexpr int OptionNeedsValue = 4813;
constexpr int UnexpectedArgument = 4818;
constexpr int MissingArgument = 4317;
} // namespace

ParamsArguments::ParamsArguments(const QStringList& options, const QStringList& files, const QStringList& flags)
    : m_options(options)
    , m_flags(flags)
    , m_fileNames(files)
{
}

int ParamsArguments::parse(CliSession& session, const QStringList& args)
{
    for (int i = 0; i < args.size(); ++i) {
        const QString& arg = args.at(i);
        if (!arg.startsWith(u'-') || arg == QLatin1String("-")) {
            if (m_files.size() == m_fileNames.size())
                return session.usageError(Msg(UnexpectedArgument).arg(arg));
            m_files << arg;
            continue;
        }
        if (m_flags.contains(arg)) {
            m_values.insert(arg, QString());
            continue;
        }
        if (!m_options.contains(arg))
            return session.usageError(Msg(UnknownOption).arg(arg));
        if (i + 1 >= args.size())
            return session.usageError(Msg(OptionNeedsValue).arg(arg));
        m_values.insert(arg, args.at(++i));
    }
    if (m_files.size() < m_fileNames.size())
        return session.usageError(Msg(MissingArgument).arg(m_fileNames.at(m_files.size())));
    return ExitDone;
}
