#include "opdata/widgets/OpDataPageController.h"

#include "common/widgets/Lamp.h"
#include "link/SequenceContext.h"
#include "opdata/IoMonitor.h"
#include "opdata/MoveRun.h"
#include "opdata/OpDataFileCommands.h"
#include "opdata/ReadFromCt.h"
#include "opdata/WriteToCt.h"
#include "opdata/widgets/OpDataEntryFields.h"
#include "opdata/widgets/OpDataPage.h"
#include "params/ActuatorSize.h"
#include "print/widgets/PrinterOutput.h"
#include "record/JournalAction.h"
#include "record/JournalWritten.h"
#include "record/MoveJournal.h"
#include "record/OutputJournal.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>

namespace {

const QString SpecialSize = QStringLiteral("SP");

void selectText(QComboBox* list, const QString& text)
{
    list->setCurrentIndex(list->findText(text));
}

} // namespace

OpDataPageController::OpDataPageController(OpDataPage& page, SequenceContext& ctx, JournalRecorder& journal,
                                           QWidget* window)
    : QObject(window)
    , m_window(window)
    , m_page(page)
    , m_ctx(ctx)
    , m_journal(journal)
    , m_homing(ctx, *this)
    , m_moveRun(new MoveRun(ctx, m_moveState, *this, this))
    , m_monitor(new IoMonitor(ctx, *this, this))
    , m_outputJournal(new OutputJournal(journal, *m_monitor, this))
    , m_print([&ctx, window](Printout& printout) {
        return PrinterOutput(ctx.files, ctx.prompter, window).print(printout);
    })
{
    setObjectName(QStringLiteral("OpDataPageController"));
    new OpDataEntryFields(m_page, m_state, this);
    connectButtons();
    connectMoveMode();
    connect(&m_page, &OpDataPage::outputLampClicked, this, &OpDataPageController::outputLampClicked);
}

void OpDataPageController::connectButtons()
{
    const auto clicked = [this](QPushButton* button, void (OpDataPageController::*handler)()) {
        connect(button, &QPushButton::clicked, this, handler);
    };
    clicked(m_page.cmdFileOpen, &OpDataPageController::cmdFileOpen_Click);
    clicked(m_page.cmdSaveFile, &OpDataPageController::cmdSaveFile_Click);
    clicked(m_page.cmdGetfromCt, &OpDataPageController::cmdGetfromCt_Click);
    clicked(m_page.cmdLoadtoCt, &OpDataPageController::cmdLoadtoCt_Click);
    clicked(m_page.cmdDataPrint, &OpDataPageController::cmdDataPrint_Click);
    clicked(m_page.cmdFilePrint, &OpDataPageController::cmdFilePrint_Click);
    clicked(m_page.cmdHOME, &OpDataPageController::cmdHOME_Click);
    clicked(m_page.cmdMOVE, &OpDataPageController::cmdMOVE_Click);
    clicked(m_page.cmdSTOP, &OpDataPageController::cmdSTOP_Click);
    clicked(m_page.cmdIoMonitor, &OpDataPageController::cmdIoMonitor_Click);
}

// The dwell belongs to continuous runs, and its time to a ticked dwell.
void OpDataPageController::connectMoveMode()
{
    connect(m_page.optCNT, &QRadioButton::toggled, this, &OpDataPageController::moveModeChanged);
    connect(m_page.chkTimerUse, &QCheckBox::toggled, this, &OpDataPageController::moveModeChanged);
}

void OpDataPageController::moveModeChanged()
{
    const bool continuous = m_page.optCNT->isChecked();
    m_page.chkTimerUse->setEnabled(continuous);
    m_page.txtTimer->setEnabled(continuous && m_page.chkTimerUse->isChecked());
}

OpDataScreen OpDataPageController::screen() const
{
    OpDataScreen s;
    s.comboVEL = m_page.comboVEL->currentText();
    s.comboACC = m_page.comboACC->currentText();
    s.txtVEL = m_page.txtVEL->text();
    s.txtACC = m_page.txtACC->text();
    s.txtDIVISION = m_page.txtDIVISION->text();
    s.txtGEAR = m_page.txtGEAR->text();
    s.optCW = m_page.optCW->isChecked();
    s.optCNT = m_page.optCNT->isChecked();
    s.chkTimerUse = m_page.chkTimerUse->isChecked();
    s.txtTimer = m_page.txtTimer->text();
    s.txtDenryu = m_page.txtDenryu->text();
    return s;
}

