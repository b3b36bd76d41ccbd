#include "sim/PtyFront.h"

#include "sim/SimController.h"

#include <QSocketNotifier>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace {

QString systemError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

bool makeRaw(int fd)
{
    termios t{};
    if (tcgetattr(fd, &t) != 0)
        return false;
    cfmakeraw(&t);
    cfsetispeed(&t, B9600);
    cfsetospeed(&t, B9600);
    return tcsetattr(fd, TCSANOW, &t) == 0;
}

} // namespace

PtyFront::PtyFront(SimController& controller, QObject* parent)
    : QObject(parent)
    , m_controller(controller)
{
    connect(&m_controller, &SimController::output, &m_pacer, &LinePacer::send);
    connect(&m_pacer, &LinePacer::paced, this, &PtyFront::queueOutput);
}

PtyFront::~PtyFront()
{
    if (m_readNotifier) {
        m_readNotifier->setEnabled(false);
        m_writeNotifier->setEnabled(false);
    }
    if (m_terminal >= 0)
        ::close(m_terminal);
    if (m_master >= 0)
        ::close(m_master);
}

bool PtyFront::open(QString* errorString)
{
    m_master = posix_openpt(O_RDWR | O_NOCTTY);
    if (m_master < 0 || grantpt(m_master) != 0 || unlockpt(m_master) != 0
        || fcntl(m_master, F_SETFL, O_NONBLOCK) != 0) {
        *errorString = systemError();
        return false;
    }
    m_path = QString::fromLocal8Bit(ptsname(m_master));
    // Without a terminal side held open, the master reports a hang-up
    // whenever the last client closes the device.
    m_terminal = ::open(ptsname(m_master), O_RDWR | O_NOCTTY);
    if (m_terminal < 0 || !makeRaw(m_terminal)) {
        *errorString = systemError();
        return false;
    }
    m_readNotifier = new QSocketNotifier(m_master, QSocketNotifier::Read, this);
    connect(m_readNotifier, &QSocketNotifier::activated, this, &PtyFront::readInput);
    m_writeNotifier = new QSocketNotifier(m_master, QSocketNotifier::Write, this);
    m_writeNotifier->setEnabled(false);
    connect(m_writeNotifier, &QSocketNotifier::activated, this, &PtyFront::writeOutput);
    return true;
}

void PtyFront::readInput()
{
    char buffer[512];
    for (;;) {
        const ssize_t n = ::read(m_master, buffer, sizeof buffer);
        if (n > 0) {
            m_pacer.holdForRequest(n);
            m_controller.receive(QByteArray(buffer, n));
            continue;
        }
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0 && errno == EAGAIN)
            return;
        m_readNotifier->setEnabled(false);
        emit failed(n < 0 ? systemError() : QString());
        return;
    }
}

void PtyFront::queueOutput(const QByteArray& bytes)
{
    m_output += bytes;
    writeOutput();
}

void PtyFront::writeOutput()
{
    while (!m_output.isEmpty()) {
        const ssize_t n = ::write(m_master, m_output.constData(), size_t(m_output.size()));
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0)
            break;
        m_output.remove(0, n);
    }
    // The client is not reading: go on when the terminal has room again.
    m_writeNotifier->setEnabled(!m_output.isEmpty());
}
