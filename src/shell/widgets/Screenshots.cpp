#include "shell/widgets/Screenshots.h"

#include "common/MessageTable.h"
#include "common/Waiter.h"
#include "shell/widgets/AboutDialog.h"
#include "shell/widgets/ControllerScreenshots.h"
#include "shell/widgets/MainWindow.h"
#include "shell/widgets/MainWindowProgress.h"
#include "shell/widgets/OpDataScreenshots.h"
#include "shell/widgets/SplashWindow.h"
#include "shell/widgets/TransferWindow.h"

#include <QDir>
#include <QTabWidget>

namespace {

constexpr int SettleMs = 150;

} // namespace

bool Screenshots::save(QWidget* w, const QString& dir, const QString& name)
{
    Waiter::sleep(SettleMs);
    return w->grab().save(QDir(dir).filePath(name + QStringLiteral(".png")));
}

int Screenshots::take(MainWindow& window, const QString& dir)
{
    QDir().mkpath(dir);
    bool ok = true;
    for (int i = 0; i < window.SSTab1->count(); ++i) {
        window.SSTab1->setCurrentIndex(i);
        ok &= save(&window, dir, QStringLiteral("main-tab%1").arg(i + 1));
    }

    window.SSTab1->setCurrentIndex(0);
    window.alarms().showAlarm(true);
    window.alarms().setStatusText(Msg(32));
    window.progress().Disp_ProgressBar(4);
    window.progress().setProgress(2);
    ok &= save(&window, dir, QStringLiteral("main-busy"));
    window.progress().showTransfer(Msg(383), 7);
    window.progress().setTransferProgress(3);
    auto& progress = static_cast<MainWindowProgress&>(window.progress());
    ok &= save(progress.transferWindow(), dir, QStringLiteral("transfer"));
    window.progress().hideTransfer();
    window.progress().Hide_ProgressBar();
    window.alarms().showAlarm(false);
    window.alarms().setStatusText({});
    ok &= ControllerScreenshots::take(window, dir);
    ok &= OpDataScreenshots::take(window, dir);

    AboutDialog about(window.prompter(), &window);
    about.Form_Load();
    about.show();
    ok &= save(&about, dir, QStringLiteral("about"));
    about.hide();

    SplashWindow splash;
    splash.Form_Load();
    splash.show();
    ok &= save(&splash, dir, QStringLiteral("splash"));
    return ok ? 0 : 1;
}