void OpDataPageController::showScreen(const OpDataScreen& s)
{
    selectText(m_page.comboVEL, s.comboVEL);
    selectText(m_page.comboACC, s.comboACC);
    m_page.txtVEL->setText(s.txtVEL);
    m_page.txtACC->setText(s.txtACC);
    m_page.txtDIVISION->setText(s.txtDIVISION);
    {
        const QScopedValueRollback suppress(m_state.mSuppressVelCalc, true);
        m_page.txtGEAR->setText(s.txtGEAR);
    }
    (s.optCW ? m_page.optCW : m_page.optCCW)->setChecked(true);
    (s.optCNT ? m_page.optCNT : m_page.optSTEP)->setChecked(true);
    m_page.chkTimerUse->setChecked(s.chkTimerUse);
    m_page.txtTimer->setText(s.txtTimer);
    m_page.txtDenryu->setText(s.txtDenryu);
}

void OpDataPageController::setSpeedChoiceEnabled(bool enabled)
{
    m_page.comboVEL->setEnabled(enabled);
}

void OpDataPageController::setHomeEnabled(bool enabled)
{
    m_page.cmdHOME->setEnabled(enabled);
}

void OpDataPageController::setResetEnabled(bool enabled)
{
    m_page.cmdRESET->setEnabled(enabled);
}

void OpDataPageController::setStopEnabled(bool enabled)
{
    m_page.cmdSTOP->setEnabled(enabled);
}

void OpDataPageController::setLamp(IoLamp lamp, bool on)
{
    if (auto* widget = m_page.findChild<Lamp*>(IoBits::objectName(lamp)))
        widget->setOn(on);
}

void OpDataPageController::setMonitorCaption(const QString& caption)
{
    m_page.cmdIoMonitor->setText(caption);
}

void OpDataPageController::setOtherCommandsEnabled(bool enabled)
{
    for (QWidget* w : std::initializer_list<QWidget*>{
             m_page.cmdFileOpen, m_page.cmdSaveFile, m_page.cmdLoadtoCt, m_page.cmdGetfromCt,
             m_page.cmdDataPrint, m_page.cmdFilePrint, m_page.cmdMOVE, m_page.cmdHOME,
             m_page.Frame1, m_page.Frame2, m_page.cmdRESET})
        w->setEnabled(enabled);
}

void OpDataPageController::cmdFileOpen_Click()
{
    SequenceContext& ctx = context();
    OpDataFileCommands(ctx.prompter, ctx.lock, ctx.progress, ctx.files, m_state, *this).Open();
}

void OpDataPageController::cmdSaveFile_Click()
{
    SequenceContext& ctx = context();
    OpDataFileCommands(ctx.prompter, ctx.lock, ctx.progress, ctx.files, m_state, *this).SaveAs();
}

void OpDataPageController::cmdGetfromCt_Click()
{
    ReadFromCt(context(), m_state, *this).run();
}

void OpDataPageController::cmdLoadtoCt_Click()
{
    JournalAction entry(m_journal, JournalEntry::OpDataWrite);
    const int result = WriteToCt(context(), m_state, *this).run();
    entry.setWritten(JournalWritten::operationData(m_state.PosiData));
    entry.finish(result == 0);
}

void OpDataPageController::cmdDataPrint_Click()
{
    OpDataPrintCommand(context(), *this, m_state, m_window, m_print).run(false);
}

void OpDataPageController::cmdFilePrint_Click()
{
    OpDataPrintCommand(context(), *this, m_state, m_window, m_print).run(true);
}

void OpDataPageController::cmdHOME_Click()
{
    JournalAction entry(m_journal, JournalEntry::Home);
    entry.finish(m_homing.run() == 0);
}

void OpDataPageController::cmdMOVE_Click()
{
    MoveJournal journal(m_journal, *m_moveRun);
    journal.runEnded(m_moveRun->run() == MoveRun::Result::Done);
}

// Each ignores a STOP while it does not run.
void OpDataPageController::cmdSTOP_Click()
{
    m_moveRun->stop();
    m_homing.stop();
}

// A switch clicked but not yet written when the monitor stops is not written.
void OpDataPageController::cmdIoMonitor_Click()
{
    m_monitor->toggle();
    if (m_monitor->mIoStopRequest)
        m_outputJournal->monitorStopped();
}

void OpDataPageController::outputLampClicked(Lamp* lamp)
{
    for (IoLamp output : AllIoLamps)
        if (IoBits::objectName(output) == lamp->objectName()) {
            m_monitor->outputClicked(output);
            m_outputJournal->clicked(output);
        }
}

// A size with a fixed current shows it and locks the field; the special
// actuator's current is the user's to enter.
void OpDataPageController::actuatorSizeChanged(const QString& size)
{
    const QString current = DenryuForSize(size);
    if (!current.isNull()) {
        m_page.txtDenryu->setText(current);
        m_page.txtDenryu->setEnabled(false);
    } else if (size == SpecialSize) {
        m_page.txtDenryu->setEnabled(true);
    }
}
