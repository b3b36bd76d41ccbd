#include "shell/widgets/MainWindowLock.h"

#include <QTabBar>
#include <QTabWidget>

void MainWindowLock::Menyu_Muko()
{
    disable(m_sets.menusOff);
    m_held = true;
}

void MainWindowLock::Menyu_Yuko()
{
    enable(m_sets.menusOn);
    m_held = false;
}

void MainWindowLock::setTabsEnabled(bool on)
{
    // Only the tab strip: the page's own controls (STOP during a run) stay
    // as their routines left them.
    if (m_sets.tabs)
        m_sets.tabs->tabBar()->setEnabled(on);
}

void MainWindowLock::disable(const LockList& list)
{
    for (const LockEntry& entry : list)
        if (entry.control)
            entry.control->setProperty("enabled", false);
}

void MainWindowLock::enable(const LockList& list)
{
    for (const LockEntry& entry : list)
        if (entry.control)
            entry.control->setProperty("enabled", !entry.enableWhen || entry.enableWhen());
}
