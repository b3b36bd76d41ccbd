#pragma once

#include <QByteArray>
#include <QObject>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <csignal>

// ktr-sim on a pseudo-terminal, whose path it prints first; SIGTERM at the latest when destroyed.
class SimProcess : public QObject {
public:
    explicit SimProcess(const QString& program, QObject* parent = nullptr);
    ~SimProcess() override;

    // Starts "program --pty --lang en <args>"; true once the device path is
    // known. On failure the reason is in standardError().
    bool start(const QStringList& args = {}, int timeoutMs = 5000);
    QString devicePath() const { return m_devicePath; }

    // Sends SIGTERM (or SIGINT, as Ctrl-C does) and waits; the exit code,
    // or -1 when it did not end normally in time.
    int stop(int timeoutMs = 5000) { return endWith(SIGTERM, timeoutMs); }
    int interrupt(int timeoutMs = 5000) { return endWith(SIGINT, timeoutMs); }
    bool isRunning() const { return m_process.state() != QProcess::NotRunning; }

    QByteArray standardError();

private:
    int endWith(int signal, int timeoutMs);
    bool waitForFinished(int timeoutMs);

    QProcess m_process;
    QString m_program;
    QString m_devicePath;
    QByteArray m_stdout;
    QByteArray m_stderr;
};
