#pragma once

#include "common/Waiter.h"
#include "sim/SimController.h"
#include "sim/SimOptions.h"

#include <QElapsedTimer>

// What a fresh virtual controller holds, written out from the memory map by
// hand (not taken from the code under test), and a pattern to write over it.
namespace FactoryMemory {
// OFFSET 30, HOME byte 30, VEL 10, OFSVEL 10, speed 10, PG FUNCTION 0,
// ALM 1000, AUTO HOME 0, PG TIMER 10, LS TIMER 10, flag 0, EMG 0, ALM1 CLEAR 0.
inline const QByteArray Block0 = "001E1E0A0A0A0003E8000A0A00000000";
// Type 2, AXIS byte 2, PULSE 400, 65535, 20, AUTODRIVE 0, motor "1C" "L" 100, size code 00.
inline const QByteArray Block1 = "0202019000FFFF14001C4C0064000000";
// HOME OUT 0, 1, 20, 2, 1000, 2000, IN-P WID 10, 5.
inline const QByteArray Block2 = "000114020003E80007D00A0500000000";
// The operating current 1.5 A (2812 = 0AFC) at data digits 13 to 16.
inline const QByteArray Block7 = "0000000000000AFC0000000000000000";
// VEL 300, ACC 1, spares 0, DIR CW, DIVISION 12, GEAR 1.
inline const QByteArray Record1 = "012C100000000C01";
inline const QByteArray OtherBlock = "0123456789ABCDEF0123456789ABCDEF";
inline const QByteArray OtherRecord = "2328100000000C01";
} // namespace FactoryMemory

// A fresh controller, with the faults of ktr-sim's options if given, and a
// client on its line that writes requests and gathers what comes back, with
// the time each piece arrived.
class SimLine : public QObject {
public:
    explicit SimLine(const QStringList& faultOptions = {})
    {
        QString error;
        controller.setFaults(SimOptions::parse(faultOptions, &error).value().faults);
        connect(&controller, &SimController::output, this, [this](const QByteArray& bytes) {
            received += bytes;
            pieces.append(bytes);
            arrivalsMs.append(m_clock.elapsed());
            Waiter::wake();
        });
    }

    // Sends request + CR LF; what arrived up to the first line end (or within the time limit).
    QByteArray ask(const QByteArray& request, int timeoutMs = 1000)
    {
        send(request + "\r\n");
        waitForLines(1, timeoutMs);
        return received;
    }
    QList<QByteArray> askAll(const QList<QByteArray>& requests)
    {
        QList<QByteArray> replies;
        for (const QByteArray& r : requests)
            replies.append(ask(r));
        return replies;
    }
    void send(const QByteArray& bytes)
    {
        received.clear();
        pieces.clear();
        arrivalsMs.clear();
        m_clock.restart();
        controller.receive(bytes);
    }
    bool waitForLines(int count, int timeoutMs = 1000)
    {
        return Waiter::waitUntil([this, count] { return received.count("\r\n") >= count; }, timeoutMs)
            == Waiter::Result::Done;
    }

    SimController controller;
    QByteArray received;
    QList<QByteArray> pieces;
    QList<qint64> arrivalsMs; // since the last send

private:
    QElapsedTimer m_clock;
};
