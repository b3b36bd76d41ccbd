#pragma once

#include "common/FileBytes.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "common/Waiter.h"
#include "link/CommandSet.h"
#include "link/ErrorList.h"
#include "link/Link.h"
#include "link/SequenceContext.h"
#include "opdata/OpDataState.h"

#include "OpDataFakes.h"
#include "support/FakeSerialPort.h"
#include "support/RecordingAlarmDisplay.h"
#include "support/ScriptedFileChooser.h"
#include "support/ScriptedPrompter.h"
#include "support/TempSettings.h"

#include <QTemporaryDir>

// The operation data tab's sequences on a scripted serial line: English
// messages, port-occupy off, an error list with a few codes, and stand-ins
// for the widgets.
struct OpDataRig {
    OpDataRig()
    {
        ProgramState::reset();
        ProgramState::instance().gMsgBase = MessageTable::EnglishBase;
        ProgramState::instance().gLanguage = 2;
        ProgramState::instance().gPortOccupy = false;
        link.setPortNaming([](int n) { return QStringLiteral("port%1").arg(n); });
        errors.load(WriteBytes(dir.filePath(QStringLiteral("errors.lst")),
                               "2\r\n\"11\",\"Unknown command.\"\r\n\"03\",\"Homing refused while an alarm is active.\"\r\n"));
    }
    ~OpDataRig()
    {
        Waiter::clearAbort();
        ProgramState::reset();
    }

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

    TempSettings settings;
    QTemporaryDir dir;
    FakeSerialPort port;
    ScriptedPrompter prompter;
    RecordingAlarmDisplay alarms;
    ErrorList errors;
    Link link{port, prompter, alarms, errors};
    CommandSet commands{link};
    RecordingLock lock;
    RecordingProgress progress;
    ScriptedFileChooser files;
    SequenceContext ctx{link, commands, prompter, lock, progress, files};
    OpDataState state;
    FakeOpDataView view{state};
};
