#include "link/VersionQuery.h"

#include "common/ControlLock.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
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

int VersionQuery::run()
{
    ProgramState& state = ProgramState::instance();
    m_context.lock.CMDBTN_Muko();
    m_context.lock.Menyu_Muko();
    state.gCommBusy = true;

    const int result = query();
    if (result == 0)
        m_context.prompter.tell(Msg(418) + m_version + Msg(419));

    m_context.link.CloseCommPort();
    state.gCommBusy = false;
    m_context.lock.CMDBTN_Yuko();
    m_context.lock.Menyu_Yuko();
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
        if (!m_context.link.gErrorReply || commands.ReadVersionOld() != 0)
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
