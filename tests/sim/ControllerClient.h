#pragma once

#include "common/Waiter.h"
#include "sim/SimController.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QList>
#include <QObject>

#include <functional>

// Talks to a virtual controller the way a client on the line does: writes
// a request and gathers what comes back, with the time each piece arrived.
class ControllerClient : public QObject {
public:
    explicit ControllerClient(SimController& controller)
        : m_controller(controller)
    {
        m_clock.start();
        connect(&controller, &SimController::output, this, [this](const QByteArray& bytes) {
            received += bytes;
            pieces.append(bytes);
            arrivalsMs.append(m_clock.elapsed());
            Waiter::wake();
        });
    }

    // Sends request + CR LF and returns what arrived up to the first line end
    // (or within the time limit).
    QByteArray ask(const QByteArray& request, int timeoutMs = 1000)
    {
        send(request + "\r\n");
        waitForLine(timeoutMs);
        return received;
    }

    // The replies to requests asked one after the other.
    QList<QByteArray> askAll(const QList<QByteArray>& requests)
    {
        QList<QByteArray> replies;
        for (const QByteArray& r : requests)
            replies.append(ask(r));
        return replies;
    }

    void send(const QByteArray& bytes)
    {
        clear();
        m_clock.restart();
        m_controller.receive(bytes);
    }

    bool waitForLine(int timeoutMs = 1000)
    {
        return Waiter::waitUntil([this] { return received.endsWith("\r\n"); }, timeoutMs)
            == Waiter::Result::Done;
    }

    bool waitForLines(int count, int timeoutMs = 1000)
    {
        return Waiter::waitUntil([this, count] { return received.count("\r\n") >= count; }, timeoutMs)
            == Waiter::Result::Done;
    }

    void clear()
    {
        received.clear();
        pieces.clear();
        arrivalsMs.clear();
    }

    QByteArray received;
    QList<QByteArray> pieces;
    QList<qint64> arrivalsMs; // since the last send

private:
    SimController& m_controller;
    QElapsedTimer m_clock;
};

// Faults set by a function, so that a test names only what it changes.
inline SimFaults faultsWith(const std::function<void(SimFaults&)>& set)
{
    SimFaults faults;
    set(faults);
    return faults;
}

// A fresh controller, with faults if given, and a client on its line.
struct SimLine {
    SimLine() = default;
    explicit SimLine(const SimFaults& faults) { controller.setFaults(faults); }

    SimController controller;
    ControllerClient client{controller};
};
