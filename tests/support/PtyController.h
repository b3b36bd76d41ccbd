#pragma once

#include <QByteArray>
#include <QString>

// A controller played by a test on the far side of a pseudo-terminal: the
// program under test opens device() as its serial port, and the test
// answers each request line with the reply it chooses, in order.
class PtyController {
public:
    PtyController();
    ~PtyController();
    PtyController(const PtyController&) = delete;
    PtyController& operator=(const PtyController&) = delete;

    QString device() const { return m_device; }

    // Waits for the request line (CR LF added), then sends the reply line
    // (CR LF added). false when the request did not come in time.
    bool answer(const QByteArray& request, const QByteArray& reply, int timeoutMs = 5000);

    bool send(const QByteArray& bytes);
    // Whatever has arrived, up to count bytes or until the time is up.
    QByteArray receive(qsizetype count, int timeoutMs = 1000);
    // Closes the controller's end, as a pulled cable does.
    void hangUp();

private:
    void readAvailable();

    int m_fd = -1;
    QString m_device;
    QByteArray m_received;
};
