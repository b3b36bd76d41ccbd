#include "PtyController.h"

#include "common/Waiter.h"

#include <QElapsedTimer>

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

namespace {
constexpr int PollMs = 5;
} // namespace

PtyController::PtyController()
{
    m_fd = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (m_fd >= 0 && grantpt(m_fd) == 0 && unlockpt(m_fd) == 0)
        m_device = QString::fromLocal8Bit(ptsname(m_fd));
}

PtyController::~PtyController()
{
    hangUp();
}

void PtyController::hangUp()
{
    if (m_fd >= 0)
        ::close(m_fd);
    m_fd = -1;
}

void PtyController::readAvailable()
{
    char buffer[256];
    ssize_t n = 0;
    while ((n = ::read(m_fd, buffer, sizeof buffer)) > 0)
        m_received.append(buffer, n);
}

bool PtyController::answer(const QByteArray& request, const QByteArray& reply, int timeoutMs)
{
    const QByteArray line = request + "\r\n";
    QElapsedTimer clock;
    clock.start();
    for (readAvailable(); !m_received.contains(line); readAvailable()) {
        if (clock.elapsed() > timeoutMs)
            return false;
        Waiter::sleep(PollMs);
    }
    m_received.remove(0, m_received.indexOf(line) + line.size());
    const QByteArray out = reply + "\r\n";
    return ::write(m_fd, out.constData(), size_t(out.size())) == out.size();
}

bool PtyController::send(const QByteArray& bytes)
{
    return ::write(m_fd, bytes.constData(), size_t(bytes.size())) == bytes.size();
}

QByteArray PtyController::receive(qsizetype count, int timeoutMs)
{
    QElapsedTimer clock;
    clock.start();
    for (readAvailable(); m_received.size() < count && clock.elapsed() <= timeoutMs; readAvailable())
        Waiter::sleep(PollMs);
    const QByteArray out = m_received.left(count);
    m_received.remove(0, out.size());
    return out;
}
