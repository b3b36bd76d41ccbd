#include "common/LanguageStartup.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "common/StartupSettings.h"
#include "common/VersionText.h"
#include "common/Waiter.h"
#include "common/widgets/F1Filter.h"
#include "shell/FirstPaintLog.h"
#include "shell/HelpModule.h"
#include "shell/LanguageResources.h"
#include "shell/StartupOptions.h"
#include "shell/widgets/MainWindow.h"
#include "shell/widgets/Screenshots.h"
#include "shell/widgets/SplashWindow.h"

#include <QApplication>
#include <QLabel>
#include <QTextStream>

namespace {

constexpr int RunHelpHint = 5413;
constexpr int VersionLine = 5414;
constexpr int ExitUsage = 2;

// --help and --version only print, so they need no display: they work from
// a terminal or a script on a machine without one.
void offscreenWhenOnlyPrinting(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        const QByteArray arg(argv[i]);
        if ((arg == "--help" || arg == "--version") && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
    }
}

// Answers the command line that asks for no window: the help, the version
// or a usage error, in the language the window would use. Returns the exit
// status, or -1 when the window is to be shown.
int answerWithoutWindow(const StartupOptions& options)
{
    if (!options.help && !options.version && options.errorMessage == 0)
        return -1;
    LanguageStartup::run(ProgramState::instance());
    if (options.errorMessage != 0) {
        QTextStream(stderr) << Msg(options.errorMessage).arg(options.errorArg) << '\n'
                            << Msg(RunHelpHint) << '\n';
        return ExitUsage;
    }
    QTextStream out(stdout);
    if (options.help)
        out << StartupOptions::usage() << '\n';
    else
        out << Msg(VersionLine).arg(ProgramVersionText()) << '\n';
    return 0;
}

void showSplash()
{
    SplashWindow splash;
    splash.Form_Load();
    splash.show();
    splash.repaint();
    splash.startTimer();
    Waiter::waitUntil([&splash] { return splash.done(); });
    splash.close();
}

} // namespace

int main(int argc, char** argv)
{
    offscreenWhenOnlyPrinting(argc, argv);
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("KTR-W5"));
    const StartupOptions options = StartupOptions::parse(QApplication::arguments());
    if (const int status = answerWithoutWindow(options); status >= 0)
        return status;
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
