#include "link/AlarmReset.h"

#include "link/AlarmDisplay.h"
#include "link/CommandHold.h"
#include "link/CommandSet.h"
#include "link/SequenceContext.h"

AlarmReset::AlarmReset(SequenceContext& context, AlarmDisplay& alarms)
    : m_context(context)
    , m_alarms(alarms)
{
}

int AlarmReset::run()
{
    if (!CommandHold::mayStart(m_context))
        return 1;
    const CommandHold hold(m_context);
    const int result = m_context.commands.AlarmReset();
    if (result == 0) {
        m_alarms.showAlarm(false);
        m_alarms.setStatusText(QString());
    }
    return result;
}
