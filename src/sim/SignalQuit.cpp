#include "sim/SignalQuit.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <sys/signalfd.h>
#include <unistd.h>

namespace {

sigset_t terminationSignals()
{
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGINT);
    sigaddset(&set, SIGTERM);
    return set;
}

} // namespace

void SignalQuit::blockTermination()
{
    const sigset_t set = terminationSignals();
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
}

SignalQuit::SignalQuit(QObject* parent)
    : QObject(parent)
{
    const sigset_t set = terminationSignals();
    m_fd = signalfd(-1, &set, SFD_NONBLOCK | SFD_CLOEXEC);
    if (m_fd < 0) {
        // Without the descriptor the signals keep their default action.
        pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
        return;
    }
    m_notifier = new QSocketNotifier(m_fd, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, [this] {
        signalfd_siginfo info;
        while (::read(m_fd, &info, sizeof info) == sizeof info) {
        }
        QCoreApplication::quit();
    });
}

SignalQuit::~SignalQuit()
{
    if (m_notifier)
        m_notifier->setEnabled(false);
    if (m_fd >= 0)
        ::close(m_fd);
}
