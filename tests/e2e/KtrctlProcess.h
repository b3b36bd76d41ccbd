#pragma once

#include "common/Waiter.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <csignal>
#include <functional>

struct CtlRun {
    int exitCode = -1;
    QString out;
    QString err;
};

// ktrctl with settings and a journal of its own (or the data folder given),
// English unless told; stderr is gathered as it comes, so a test can act on
// the trace of a run in progress.
class KtrctlProcess {
public:
    explicit KtrctlProcess(const QString& dataHome = {})
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("XDG_CONFIG_HOME"), m_config.path());
        env.insert(QStringLiteral("XDG_DATA_HOME"), dataHome.isEmpty() ? m_config.path() : dataHome);
        env.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_config.path());
        env.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
        m_process.setProcessEnvironment(env);
        QObject::connect(&m_process, &QProcess::readyReadStandardError, [this] {
            m_err += QString::fromUtf8(m_process.readAllStandardError());
            Waiter::wake();
        });
        QObject::connect(&m_process, &QProcess::finished, [] { Waiter::wake(); });
    }

    void start(const QStringList& args)
    {
        m_process.start(QStringLiteral(KTRCTL_PATH), QStringList{"--lang", "en"} + args);
        m_process.waitForStarted();
    }
    bool waitForErr(const std::function<bool(const QString&)>& done, int timeoutMs = 15000)
    {
        return Waiter::waitUntil([&] { return done(m_err); }, timeoutMs) == Waiter::Result::Done;
    }
    void interrupt() { ::kill(pid_t(m_process.processId()), SIGINT); }
    void kill() { m_process.kill(); }
    CtlRun finish(int timeoutMs = 30000)
    {
        CtlRun run;
        if (Waiter::waitUntil([this] { return m_process.state() == QProcess::NotRunning; }, timeoutMs)
            != Waiter::Result::Done) {
            m_process.kill();
            m_process.waitForFinished();
            return run;
        }
        m_err += QString::fromUtf8(m_process.readAllStandardError());
        run.exitCode = m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
        run.out = QString::fromUtf8(m_process.readAllStandardOutput());
        run.err = m_err;
        return run;
    }
    static CtlRun run(const QStringList& args, const QString& dataHome = {})
    {
        KtrctlProcess ktrctl(dataHome);
        ktrctl.start(args);
        return ktrctl.finish();
    }

private:
    QTemporaryDir m_config;
    QProcess m_process;
    QString m_err;
};

struct TraceFrame {
    int ms;
    QString text; // "> 0MP01" or "< 0RA1"
};

// The frames of a --trace run, with their times.
inline QList<TraceFrame> traceFrames(const QString& err)
{
    static const QRegularExpression line(QStringLiteral("^\\+(\\d+)\\.(\\d{3}) ([<>] .*)$"),
                                         QRegularExpression::MultilineOption);
    QList<TraceFrame> frames;
    for (auto it = line.globalMatch(err); it.hasNext();) {
        const auto m = it.next();
        frames.append({m.captured(1).toInt() * 1000 + m.captured(2).toInt(), m.captured(3)});
    }
    return frames;
}

// The frames sent, without the "> ".
inline QStringList sentFrames(const QString& err)
{
    QStringList out;
    for (const TraceFrame& f : traceFrames(err))
        if (f.text.startsWith(u'>'))
            out << f.text.mid(2);
    return out;
}

inline QStringList linesOf(const QString& text)
{
    return text.split(u'\n', Qt::SkipEmptyParts);
}
