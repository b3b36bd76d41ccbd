#include "RawTerminalClient.h"

#include "common/Waiter.h"

#include <QSocketNotifier>

#include <cerrno>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

RawTerminalClient::~RawTerminalClient()
{
    close();
}

bool RawTerminalClient::open(const QString& path)
{
    close();
    m_fd = ::open(path.toLocal8Bit().constData(), O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (m_fd < 0)
        return false;
    termios t{};
    tcgetattr(m_fd, &t);
    cfmakeraw(&t);
    tcsetattr(m_fd, TCSANOW, &t);
    m_notifier = new QSocketNotifier(m_fd, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &RawTerminalClient::readAvailable);
    return true;
}

void RawTerminalClient::close()
{
    if (m_fd < 0)
        return;
    delete m_notifier;
    m_notifier = nullptr;
    ::close(m_fd);
    m_fd = -1;
    m_buffer.clear();
}

QByteArray RawTerminalClient::readLine(int timeoutMs)
{
    Waiter::waitUntil([this] { return m_buffer.contains("\r\n"); }, timeoutMs);
    const qsizetype end = m_buffer.indexOf("\r\n");
    const qsizetype take = end < 0 ? m_buffer.size() : end + 2;
    const QByteArray line = m_buffer.left(take);
    m_buffer.remove(0, take);
    return line;
}

QByteArray RawTerminalClient::ask(const QByteArray& request, int timeoutMs)
{
    m_buffer.clear();
    const QByteArray line = request + "\r\n";
    if (m_fd < 0 || ::write(m_fd, line.constData(), size_t(line.size())) != line.size())
        return {};
    return readLine(timeoutMs);
}

void RawTerminalClient::readAvailable()
{
    char chunk[256];
    ssize_t n;
    while ((n = ::read(m_fd, chunk, sizeof chunk)) > 0)
        m_buffer.append(chunk, n);
    // The other side is gone: stop listening rather than spin on the error.
    if (n == 0 || (n < 0 && errno != EAGAIN && errno != EINTR))
        m_notifier->setEnabled(false);
    Waiter::wake();
}
