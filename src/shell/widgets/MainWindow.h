#pragma once

#include "shell/HelpModule.h"
#include "shell/StartupOptions.h"
#include "shell/widgets/AlarmLamps.h"
#include "shell/widgets/DialogFileChooser.h"
#include "shell/widgets/MainWindowLock.h"
#include "shell/widgets/MessageBoxPrompter.h"

#include <QMainWindow>
#include <QPointer>

#include <functional>

class CommLogWindow;
class ControllerSession;
class JournalWindow;
class Lamp;
class MainWindowProgress;
class OpDataPage;
class ParaPage;
class QAction;
class QLabel;
class QMenu;
class QProgressBar;
class QStatusBar;
class QTabWidget;
class ReportMenuCommand;
struct SequenceContext;

// Steps of the window's life that other parts of the program provide when
// they are wired in. An unset hook is skipped.
struct MainWindowHooks {
    std::function<void()> loadErrorList;  // Load: Get_ErrorList
    std::function<void()> loadDeviceList; // Load: LoadDeviceListAtStart (fills comboActSize)
    std::function<void()> closePort;      // File, Exit: closes the port whatever PortOccupy says
};

// The main window (frmMain): menus, the two tabs (operation data and
// parameters), the alarm lamps with the status label, and the status bar
// with the transfer progress bar.
//
// Menu items that share a command with a button of a tab (Open, Save As,
// Read from C/T, Write to C/T, Print) click that button, so a command is
// connected once, to its button. mnuFileSave has no command of its own and
// clicks the Save As button too.
class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    // target: where the link talks to for the whole run (--simulator,
    // --port NAME); shown in the status bar and the title.
    explicit MainWindow(const StartupOptions& target = {}, QWidget* parent = nullptr);
    ~MainWindow() override;

    // The Load steps: position, help menu, captions, error list, choice
    // lists, tab captions, device list, initial choices.
    void Form_Load();

    const StartupOptions& linkTarget() const { return m_linkTarget; }
    // The port label (and the title) after the port or device changed.
    void refreshPortLabel();

    // The link to the controller and what every sequence started from the
    // window is given (link, commands, this window's prompter, file
    // chooser, enabling routines and progress display). Built in the
    // constructor, before any page controller, and kept for the whole run.
    ControllerSession& session() { return *m_session; }
    SequenceContext& context();

    // The window's message boxes and file dialogs; tests put scripted ones
    // in their place.
    Prompter& prompter() { return *m_activePrompter; }
    FileChooser& files() { return *m_activeFiles; }
    void usePrompter(Prompter& prompter) { m_activePrompter = &prompter; }
    void useFileChooser(FileChooser& files) { m_activeFiles = &files; }

    ControlLock& lock() { return m_lock; }
    ProgressDisplay& progress();
    AlarmDisplay& alarms() { return *m_alarms; }

    MainWindowHooks hooks;
    HelpModule help;

    // Set at the end of start-up: the parameter and the operation data
    // displays must be refreshed from their data.
    bool mParaDispRefresh = false;
    bool mPosiDispRefresh = false;

    // What the controller actions, the screenshots and tests reach.
    QAction* mnuFileOpen;
    QAction* mnuFileExit;
    QAction* mnuShowCtversion;
    QAction* mnuReport;
    QAction* mnuOption;
    ReportMenuCommand* report = nullptr;

    QTabWidget* SSTab1;
    OpDataPage* opData;
    ParaPage* para;
    Lamp* imgAlarmLed;
    Lamp* imgAlarmGreen;
    QLabel* lblstatus;
    QStatusBar* sbStatusBar;
    QProgressBar* ProgressBar1;
    QLabel* lblPort;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QMenu* mnuFile;
    QAction* mnuFileSave;
    QAction* mnuFileSaveAs;
    QAction* mnuFileGetfromCt;
    QAction* mnuFileLoadtoCt;
    QAction* mnuFilePrint;
    QMenu* mnuView;
    QAction* mnuViewMoveEdit;
    QAction* mnuViewPara;
    QAction* mnuViewCommLog;
    QAction* mnuViewJournal;
    QMenu* mnuCont;
    QMenu* mnuModeChange;
    QMenu* mnuHelp;
    QAction* mnuHelpContents;
    QAction* mnuHelpAbout;

    void buildMenus();
    QAction* menuItem(QMenu* menu, const char* name, int caption);
    QMenu* menu(const char* name, int caption);
    QWidget* buildAlarmRow();
    void buildStatusBar();
    void connectMenus();
    void composeLock();
    void composePages();

    void placeFromSettings();
    void fillChoiceLists();
    void selectFirstChoices();

    void Form_Unload();
    void mnuFileExit_Click();
    void mnuHelpContents_Click();
    void mnuHelpAbout_Click();
    void mnuViewCommLog_Click();
    void mnuViewJournal_Click();

    MessageBoxPrompter m_prompter;
    DialogFileChooser m_files;
    Prompter* m_activePrompter = &m_prompter;
    FileChooser* m_activeFiles = &m_files;
    MainWindowLock m_lock;
    std::unique_ptr<AlarmLamps> m_alarms;
    MainWindowProgress* m_progress = nullptr;
    StartupOptions m_linkTarget;
    ControllerSession* m_session = nullptr;
    QPointer<CommLogWindow> m_commLog;
    QPointer<JournalWindow> m_journal;
};
