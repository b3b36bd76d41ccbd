#include "shell/widgets/ControllerActions.h"

#include "link/AlarmReset.h"
#include "link/CommandHold.h"
#include "link/Link.h"
#include "link/VersionQuery.h"
#include "opdata/widgets/OpDataPage.h"
#include "record/JournalAction.h"
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
    JournalAction entry(m_session.journal(), JournalEntry::AlarmReset);
    entry.finish(AlarmReset(m_session.context(), m_window.alarms()).run() == 0);
}

void ControllerActions::mnuShowCtversion_Click()
{
    VersionQuery(m_session.context()).run();
}

// The port scan lets go of the port and tries every one: not while another
// command uses it, and nothing else starts while it runs.
void ControllerActions::mnuOption_Click()
{
    SequenceContext& ctx = m_session.context();
    if (!CommandHold::mayStart(ctx))
        return;
    OptionsDialog dialog(m_session.link(), ctx.prompter, m_window.linkTarget().simulator, &m_window);
    connect(&dialog, &OptionsDialog::portChanged, &m_window, &MainWindow::refreshPortLabel);
    connect(&dialog, &OptionsDialog::openPortClosed, &m_window, [this] {
        m_window.mParaDispRefresh = true;
        m_window.mPosiDispRefresh = true;
    });
    {
        const CommandHold scanning(ctx);
        dialog.Form_Load();
    }
    dialog.exec();
}
