#include "shell/widgets/MainWindow.h"

#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "common/Settings.h"
#include "common/Waiter.h"
#include "common/widgets/CaptionLoader.h"
#include "common/widgets/Lamp.h"
#include "common/widgets/Twips.h"
#include "link/Link.h"
#include "opdata/widgets/OpDataPage.h"
#include "opdata/widgets/OpDataPageController.h"
#include "params/widgets/ParaPage.h"
#include "params/widgets/ParaPageController.h"
#include "record/Journal.h"
#include "record/widgets/JournalWindow.h"
#include "record/widgets/ReportMenuCommand.h"
#include "shell/widgets/AboutDialog.h"
#include "shell/widgets/AppIcon.h"
#include "shell/widgets/CommLogWindow.h"
#include "shell/widgets/ControllerActions.h"
#include "shell/widgets/ControllerSession.h"
#include "shell/widgets/MainWindowProgress.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace {

void addItems(QComboBox* combo, std::initializer_list<int> messages)
{
    for (int n : messages)
        combo->addItem(Msg(n));
}

// A running sequence is asked to stop; the window closes once it has.
constexpr int CloseRetryMs = 20;

} // namespace

MainWindow::MainWindow(const StartupOptions& target, QWidget* parent)
    : QMainWindow(parent)
    , m_prompter(this)
    , m_files(this)
    , m_linkTarget(target)
{
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QStringLiteral("KTR-W5"));
    setWindowIcon(AppIcon::icon());

    buildMenus();
    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName(QStringLiteral("SSTab1"));
    opData = new OpDataPage(SSTab1);
    para = new ParaPage(SSTab1);
    SSTab1->addTab(opData, QString());
    SSTab1->addTab(para, QString());
    composeLock();

    auto* central = new QWidget(this);
    auto* v = new QVBoxLayout(central);
    v->addWidget(SSTab1, 1);
    v->addWidget(buildAlarmRow());
    setCentralWidget(central);
    buildStatusBar();

    m_alarms = std::make_unique<AlarmLamps>(imgAlarmLed, imgAlarmGreen, lblstatus);
    m_progress = new MainWindowProgress(this, sbStatusBar, ProgressBar1);
    m_session = new ControllerSession(*this, target);
    connectMenus();
    new ControllerActions(*this, *m_session);
    report = new ReportMenuCommand(context(), this);
    connect(mnuReport, &QAction::triggered, report, &ReportMenuCommand::run);
    composePages();
    // Room for both pages without scrolling, never more than the screen.
    QSize size(qMax(1000, sizeHint().width()), sizeHint().height());
    if (const QScreen* s = screen())
        size = size.boundedTo(s->availableSize());
    resize(size);
}

MainWindow::~MainWindow() = default;

ProgressDisplay& MainWindow::progress()
{
    return *m_progress;
}

SequenceContext& MainWindow::context()
{
    return m_session->context();
}

// The pages meet only here: the parameters show and take the operation data
// tab's current, and that current follows the parameter tab's actuator size.
void MainWindow::composePages()
{
    SequenceContext& ctx = context();
    JournalRecorder& journal = m_session->journal();
    auto* paraController = new ParaPageController(*para, *opData->txtDenryu, ctx, journal, this);
    hooks.loadDeviceList = [paraController] { paraController->LoadDeviceListAtStart(); };
    auto* opDataController = new OpDataPageController(*opData, ctx, journal, this);
    connect(para->comboActSize, &QComboBox::currentTextChanged, opDataController,
            &OpDataPageController::actuatorSizeChanged);
}

// The version item is left out of the menus a command disables, yet comes
// back with them: it is enabled again after any command.
void MainWindow::composeLock()
{
    const LockList files = {{mnuFileOpen}, {mnuFileGetfromCt}, {mnuFileSave}, {mnuFileSaveAs}, {mnuFileLoadtoCt}, {mnuFilePrint}};
    const LockList rest = {{mnuModeChange->menuAction()}, {mnuView->menuAction()}, {mnuCont->menuAction()}};
    m_lock.compose({opData->commandLocks(), opData->homeLocks(), opData->moveLocks(), para->commandLocks(),
                    files + rest, files + LockList{{mnuShowCtversion}} + rest, SSTab1});
}

QMenu* MainWindow::menu(const char* name, int caption)
{
    QMenu* m = menuBar()->addMenu(QString::number(caption));
    m->setObjectName(QString::fromLatin1(name));
    return m;
}

QAction* MainWindow::menuItem(QMenu* m, const char* name, int caption)
{
    QAction* a = m->addAction(QString::number(caption));
    a->setObjectName(QString::fromLatin1(name));
    return a;
}

