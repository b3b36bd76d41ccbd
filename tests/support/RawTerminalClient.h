#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

class QSocketNotifier;

// A client of a terminal device in raw mode, as a plain program would open
// a serial port: for tests that talk to ktr-sim's pseudo-terminal without
// the program's own serial code in between.
class RawTerminalClient : public QObject {
public:
    using QObject::QObject;
    ~RawTerminalClient() override;

    bool open(const QString& path);
    void close();
    bool isOpen() const { return m_fd >= 0; }

    // Everything up to and including the first CR LF, or what arrived
    // before the time was up.
    QByteArray readLine(int timeoutMs = 1000);
    QByteArray ask(const QByteArray& request, int timeoutMs = 1000);

private:
    void readAvailable();

    int m_fd = -1;
    QSocketNotifier* m_notifier = nullptr;
    QByteArray m_buffer;
};
