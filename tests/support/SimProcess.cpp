#include "SimProcess.h"

#include "common/Waiter.h"

SimProcess::SimProcess(const QString& program, QObject* parent)
    : QObject(parent)
    , m_program(program)
{
    connect(&m_process, &QProcess::readyReadStandardOutput, this, [this] {
        m_stdout += m_process.readAllStandardOutput();
        Waiter::wake();
    });
    connect(&m_process, &QProcess::finished, this, [] { Waiter::wake(); });
    connect(&m_process, &QProcess::errorOccurred, this, [] { Waiter::wake(); });
}

SimProcess::~SimProcess()
{
    if (isRunning() && stop() < 0) {
        m_process.kill();
        waitForFinished(5000);
    }
}

bool SimProcess::start(const QStringList& args, int timeoutMs)
{
    m_stdout.clear();
    m_devicePath.clear();
    m_process.start(m_program, QStringList{QStringLiteral("--pty"), QStringLiteral("--lang"), QStringLiteral("en")} + args);
    const auto result = Waiter::waitUntil([this] {
        return m_stdout.contains('\n') || m_process.state() == QProcess::NotRunning;
    },
                                          timeoutMs);
    if (result != Waiter::Result::Done || !m_stdout.contains('\n'))
        return false;
    m_devicePath = QString::fromLocal8Bit(m_stdout.left(m_stdout.indexOf('\n')).trimmed());
    return !m_devicePath.isEmpty();
}

int SimProcess::endWith(int signal, int timeoutMs)
{
    if (isRunning()) {
        ::kill(pid_t(m_process.processId()), signal);
        if (!waitForFinished(timeoutMs))
            return -1;
    }
    return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

QByteArray SimProcess::standardError()
{
    m_stderr += m_process.readAllStandardError();
    return m_stderr;
}

bool SimProcess::waitForFinished(int timeoutMs)
{
    return Waiter::waitUntil([this] { return !isRunning(); }, timeoutMs) == Waiter::Result::Done;
}