void MainWindow::buildMenus()
{
    mnuFile = menu("mnuFile", 4000);
    mnuFileOpen = menuItem(mnuFile, "mnuFileOpen", 4001);
    mnuFileSave = menuItem(mnuFile, "mnuFileSave", 4002);
    mnuFileSaveAs = menuItem(mnuFile, "mnuFileSaveAs", 4003);
    mnuFile->addSeparator();
    mnuFileGetfromCt = menuItem(mnuFile, "mnuFileGetfromCt", 4004);
    mnuFileLoadtoCt = menuItem(mnuFile, "mnuFileLoadtoCt", 4005);
    mnuFile->addSeparator();
    mnuFilePrint = menuItem(mnuFile, "mnuFilePrint", 4006);
    mnuFile->addSeparator();
    mnuFileExit = menuItem(mnuFile, "mnuFileExit", 4007);

    mnuView = menu("mnuView", 4008);
    mnuViewMoveEdit = menuItem(mnuView, "mnuViewMoveEdit", 4009);
    mnuViewPara = menuItem(mnuView, "mnuViewPara", 4010);
    mnuView->addSeparator();
    mnuViewCommLog = menuItem(mnuView, "mnuViewCommLog", 5540);
    mnuViewJournal = menuItem(mnuView, "mnuViewJournal", 5621);

    mnuCont = menu("mnuCont", 4011);
    mnuShowCtversion = menuItem(mnuCont, "mnuShowCtversion", 4012);
    mnuReport = menuItem(mnuCont, "mnuReport", 5684);

    mnuModeChange = menu("mnuModeChange", 4013);
    mnuOption = menuItem(mnuModeChange, "mnuOption", 4014);

    mnuHelp = menu("mnuHelp", 4015);
    mnuHelpContents = menuItem(mnuHelp, "mnuHelpContents", 4016);
    mnuHelp->addSeparator();
    mnuHelpAbout = menuItem(mnuHelp, "mnuHelpAbout", 4017);

    mnuFileOpen->setShortcut(QKeySequence::Open);
    mnuFileSaveAs->setShortcut(QKeySequence::Save);
    mnuFilePrint->setShortcut(QKeySequence::Print);
    mnuHelpContents->setShortcut(QKeySequence(Qt::Key_F1));
}

QWidget* MainWindow::buildAlarmRow()
{
    auto* row = new QWidget(this);
    auto* caption = new QLabel(row);
    caption->setObjectName(QStringLiteral("lblAlarm"));
    CaptionLoader::setTag(caption, 4020);

    // Both lamps share one place; one of them shows at a time.
    auto* lamps = new QWidget(row);
    imgAlarmLed = new Lamp(Lamp::Color::Red, lamps);
    imgAlarmLed->setObjectName(QStringLiteral("imgAlarmLed"));
    imgAlarmGreen = new Lamp(Lamp::Color::Green, lamps);
    imgAlarmGreen->setObjectName(QStringLiteral("imgAlarmGreen"));
    for (Lamp* lamp : {imgAlarmLed, imgAlarmGreen}) {
        lamp->setOn(true);
        lamp->setToolTip(QString::number(4021));
    }
    imgAlarmLed->hide();
    auto* stack = new QGridLayout(lamps);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->addWidget(imgAlarmLed, 0, 0);
    stack->addWidget(imgAlarmGreen, 0, 0);

    lblstatus = new QLabel(row);
    lblstatus->setObjectName(QStringLiteral("lblstatus"));
    lblstatus->setFrameShape(QFrame::StyledPanel);
    lblstatus->setFrameShadow(QFrame::Sunken);
    lblstatus->setMinimumHeight(lblstatus->fontMetrics().height() * 3 / 2);
    lblstatus->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* h = new QHBoxLayout(row);
    h->setContentsMargins(0, 0, 0, 0);
    h->addWidget(caption);
    h->addWidget(lamps);
    h->addWidget(lblstatus, 1);
    return row;
}

void MainWindow::buildStatusBar()
{
    sbStatusBar = new QStatusBar(this);
    sbStatusBar->setObjectName(QStringLiteral("sbStatusBar"));
    setStatusBar(sbStatusBar);
    lblPort = new QLabel(sbStatusBar);
    lblPort->setObjectName(QStringLiteral("lblPort"));
    sbStatusBar->addWidget(lblPort);
    // Not part of the status bar's layout: it is laid over the whole bar.
    ProgressBar1 = new QProgressBar(sbStatusBar);
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    ProgressBar1->setTextVisible(false);
}

void MainWindow::connectMenus()
{
    const auto clicks = [this](QAction* item, QPushButton* button) {
        connect(item, &QAction::triggered, button, &QPushButton::click);
    };
    clicks(mnuFileOpen, opData->cmdFileOpen);
    clicks(mnuFileSave, opData->cmdSaveFile);
    clicks(mnuFileSaveAs, opData->cmdSaveFile);
    clicks(mnuFileGetfromCt, opData->cmdGetfromCt);
    clicks(mnuFileLoadtoCt, opData->cmdLoadtoCt);
    clicks(mnuFilePrint, opData->cmdDataPrint);
    connect(mnuViewMoveEdit, &QAction::triggered, this, [this] { SSTab1->setCurrentWidget(opData); });
    connect(mnuViewPara, &QAction::triggered, this, [this] { SSTab1->setCurrentWidget(para); });
    connect(mnuViewCommLog, &QAction::triggered, this, &MainWindow::mnuViewCommLog_Click);
    connect(mnuViewJournal, &QAction::triggered, this, &MainWindow::mnuViewJournal_Click);
    connect(mnuFileExit, &QAction::triggered, this, &MainWindow::mnuFileExit_Click);
    connect(mnuHelpContents, &QAction::triggered, this, &MainWindow::mnuHelpContents_Click);
    connect(mnuHelpAbout, &QAction::triggered, this, &MainWindow::mnuHelpAbout_Click);
}

