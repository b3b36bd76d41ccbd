#pragma once

#include <QObject>

// Ctrl-C on the command line. The signal is taken in the event loop (never
// handled inside a signal handler) and raises a flag that commands may read:
// a move run treats it as STOP. By default it also ends every wait at once,
// so the command unwinds and the program ends through its normal path; a
// second Ctrl-C always does.
class Interrupt : public QObject {
    Q_OBJECT
public:
    // Call first thing in main, before any thread exists, so that every
    // thread inherits the held signal.
    static void blockSignal();

    explicit Interrupt(QObject* parent = nullptr);

    bool interrupted() const { return m_count > 0; }
    // false: the first Ctrl-C only raises the flag (the command stops itself).
    void setAbortsWaits(bool abort) { m_abortsWaits = abort; }

signals:
    void raised();

private:
    void onSignal(int count);

    int m_count = 0;
    bool m_abortsWaits = true;
};
