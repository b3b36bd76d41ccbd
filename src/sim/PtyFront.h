#pragma once

#include "sim/LinePacer.h"

#include <QByteArray>
#include <QObject>
#include <QString>

class QSocketNotifier;
class SimController;

// The virtual controller on a new pseudo-terminal: a client opens the
// device path (devicePath) as it would open a serial port. The front holds
// the terminal side open itself, so a client may close and reopen the
// device as often as it likes, and waits on the terminal with socket
// notifiers, so it costs nothing while idle.
class PtyFront : public QObject {
    Q_OBJECT
public:
    explicit PtyFront(SimController& controller, QObject* parent = nullptr);
    ~PtyFront() override;

    // Creates the pseudo-terminal in raw mode; false with the reason in
    // errorString when the system refuses.
    bool open(QString* errorString);
    QString devicePath() const { return m_path; }
    void setPacing(bool on) { m_pacer.setEnabled(on); }

signals:
    // Reading from the terminal failed for good.
    void failed(const QString& reason);

private:
    void readInput();
    void queueOutput(const QByteArray& bytes);
    void writeOutput();

    SimController& m_controller;
    LinePacer m_pacer;
    int m_master = -1;
    int m_terminal = -1;
    QString m_path;
    QSocketNotifier* m_readNotifier = nullptr;
    QSocketNotifier* m_writeNotifier = nullptr;
    QByteArray m_output;
};
