#pragma once

#include "common/ControlLock.h"
#include "common/LockList.h"

#include <QPointer>

class QTabWidget;

// What each enable/disable routine switches, as the pages and the window's
// menus declare it.
struct LockSets {
    LockList commands; // CMDBTN
    LockList home;     // HOMEBTN
    LockList move;     // MoveCMDBTN
    LockList para;     // ParaCMDBTN
    LockList menusOff; // Menyu_Muko
    LockList menusOn;  // Menyu_Yuko
    QPointer<QTabWidget> tabs;
};

// The enable/disable routines of the main window: each switches its list in
// the list's order. The window composes the lists once its pages exist.
class MainWindowLock : public ControlLock {
public:
    void compose(LockSets sets) { m_sets = std::move(sets); }

    void CMDBTN_Muko() override { disable(m_sets.commands); }
    void CMDBTN_Yuko() override { enable(m_sets.commands); }
    void Menyu_Muko() override;
    void Menyu_Yuko() override;
    void HOMEBTN_Muko() override { disable(m_sets.home); }
    void HOMEBTN_Yuko() override { enable(m_sets.home); }
    void MoveCMDBTN_Muko() override { disable(m_sets.move); }
    void MoveCMDBTN_Yuko() override { enable(m_sets.move); }
    void ParaCMDBTN_Muko() override { disable(m_sets.para); }
    void ParaCMDBTN_Yuko() override { enable(m_sets.para); }
    void setTabsEnabled(bool on) override;
    bool held() const override { return m_held; }

private:
    static void disable(const LockList& list);
    static void enable(const LockList& list);

    LockSets m_sets;
    bool m_held = false;
};
