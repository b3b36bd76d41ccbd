#pragma once

#include <QObject>

// Ends the event loop cleanly on SIGINT and SIGTERM: the signals are taken
// in the event loop, so the program leaves through its normal path
// (destructors close the terminal).
class SignalQuit : public QObject {
    Q_OBJECT
public:
    // Call first thing in main, before any thread exists, so that every
    // thread inherits the held signals.
    static void blockTermination();

    explicit SignalQuit(QObject* parent = nullptr);
};