void MainWindow::Form_Load()
{
    const ProgramState& s = ProgramState::instance();
    placeFromSettings();
    if (s.gLanguage == 2)
        mnuHelpContents->setEnabled(false);
    else if (s.gLanguage == 1)
        mnuHelpContents->setEnabled(true);
    CaptionLoader::apply(this);
    if (hooks.loadErrorList)
        hooks.loadErrorList();
    fillChoiceLists();
    para->comboActSize->setCurrentIndex(-1);
    if (hooks.loadDeviceList)
        hooks.loadDeviceList();
    selectFirstChoices();
    refreshPortLabel();
}

// The stored position is only read; the program never writes it.
void MainWindow::placeFromSettings()
{
    const float left = Settings::read(Setting::MainLeft);
    const float top = Settings::read(Setting::MainTop);
    move(Twips::toPixels(left), Twips::toPixels(top));
}

void MainWindow::fillChoiceLists()
{
    for (int speed = 30; speed >= 1; --speed)
        opData->comboVEL->addItem(QString::number(speed), 30 - speed);
    for (int acc = 3; acc >= 1; --acc)
        opData->comboACC->addItem(QString::number(acc), 3 - acc);

    addItems(para->comboAxisAutoDrv, {641, 642});
    addItems(para->comboPgFunc, {652, 653});
    addItems(para->comboHomeOut, {657, 658, 659, 660});
    addItems(para->comboAutoHome, {663, 664});
    para->SSTabPrm->setTabText(0, Msg(610));
    para->SSTabPrm->setTabText(1, Msg(611));
    SSTab1->setTabText(0, Msg(938));
    SSTab1->setTabText(1, Msg(35));
}

void MainWindow::selectFirstChoices()
{
    opData->comboVEL->setCurrentIndex(opData->comboVEL->findText(QStringLiteral("1")));
    opData->comboACC->setCurrentIndex(opData->comboACC->findText(QStringLiteral("1")));
}

void MainWindow::refreshPortLabel()
{
    QString target;
    const QString device = m_session->link().portName();
    if (m_linkTarget.simulator)
        target = Msg(4023);
    else if (!device.isEmpty())
        target = device;
    else
        target = Msg(4024).arg(ProgramState::instance().gPortNo);
    lblPort->setText(Msg(4022).arg(target));
    // Nobody should mistake the virtual controller for a real one.
    setWindowTitle(m_linkTarget.simulator ? Msg(4150).arg(QStringLiteral("KTR-W5"))
                                          : QStringLiteral("KTR-W5"));
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    // The I/O monitor waits without gCommBusy: any wait in progress counts.
    if (ProgramState::instance().gCommBusy || Waiter::waiting()) {
        // Waits end at once from now on; the sequence unwinds and clears
        // gCommBusy, then the window closes.
        Waiter::abortAll();
        event->ignore();
        QTimer::singleShot(CloseRetryMs, this, &QWidget::close);
        return;
    }
    Form_Unload();
    event->accept();
}

void MainWindow::Form_Unload()
{
    ProgramState& s = ProgramState::instance();
    Settings::write(Setting::PortNo, s.gPortNo);
    if (s.gLanguageChangePending) {
        s.gLanguage = s.gLanguage == 1 ? 2 : 1;
        s.gLanguageChangePending = false;
    }
    Settings::write(Setting::Language, s.gLanguage);
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w != this && w->isVisible())
            w->close();
}

void MainWindow::mnuFileExit_Click()
{
    if (ProgramState::instance().gCommBusy)
        return;
    if (hooks.closePort)
        hooks.closePort();
    close();
}

void MainWindow::mnuHelpContents_Click()
{
    help.ShowHelpContents(prompter(), Msg(414));
}

void MainWindow::mnuHelpAbout_Click()
{
    AboutDialog about(prompter(), this);
    about.Form_Load();
    about.move(frameGeometry().topLeft() + QPoint(Twips::toPixels(500), Twips::toPixels(500)));
    about.exec();
}

// One log at a time: asking again brings the open one to the front.
void MainWindow::mnuViewCommLog_Click()
{
    if (!m_commLog) {
        m_commLog = new CommLogWindow(m_session->link(), m_session->errors(), context().prompter,
                                      context().files, this);
        m_commLog->placeBeside(*this);
    }
    m_commLog->show();
    m_commLog->raise();
    m_commLog->activateWindow();
}

// One window for the run, read again each time it is asked for, so that
// it shows what was entered since.
void MainWindow::mnuViewJournal_Click()
{
    if (!m_journal)
        m_journal = new JournalWindow(Journal::defaultDirectory(), this);
    else
        m_journal->reload();
    m_journal->show();
    m_journal->raise();
    m_journal->activateWindow();
}
