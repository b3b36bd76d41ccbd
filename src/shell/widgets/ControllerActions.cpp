#include "shell/widgets/ControllerActions.h"

#include "link/AlarmReset.h"
#include "link/Link.h"
#include "link/VersionQuery.h"
#include "opdata/widgets/OpDataPage.h"
#include "shell/widgets/ControllerSession.h"
#include "shell/widgets/MainWindow.h"
#include "shell/widgets/OptionsDialog.h"

#include <QAction>
#include <QPushButton>

ControllerActions::ControllerActions(MainWindow& window, ControllerSession& session)
    : QObject(&window)
    , m_window(window)
    , m_session(session)
{
    window.hooks.loadErrorList = [this] { m_session.loadErrorList(); };
    // File, Exit lets go of the port whatever PortOccupy says.
    window.hooks.closePort = [this] { m_session.link().ClosePortNow(); };
    connect(window.opData->cmdRESET, &QPushButton::clicked, this, &ControllerActions::cmdRESET_Click);
    connect(window.mnuShowCtversion, &QAction::triggered, this,
            &ControllerActions::mnuShowCtversion_Click);
    connect(window.mnuOption, &QAction::triggered, this, &ControllerActions::mnuOption_Click);
}

void ControllerActions::cmdRESET_Click()
{
    AlarmReset(m_session.context(), m_window.alarms()).run();
}

void ControllerActions::mnuShowCtversion_Click()
{
    VersionQuery(m_session.context()).run();
}

void ControllerActions::mnuOption_Click()
{
    OptionsDialog dialog(m_session.link(), m_session.context().prompter,
                         m_window.linkTarget().simulator, &m_window);
    connect(&dialog, &OptionsDialog::portChanged, &m_window, &MainWindow::refreshPortLabel);
    connect(&dialog, &OptionsDialog::openPortClosed, &m_window, [this] {
        m_window.mParaDispRefresh = true;
        m_window.mPosiDispRefresh = true;
    });
    dialog.Form_Load();
    dialog.exec();
}
