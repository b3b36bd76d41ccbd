#include "shell/widgets/ControllerScreenshots.h"

#include "common/Waiter.h"
#include "common/widgets/Lamp.h"
#include "opdata/widgets/OpDataPage.h"
#include "shell/widgets/ControllerSession.h"
#include "shell/widgets/MainWindow.h"
#include "shell/widgets/OptionsDialog.h"
#include "shell/widgets/Screenshots.h"
#include "sim/SimController.h"

#include <QAction>
#include <QApplication>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>

#include <functional>

namespace {

constexpr int AlarmWaitMs = 2000;
constexpr int LookoutMs = 50;

// Runs shoot on the modal window that command opens (once its exchange
// with the controller is over), then closes it.
bool whileModal(QAction* command, const std::function<bool(QWidget*)>& shoot)
{
    bool ok = false;
    QTimer lookout;
    lookout.setInterval(LookoutMs);
    QObject::connect(&lookout, &QTimer::timeout, command, [&] {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal)
            return;
        lookout.stop();
        ok = shoot(modal);
        modal->close();
    });
    lookout.start();
    command->trigger();
    return ok;
}

} // namespace

bool ControllerScreenshots::take(MainWindow& window, const QString& dir)
{
    SimController* sim = window.session().simulator();
    if (!sim)
        return true;
    bool ok = whileModal(window.mnuShowCtversion,
                         [&](QWidget* box) { return Screenshots::save(box, dir, QStringLiteral("version")); });

    sim->raiseAlarm("301");
    Waiter::waitUntil([&] { return window.imgAlarmLed->isVisible(); }, AlarmWaitMs);
    ok &= Screenshots::save(&window, dir, QStringLiteral("alarm"));
    window.opData->cmdRESET->click();

    ok &= whileModal(window.mnuOption, [&](QWidget* modal) {
        auto* options = qobject_cast<OptionsDialog*>(modal);
        bool saved = options != nullptr;
        for (int i = 0; saved && i < options->SSTabOption->count(); ++i) {
            options->SSTabOption->setCurrentIndex(i);
            saved &= Screenshots::save(options, dir, QStringLiteral("options-tab%1").arg(i + 1));
        }
        return saved;
    });
    return ok;
}
