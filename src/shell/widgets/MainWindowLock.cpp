#include "shell/widgets/MainWindowLock.h"

#include <QAbstractButton>
#include <QAction>
#include <QMenu>
#include <QTabBar>
#include <QTabWidget>

namespace {

const QStringList g_fileAndTransfer = {
    QStringLiteral("cmdFileOpen"),
    QStringLiteral("cmdSaveFile"),
    QStringLiteral("cmdLoadtoCt"),
    QStringLiteral("cmdGetfromCt"),
    QStringLiteral("cmdDataPrint"),
    QStringLiteral("cmdFilePrint"),
};

QStringList join(std::initializer_list<QStringList> parts)
{
    QStringList all;
    for (const QStringList& p : parts)
        all += p;
    return all;
}

} // namespace

MainWindowLock::MainWindowLock(QWidget* form)
    : m_form(form)
{
}

const QStringList& MainWindowLock::commandButtons()
{
    static const QStringList names = join({g_fileAndTransfer,
                                           {"Frame2", "cmdMOVE", "cmdSTOP", "cmdHOME", "Frame1", "cmdIoMonitor", "Frame4", "cmdRESET"}});
    return names;
}

const QStringList& MainWindowLock::menusToDisable()
{
    static const QStringList names = {"mnuFileOpen", "mnuFileGetfromCt", "mnuFileSave",
                                      "mnuFileSaveAs", "mnuFileLoadtoCt", "mnuFilePrint", "mnuModeChange", "mnuView", "mnuCont"};
    return names;
}

const QStringList& MainWindowLock::menusToEnable()
{
    static const QStringList names = {"mnuFileOpen", "mnuFileGetfromCt", "mnuFileSave",
                                      "mnuFileSaveAs", "mnuFileLoadtoCt", "mnuFilePrint", "mnuShowCtversion", "mnuModeChange",
                                      "mnuView", "mnuCont"};
    return names;
}

const QStringList& MainWindowLock::homeButtons()
{
    static const QStringList names = join({g_fileAndTransfer,
                                           {"Frame2", "cmdIoMonitor", "Frame4", "cmdRESET", "cmdMOVE", "cmdSTOP", "optSTEP", "optCNT",
                                            "chkTimerUse"}});
    return names;
}

const QStringList& MainWindowLock::moveButtons()
{
    static const QStringList names = join({{"optSTEP", "optCNT", "cmdMOVE", "chkTimerUse", "txtTimer", "cmdHOME"}, g_fileAndTransfer, {"Frame2", "cmdIoMonitor", "Frame4", "cmdRESET"}});
    return names;
}

const QStringList& MainWindowLock::paraButtons()
{
    static const QStringList names = {"cmdReadParaFile", "cmdSaveParaFile", "cmdConpareFile",
                                      "cmdParaFilePrint", "cmdParaPrint", "cmdIniPrm", "cmdParaRead", "cmdParaWrite",
                                      "cmdConpareCT"};
    return names;
}

void MainWindowLock::CMDBTN_Muko() { setEnabled(commandButtons(), false); }
void MainWindowLock::CMDBTN_Yuko() { setEnabled(commandButtons(), true); }
void MainWindowLock::Menyu_Muko()
{
    setEnabled(menusToDisable(), false);
    m_held = true;
}

void MainWindowLock::Menyu_Yuko()
{
    setEnabled(menusToEnable(), true);
    m_held = false;
}
void MainWindowLock::HOMEBTN_Muko() { setEnabled(homeButtons(), false); }
void MainWindowLock::HOMEBTN_Yuko() { setEnabled(homeButtons(), true); }
void MainWindowLock::MoveCMDBTN_Muko() { setEnabled(moveButtons(), false); }
void MainWindowLock::ParaCMDBTN_Muko() { setEnabled(paraButtons(), false); }
void MainWindowLock::ParaCMDBTN_Yuko() { setEnabled(paraButtons(), true); }

// As the others, except that the dwell check box comes back only in
// continuous mode and the dwell time only while the box is ticked.
void MainWindowLock::MoveCMDBTN_Yuko()
{
    for (const QString& name : moveButtons()) {
        bool on = true;
        if (name == QLatin1String("chkTimerUse"))
            on = isChecked(QStringLiteral("optCNT"));
        else if (name == QLatin1String("txtTimer"))
            on = isChecked(QStringLiteral("chkTimerUse"));
        setEnabled({name}, on);
    }
}

void MainWindowLock::setTabsEnabled(bool on)
{
    // Only the tab strip: the page's own controls (STOP during a run) stay
    // as their routines left them.
    if (auto* tabs = qobject_cast<QTabWidget*>(control(QStringLiteral("SSTab1"))))
        tabs->tabBar()->setEnabled(on);
}

QStringList MainWindowLock::missingControls() const
{
    QStringList missing;
    for (const QStringList* list : {&commandButtons(), &menusToEnable(), &homeButtons(),
                                    &moveButtons(), &paraButtons()})
        for (const QString& name : *list)
            if (!control(name) && !missing.contains(name))
                missing << name;
    if (!control(QStringLiteral("SSTab1")))
        missing << QStringLiteral("SSTab1");
    return missing;
}

void MainWindowLock::setEnabled(const QStringList& names, bool on)
{
    for (const QString& name : names)
        if (QObject* c = control(name))
            c->setProperty("enabled", on);
}

QObject* MainWindowLock::control(const QString& name) const
{
    if (!m_form)
        return nullptr;
    QObject* c = m_form->findChild<QObject*>(name);
    if (auto* menu = qobject_cast<QMenu*>(c))
        return menu->menuAction();
    return c;
}

bool MainWindowLock::isChecked(const QString& name) const
{
    auto* button = qobject_cast<QAbstractButton*>(control(name));
    return button && button->isChecked();
}
