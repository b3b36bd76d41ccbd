#pragma once

#include "common/MessageTable.h"
#include "common/Waiter.h"
#include "link/SequenceRig.h"
#include "opdata/OpDataState.h"

#include "OpDataFakes.h"

// The operation data tab's sequences on a scripted serial line: English
// messages, port-occupy off, an error list with a few codes, and stand-ins
// for the widgets.
struct OpDataRig : SequenceRig {
    OpDataRig()
    {
        link.setTimeoutMs(2000);
        loadErrors("2\r\n\"11\",\"Unknown command.\"\r\n\"03\",\"Homing refused while an alarm is active.\"\r\n");
    }
    ~OpDataRig() { Waiter::clearAbort(); }

    // The controller answers frame with one line (CR LF added).
    void answer(const char* frame, const char* line)
    {
        port.answer(QByteArray(frame), QByteArray(line) + "\r\n");
    }
    QStringList frames() const
    {
        QStringList out;
        for (const QByteArray& f : port.frames)
            out << QString::fromLatin1(f);
        return out;
    }

    OpDataState state;
    FakeOpDataView view{state};
};
