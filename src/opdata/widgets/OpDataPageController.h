#pragma once

#include "opdata/Homing.h"
#include "opdata/IoMonitorView.h"
#include "opdata/MoveTestState.h"
#include "opdata/OpDataState.h"
#include "opdata/OpDataView.h"
#include "opdata/widgets/OpDataPrintCommand.h"

#include <QObject>

class IoMonitor;
class JournalRecorder;
class OutputJournal;
class Lamp;
class MoveRun;
class OpDataPage;
struct SequenceContext;

// The behaviour of the operation data tab: its entry rules, the data
// commands (Open, Save As, Read from C/T, Write to C/T, the two prints), the
// move test (HOME, MOVE, STOP and the step/continuous/dwell choices), the
// input/output monitor with its lamps, and the drive current that follows
// the actuator size chosen on the parameter tab. The sequences see the tab
// through OpDataView and IoMonitorView.
class OpDataPageController : public QObject, public OpDataView, public IoMonitorView {
    Q_OBJECT
public:
    // window: the main window, parent of this controller and of the
    // dialogs the tab opens. journal: where writes, moves and switched
    // outputs are entered.
    OpDataPageController(OpDataPage& page, SequenceContext& ctx, JournalRecorder& journal, QWidget* window);

    // Where the printouts go: the system print dialog, unless a test sends
    // them elsewhere.
    void usePrinter(OpDataPrintCommand::PrintFunction print) { m_print = std::move(print); }

    MoveRun& moveRun() { return *m_moveRun; }
    IoMonitor& monitor() { return *m_monitor; }

    OpDataScreen screen() const override;
    void showScreen(const OpDataScreen& screen) override;
    void setSpeedChoiceEnabled(bool enabled) override;
    void setHomeEnabled(bool enabled) override;
    void setResetEnabled(bool enabled) override;
    void setStopEnabled(bool enabled) override;

    void setLamp(IoLamp lamp, bool on) override;
    void setMonitorCaption(const QString& caption) override;
    void setOtherCommandsEnabled(bool enabled) override;

    void cmdFileOpen_Click();
    void cmdSaveFile_Click();
    void cmdGetfromCt_Click();
    void cmdLoadtoCt_Click();
    void cmdDataPrint_Click();
    void cmdFilePrint_Click();
    void cmdHOME_Click();
    void cmdMOVE_Click();
    void cmdSTOP_Click();
    void cmdIoMonitor_Click();
    // The actuator size chosen on the parameter tab.
    void actuatorSizeChanged(const QString& size);

private:
    void connectButtons();
    void connectMoveMode();
    void moveModeChanged();
    void outputLampClicked(Lamp* lamp);
    SequenceContext& context() { return m_ctx; }

    QWidget* m_window;
    OpDataPage& m_page;
    SequenceContext& m_ctx;
    JournalRecorder& m_journal;
    OpDataState m_state;
    MoveTestState m_moveState;
    Homing m_homing;
    MoveRun* m_moveRun;
    IoMonitor* m_monitor;
    OutputJournal* m_outputJournal;
    OpDataPrintCommand::PrintFunction m_print;
};
