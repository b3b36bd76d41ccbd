#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "common/Waiter.h"
#include "shell/FirstPaintLog.h"
#include "shell/HelpModule.h"
#include "shell/LanguageResources.h"
#include "shell/LanguageStartup.h"
#include "shell/StartupOptions.h"
#include "shell/StartupSettings.h"
#include "shell/widgets/F1Filter.h"
#include "shell/widgets/MainWindow.h"
#include "shell/widgets/Screenshots.h"
#include "shell/widgets/SplashWindow.h"

#include <QApplication>
#include <QLabel>

namespace {

void showSplash()
{
    ProgramState& s = ProgramState::instance();
    SplashWindow splash;
    splash.Form_Load();
    splash.show();
    splash.repaint();
    splash.startTimer();
    Waiter::waitUntil([&s] { return s.gSplashDone; });
    s.gSplashDone = false;
    splash.close();
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("KTR-W5"));
    const StartupOptions options = StartupOptions::parse(QApplication::arguments());
    F1Filter f1;
    app.installEventFilter(&f1);
    ProgramState& s = ProgramState::instance();

    showSplash();
    s.gLanguageChangePending = false;
    LanguageStartup::run(s);
    LanguageResources::install(app, s.gMsgBase);
    HelpModule help;
    help.SetHelpFilePath();
    StartupSettings::load(s);

    MainWindow window(options);
    window.help = help;
    window.Form_Load();
    new FirstPaintLog(window);
    window.show();
    window.mParaDispRefresh = true;
    window.mPosiDispRefresh = true;
    window.lblstatus->setText(QString());

    if (!options.screenshotDir.isEmpty())
        return Screenshots::take(window, options.screenshotDir);
    return app.exec();
}
