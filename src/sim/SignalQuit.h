#pragma once

#include <QObject>

class QSocketNotifier;

// Ends the event loop cleanly on SIGINT and SIGTERM: the signals are
// blocked and read from a descriptor in the event loop, so the program
// leaves through its normal path (destructors close the terminal).
class SignalQuit : public QObject {
    Q_OBJECT
public:
    // Call first thing in main, before any thread exists, so that every
    // thread inherits the blocked signals.
    static void blockTermination();

    explicit SignalQuit(QObject* parent = nullptr);
    ~SignalQuit() override;

private:
    int m_fd = -1;
    QSocketNotifier* m_notifier = nullptr;
};
