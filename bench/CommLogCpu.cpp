// What the communication log costs while the I/O monitor polls: the main
// window talks to a paced virtual controller on a pseudo-terminal (so the
// controller's own work is not counted here) and the processor time of this
// process is read over one span with the log closed and one with it open.
// A poll interval of 1 ms polls as fast as the line carries the exchanges.

#include "common/DataFiles.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "link/CommLog.h"
#include "link/Link.h"
#include "link/Prompter.h"
#include "opdata/IoMonitor.h"
#include "opdata/widgets/OpDataPage.h"
#include "opdata/widgets/OpDataPageController.h"
#include "shell/widgets/CommLogWindow.h"
#include "shell/widgets/ControllerSession.h"
#include "shell/widgets/MainWindow.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QPushButton>
#include <QTextStream>
#include <QTimer>

#include <sys/resource.h>

namespace {

constexpr int WarmUpMs = 2000;

// Nothing may stop the run for an answer; what would have been asked is
// printed instead.
class PrintingPrompter : public Prompter {
public:
    Answer ask(const QString& text, Buttons, Icon, const QString&) override
    {
        QTextStream(stderr) << "message: " << text << '\n';
        return Answer::Ok;
    }
};

double cpuSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& t) { return double(t.tv_sec) + double(t.tv_usec) / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

// One measured span: processor time, wall time and lines on the wire.
class Span {
public:
    explicit Span(const int& lines)
        : m_lines(lines)
        , m_linesBefore(lines)
        , m_cpuBefore(cpuSeconds())
    {
        m_wall.start();
    }
    QString row(const QString& name) const
    {
        const double wall = double(m_wall.nsecsElapsed()) / 1e9;
        const double cpu = cpuSeconds() - m_cpuBefore;
        return QStringLiteral("%1 %2 %3 %4 %5\n")
            .arg(name, -18)
            .arg(wall, 7, 'f', 1)
            .arg(cpu, 7, 'f', 3)
            .arg(100 * cpu / wall, 6, 'f', 2)
            .arg(double(m_lines - m_linesBefore) / wall, 7, 'f', 1);
    }

private:
    const int& m_lines;
    int m_linesBefore;
    double m_cpuBefore;
    QElapsedTimer m_wall;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const QStringList args = QApplication::arguments();
    if (args.size() < 2) {
        QTextStream(stderr) << "usage: bench_commlog_cpu DEVICE [seconds per span] [poll interval ms]\n";
        return 2;
    }
    const int spanMs = (args.size() > 2 ? args[2].toInt() : 20) * 1000;
    const int pollMs = args.size() > 3 ? args[3].toInt() : IoMonitor::PollIntervalMs;
    ProgramState& state = ProgramState::instance();
    state.gLanguage = 2;
    state.gMsgBase = MessageTable::EnglishBase;
    DataFiles::setProgramFolder(QStringLiteral(KTR_BENCH_DATA));

    StartupOptions target;
    target.portName = args[1];
    MainWindow window(target);
    PrintingPrompter prompter;
    window.usePrompter(prompter);
    window.Form_Load();
    window.show();
    int lines = 0;
    QObject::connect(&window.session().link(), &Link::frameSent, [&lines] { ++lines; });
    QObject::connect(&window.session().link(), &Link::lineReceived, [&lines] { ++lines; });

    QTextStream out(stdout);
    std::unique_ptr<Span> span;
    QPushButton* monitor = window.opData->cmdIoMonitor;
    QTimer::singleShot(0, monitor, [&] {
        monitor->click();
        window.findChild<OpDataPageController*>()->monitor().timerInputOutput1.setInterval(pollMs);
    });
    QTimer::singleShot(WarmUpMs, [&] { span = std::make_unique<Span>(lines); });
    QTimer::singleShot(WarmUpMs + spanMs, [&] {
        out << span->row(QStringLiteral("closed, %1 ms").arg(pollMs));
        // The View menu is locked while the monitor runs; its item still
        // answers a trigger, which opens the log as a click would.
        window.findChild<QAction*>(QStringLiteral("mnuViewCommLog"))->trigger();
    });
    QTimer::singleShot(2 * WarmUpMs + spanMs, [&] { span = std::make_unique<Span>(lines); });
    QTimer::singleShot(2 * WarmUpMs + 2 * spanMs, [&] {
        out << span->row(QStringLiteral("open, %1 ms").arg(pollMs));
        const auto* log = window.findChild<CommLogWindow*>();
        out << QStringLiteral("rows in the log: %1\n").arg(log ? log->log->rowCount() : -1);
        out.flush();
        monitor->click();
        QTimer::singleShot(1000, &app, &QApplication::quit);
    });
    return app.exec();
}
