#include "link/VersionQuery.h"

#include "common/MessageTable.h"
#include "link/CommandHold.h"
#include "link/CommandSet.h"
#include "link/Link.h"
#include "link/Prompter.h"
#include "link/SequenceContext.h"

VersionQuery::VersionQuery(SequenceContext& context)
    : m_context(context)
{
}

QString VersionQuery::versionText(const QString& digits)
{
    return digits.left(1) + u'.' + digits.mid(1, 2);
}

// Its menu item stays enabled while other commands run, so it asks first.
int VersionQuery::run()
{
    if (!CommandHold::mayStart(m_context))
        return 1;
    const CommandHold hold(m_context);
    const int result = query();
    if (result == 0)
        m_context.prompter.tell(Msg(418) + m_version + Msg(419));
    return result;
}

// A time-out or a garbled answer to "0RV" ends the query; only an error
// reply (a controller that does not know "0RV") leads to the older form.
int VersionQuery::query()
{
    CommandSet& commands = m_context.commands;
    if (commands.CheckCommunication() != 0)
        return 1;
    if (commands.ReadVersion() != 0) {
        if (commands.outcome().kind() != LinkOutcome::Kind::ErrorReply || commands.ReadVersionOld() != 0)
            return 1;
    }
    takeReply();
    return 0;
}

void VersionQuery::takeReply()
{
    m_typeCode = m_context.commands.field(4, 3);
    m_version = versionText(m_context.commands.field(7, 3));
}
