#include "link/AlarmReset.h"

#include "common/ControlLock.h"
#include "common/ProgramState.h"
#include "link/AlarmDisplay.h"
#include "link/CommandSet.h"
#include "link/Link.h"
#include "link/SequenceContext.h"

AlarmReset::AlarmReset(SequenceContext& context, AlarmDisplay& alarms)
    : m_context(context)
    , m_alarms(alarms)
{
}

int AlarmReset::run()
{
    ProgramState& state = ProgramState::instance();
    m_context.lock.CMDBTN_Muko();
    m_context.lock.setTabsEnabled(false);
    state.gCommBusy = true;

    const int result = m_context.commands.AlarmReset();
    if (result == 0) {
        m_alarms.showAlarm(false);
        m_alarms.setStatusText(QString());
    }

    m_context.link.CloseCommPort();
    state.gCommBusy = false;
    m_context.lock.CMDBTN_Yuko();
    m_context.lock.setTabsEnabled(true);
    return result;
}
