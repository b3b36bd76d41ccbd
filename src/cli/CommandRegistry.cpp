#include "cli/CommandRegistry.h"

void CommandRegistry::add(const CliCommand& command)
{
    m_commands << command;
}

const CliCommand* CommandRegistry::find(const QStringList& args, QStringList* rest) const
{
    const CliCommand* best = nullptr;
    qsizetype bestWords = 0;
    for (const CliCommand& command : m_commands) {
        const QStringList words = command.name.split(u' ');
        if (words.size() > bestWords && args.mid(0, words.size()) == words) {
            best = &command;
            bestWords = words.size();
        }
    }
    if (best && rest)
        *rest = args.mid(bestWords);
    return best;
}
