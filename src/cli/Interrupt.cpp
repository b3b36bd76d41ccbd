#include "cli/Interrupt.h"

#include "common/Waiter.h"

#include <QSocketNotifier>

#include <csignal>
#include <sys/signalfd.h>
#include <unistd.h>

namespace {

sigset_t interruptSignal()
{
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGINT);
    return set;
}

} // namespace

void Interrupt::blockSignal()
{
    const sigset_t set = interruptSignal();
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
}

Interrupt::Interrupt(QObject* parent)
    : QObject(parent)
{
    const sigset_t set = interruptSignal();
    m_fd = signalfd(-1, &set, SFD_NONBLOCK | SFD_CLOEXEC);
    if (m_fd < 0) {
        // Without the descriptor Ctrl-C keeps its default action.
        pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
        return;
    }
    m_notifier = new QSocketNotifier(m_fd, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &Interrupt::onSignal);
}

Interrupt::~Interrupt()
{
    if (m_notifier)
        m_notifier->setEnabled(false);
    if (m_fd >= 0)
        ::close(m_fd);
}

void Interrupt::onSignal()
{
    signalfd_siginfo info;
    while (::read(m_fd, &info, sizeof info) == sizeof info)
        ++m_count;
    emit raised();
    if (m_abortsWaits || m_count > 1)
        Waiter::abortAll();
    Waiter::wake();
}
