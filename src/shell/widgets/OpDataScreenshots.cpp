#include "shell/widgets/OpDataScreenshots.h"

#include "common/Waiter.h"
#include "common/widgets/Lamp.h"
#include "opdata/IoMonitor.h"
#include "opdata/MoveRun.h"
#include "opdata/widgets/OpDataPage.h"
#include "opdata/widgets/OpDataPageController.h"
#include "shell/widgets/ControllerSession.h"
#include "shell/widgets/MainWindow.h"
#include "shell/widgets/Screenshots.h"
#include "sim/SimController.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>

namespace {

constexpr int LampWaitMs = 3000;
constexpr int LampPollMs = 50;
constexpr int ShotAtMove = 3;

void waitFor(Lamp* lamp, bool on)
{
    for (int waited = 0; lamp->isOn() != on && waited < LampWaitMs; waited += LampPollMs)
        Waiter::sleep(LampPollMs);
}

// Data as a user would enter it: speed choice 10 at gear 3, 8 divisions.
void enterData(OpDataPage& page)
{
    page.comboVEL->setCurrentIndex(page.comboVEL->findText(QStringLiteral("10")));
    page.txtGEAR->setText(QStringLiteral("3"));
    page.txtDIVISION->setText(QStringLiteral("8"));
    page.optCNT->click();
    page.chkTimerUse->click();
    page.txtTimer->setText(QStringLiteral("5"));
}

bool shootRun(MainWindow& window, OpDataPageController& controller, const QString& dir)
{
    OpDataPage& page = *window.opData;
    bool ok = false;
    const QMetaObject::Connection shot = QObject::connect(
        &controller.moveRun(), &MoveRun::moveFinished, &page, [&](int moveNo) {
            if (moveNo != ShotAtMove)
                return;
            ok = Screenshots::save(&window, dir, QStringLiteral("opdata-run"));
            page.cmdSTOP->click();
        });
    page.cmdMOVE->click();
    QObject::disconnect(shot);
    return ok;
}

bool shootMonitor(MainWindow& window, OpDataPageController& controller, const QString& dir)
{
    OpDataPage& page = *window.opData;
    window.session().simulator()->setInputs(true, false);
    page.cmdIoMonitor->click();
    waitFor(page.imgOutputRdy, true);
    controller.monitor().outputClicked(IoLamp::OutputOut1);
    waitFor(page.imgOutputOut1, true);
    const bool ok = Screenshots::save(&window, dir, QStringLiteral("opdata-monitor"));
    page.cmdIoMonitor->click();
    waitFor(page.imgOutputRdy, false);
    window.session().simulator()->setInputs(false, false);
    return ok;
}

} // namespace

bool OpDataScreenshots::take(MainWindow& window, const QString& dir)
{
    auto* controller = window.findChild<OpDataPageController*>();
    if (!window.session().simulator() || !controller)
        return true;
    window.SSTab1->setCurrentWidget(window.opData);
    enterData(*window.opData);
    const bool ran = shootRun(window, *controller, dir);
    return shootMonitor(window, *controller, dir) && ran;
}
