#include "link/SequenceGuard.h"

#include "common/ControlLock.h"
#include "common/ProgramState.h"
#include "link/Link.h"

#include <utility>

const SequenceGuard::Bracket SequenceGuard::MenusOnly{{Step::Menus}, {Step::Menus}};

SequenceGuard::SequenceGuard(ControlLock& lock, Link* link, const Bracket& bracket,
                             std::function<void(bool)> own)
    : m_lock(lock)
    , m_link(link)
    , m_bracket(bracket)
    , m_own(std::move(own))
{
    for (const Step step : m_bracket.hold)
        apply(step, false);
}

SequenceGuard::~SequenceGuard()
{
    for (const Step step : m_bracket.release)
        apply(step, true);
}

void SequenceGuard::apply(Step step, bool enabled)
{
    switch (step) {
    case Step::CommandButtons:
        enabled ? m_lock.CMDBTN_Yuko() : m_lock.CMDBTN_Muko();
        break;
    case Step::ParaButtons:
        enabled ? m_lock.ParaCMDBTN_Yuko() : m_lock.ParaCMDBTN_Muko();
        break;
    case Step::HomeButtons:
        enabled ? m_lock.HOMEBTN_Yuko() : m_lock.HOMEBTN_Muko();
        break;
    case Step::MoveButtons:
        enabled ? m_lock.MoveCMDBTN_Yuko() : m_lock.MoveCMDBTN_Muko();
        break;
    case Step::Tabs:
        m_lock.setTabsEnabled(enabled);
        break;
    case Step::Menus:
        enabled ? m_lock.Menyu_Yuko() : m_lock.Menyu_Muko();
        break;
    case Step::Busy:
        ProgramState::instance().gCommBusy = !enabled;
        break;
    case Step::ClosePort:
        if (enabled && m_link)
            m_link->CloseCommPort();
        break;
    case Step::Own:
        if (m_own)
            m_own(enabled);
        break;
    }
}
