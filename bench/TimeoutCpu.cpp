// How much processor time a transaction costs while it waits for a reply
// that never comes: the program must stay idle during the wait, not spin.

#include "common/ProgramState.h"
#include "common/SerialPort.h"
#include "link/AlarmDisplay.h"
#include "link/ErrorList.h"
#include "link/Link.h"
#include "link/Prompter.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTextStream>

#include <sys/resource.h>

namespace {

// A controller that is switched off: the port opens, nothing ever answers.
class SilentPort : public SerialPort {
public:
    bool open(const QString&, const QString&) override { return m_open = true; }
    void close() override { m_open = false; }
    bool isOpen() const override { return m_open; }
    qint64 write(const QByteArray& data) override { return data.size(); }
    qint64 bytesAvailable() const override { return 0; }
    QByteArray readAll() override { return {}; }
    void discardInput() override {}
    QString errorString() const override { return {}; }

private:
    bool m_open = false;
};

class QuietPrompter : public Prompter {
public:
    Answer ask(const QString&, Buttons, Icon, const QString&) override { return Answer::Ok; }
};

class NoLamps : public AlarmDisplay {
public:
    void showAlarm(bool) override {}
    void setStatusText(const QString&) override {}
};

double cpuSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& t) { return double(t.tv_sec) + double(t.tv_usec) / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const int rounds = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 3;
    SilentPort port;
    QuietPrompter prompter;
    NoLamps lamps;
    ErrorList errors;
    Link link(port, prompter, lamps, errors);
    ProgramState::instance().gPortOccupy = true;
    QTextStream out(stdout);

    double totalCpu = 0;
    double totalWall = 0;
    for (int i = 0; i < qMax(1, rounds); ++i) {
        link.setTimeoutMs(2000);
        QElapsedTimer wall;
        const double cpuBefore = cpuSeconds();
        wall.start();
        const int result = link.SendRecvCommand(QStringLiteral("0RA"), 6, {}).ok() ? 0 : 1;
        const double cpu = cpuSeconds() - cpuBefore;
        const double seconds = double(wall.nsecsElapsed()) / 1e9;
        totalCpu += cpu;
        totalWall += seconds;
        out << QStringLiteral("round %1: result %2, wall %3 s, CPU %4 s (%5 % of one core)\n")
                   .arg(i + 1)
                   .arg(result)
                   .arg(seconds, 0, 'f', 3)
                   .arg(cpu, 0, 'f', 4)
                   .arg(100 * cpu / seconds, 0, 'f', 2);
    }
    out << QStringLiteral("2-second time-out: %1 % of one core on average (target below 2 %)\n")
               .arg(100 * totalCpu / totalWall, 0, 'f', 2);
    return 0;
}
