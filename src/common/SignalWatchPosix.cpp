#include "common/SignalWatch.h"

#include <QSocketNotifier>

#include <csignal>
#include <sys/signalfd.h>
#include <unistd.h>

namespace {

sigset_t setOf(std::initializer_list<int> signalNumbers)
{
    sigset_t set;
    sigemptyset(&set);
    for (const int number : signalNumbers)
        sigaddset(&set, number);
    return set;
}

} // namespace

// The signals stay blocked and are read from a descriptor, so no handler
// ever runs inside the interrupted code.
struct SignalWatch::Source {
    int fd = -1;
    QSocketNotifier* notifier = nullptr;
};

void SignalWatch::hold(std::initializer_list<int> signalNumbers)
{
    const sigset_t set = setOf(signalNumbers);
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
}

SignalWatch::SignalWatch(std::initializer_list<int> signalNumbers, QObject* parent)
    : QObject(parent)
    , m_source(std::make_unique<Source>())
{
    const sigset_t set = setOf(signalNumbers);
    m_source->fd = signalfd(-1, &set, SFD_NONBLOCK | SFD_CLOEXEC);
    if (m_source->fd < 0) {
        // Without the descriptor the signals keep their default action.
        pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
        return;
    }
    m_source->notifier = new QSocketNotifier(m_source->fd, QSocketNotifier::Read, this);
    connect(m_source->notifier, &QSocketNotifier::activated, this, [this] {
        signalfd_siginfo info;
        int count = 0;
        while (::read(m_source->fd, &info, sizeof info) == sizeof info)
            ++count;
        emit arrived(count);
    });
}

SignalWatch::~SignalWatch()
{
    if (m_source->notifier)
        m_source->notifier->setEnabled(false);
    if (m_source->fd >= 0)
        ::close(m_source->fd);
}
