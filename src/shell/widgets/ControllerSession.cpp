#include "shell/widgets/ControllerSession.h"

#include "common/Waiter.h"
#include "link/Link.h"
#include "link/PortNaming.h"
#include "link/QtSerialPort.h"
#include "record/JournalRecorder.h"
#include "record/UnitByPort.h"
#include "shell/StartupOptions.h"
#include "shell/widgets/MainWindow.h"
#include "sim/SimSerialPort.h"

namespace {

// The name the link opens for the built-in controller, which answers on any.
const QString SimulatorPortName = QStringLiteral("simulator");

// What a box would have answered had the user closed it from its frame.
Prompter::Answer closingAnswer(Prompter::Buttons buttons)
{
    switch (buttons) {
    case Prompter::Buttons::Ok: return Prompter::Answer::Ok;
    case Prompter::Buttons::YesNo: return Prompter::Answer::No;
    default: return Prompter::Answer::Cancel;
    }
}

} // namespace

ControllerSession::ControllerSession(MainWindow& window, const StartupOptions& target)
    : QObject(&window)
    , m_prompter(window)
    , m_files(window)
    , m_port(makePort(target))
    , m_link(new Link(*m_port, m_tap, window.alarms(), m_errors, this))
    , m_commands(*m_link)
    , m_context{*m_link, m_commands, m_tap, window.lock(), window.progress(), m_files}
    , m_journal(std::make_unique<JournalRecorder>(
          m_context, m_errors, m_tap, QStringLiteral("ktr-w5"), UnitByPort::lastFor,
          Journal(Journal::defaultDirectory(), [this](const QString& text) { m_prompter.notify(text, Prompter::Icon::Exclamation); })))
{
    // A device named for the run, or stored by the options dialog, replaces
    // the numbered port.
    if (m_simulator) {
        m_link->setPortName(SimulatorPortName);
        // It answers on every port number, so the port scan offers them all.
        m_link->setPortNaming([](int) { return SimulatorPortName; });
    } else if (!target.portName.isEmpty())
        m_link->setPortName(target.portName);
    else
        m_link->setPortName(PortNaming::storedName());
}

// The journal and the link go first: they still refer to the port.
ControllerSession::~ControllerSession()
{
    m_journal.reset();
    delete m_link;
}

SerialPort* ControllerSession::makePort(const StartupOptions& target)
{
    if (!target.simulator)
        return new QtSerialPort(this);
    auto* port = new SimSerialPort(this);
    m_simulator = &port->controller();
    return port;
}

void ControllerSession::loadErrorList()
{
    m_errors.Get_ErrorList(m_prompter);
}

Prompter::Answer ControllerSession::WindowPrompter::ask(const QString& text, Buttons buttons,
                                                        Icon icon, const QString& title)
{
    if (Waiter::aborted())
        return closingAnswer(buttons);
    return m_window.prompter().ask(text, buttons, icon, title);
}

void ControllerSession::WindowPrompter::notify(const QString& text, Icon icon)
{
    if (!Waiter::aborted())
        m_window.prompter().notify(text, icon);
}

QString ControllerSession::WindowFiles::openFile(const QString& title, const QString& filter,
                                                 const QString& defaultExtension)
{
    return m_window.files().openFile(title, filter, defaultExtension);
}

QString ControllerSession::WindowFiles::saveFile(const QString& title, const QString& filter,
                                                 const QString& defaultExtension,
                                                 const QString& proposedName)
{
    return m_window.files().saveFile(title, filter, defaultExtension, proposedName);
}
