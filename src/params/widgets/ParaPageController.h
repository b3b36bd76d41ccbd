#pragma once

#include "device/DeviceList.h"
#include "params/ParaData.h"
#include "params/widgets/ParaScreenView.h"
#include "print/ParaPrintCommands.h"

#include <QObject>

#include <functional>

class JournalRecorder;
class ParaPage;
class QLineEdit;
class QWidget;
struct SequenceContext;

// The behaviour of the parameter tab: the entry rules of its boxes, the
// parameter-edited flag, its nine command buttons, the unlock box of the
// SPECIAL group, and the actuator size list filled at Load. Every handler
// captures the screen, lets the parameter sequence work on it, and shows
// the result.
class ParaPageController : public QObject {
    Q_OBJECT
public:
    // current: the drive current box of the operation data tab, which the
    // parameters show and take. window: the main window, parent of this
    // controller and of the dialogs the tab opens. journal: where writes are
    // entered, and what knows the parameters the controller holds.
    ParaPageController(ParaPage& page, QLineEdit& current, SequenceContext& ctx, JournalRecorder& journal,
                       QWidget* window);

    const ParaData& data() const { return m_data; }
    // Where the page's printouts go: the system print dialog, unless a test
    // sends them elsewhere.
    void usePrinter(ParaPrintCommands::PrintFunction print) { m_print = std::move(print); }

    void LoadDeviceListAtStart();

    void cmdParaRead_Click();
    void cmdParaWrite_Click();
    void cmdConpareCT_Click();
    void cmdConpareFile_Click();
    void cmdSaveParaFile_Click();
    void cmdReadParaFile_Click();
    void cmdIniPrm_Click();
    void chkTokuParaChange_Click();
    void cmdParaPrint_Click();
    void cmdParaFilePrint_Click();

private:
    void connectButtons();
    void watchEdits();
    void markEdited() { m_data.paraEdited = true; }
    SequenceContext& context() { return m_ctx; }
    ParaPrintCommands printCommands();
    // Capture the screen, run the step, show the screen.
    void onScreen(const std::function<void(ParaScreen&)>& step);
    // The controller's parameters as the image read holds them.
    void rememberImage();

    QWidget* m_window;
    ParaPage& m_page;
    SequenceContext& m_ctx;
    JournalRecorder& m_journal;
    ParaScreenView m_view;
    ParaData m_data;
    DeviceList m_devices;
    ParaPrintCommands::PrintFunction m_print;
};
