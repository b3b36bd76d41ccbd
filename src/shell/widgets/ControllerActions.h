#pragma once

#include <QObject>

class ControllerSession;
class MainWindow;

// The main window's own controller commands: the error list read at Load,
// the alarm reset (cmdRESET), the version display (mnuShowCtversion), the
// options dialog (mnuOption), and the port closed by File, Exit.
class ControllerActions : public QObject {
    Q_OBJECT
public:
    ControllerActions(MainWindow& window, ControllerSession& session);

    void cmdRESET_Click();
    void mnuShowCtversion_Click();
    void mnuOption_Click();

private:
    MainWindow& m_window;
    ControllerSession& m_session;
};
