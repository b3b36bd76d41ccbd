#pragma once

#include "common/ProgramState.h"
#include "link/ErrorList.h"
#include "link/Link.h"

#include "support/FakeSerialPort.h"
#include "support/RecordingAlarmDisplay.h"
#include "support/ScriptedPrompter.h"
#include "support/TempSettings.h"

#include <QFile>
#include <QTemporaryDir>

// Messages of the link, in English.
inline const QString TimedOut = QStringLiteral("Communication timeout error!\r\n\r\nCheck the followings;\r\n"
                                               " 1.Power ON for controller?\r\n 2.Communication cables are connected?");
inline const QString LengthError = QStringLiteral("Communication data length error occurs!\r\nLength of data is wrong.");
inline const QString UnknownText = QStringLiteral("Communication error occurs!\r\nError No.101\r\n[Unknown command.]");

// A link on a (scripted) port: a few error codes, English, ports "port<n>",
// port-occupy off, a short time-out.
template<typename Port = FakeSerialPort>
struct LinkRig {
    LinkRig()
    {
        ProgramState::reset();
        ProgramState::instance().gMsgBase = 10000;
        ProgramState::instance().gLanguage = 2;
        ProgramState::instance().gPortOccupy = false;
        link.setPortNaming([](int n) { return QStringLiteral("port%1").arg(n); });
        link.setTimeoutMs(100);
        loadErrors("3\r\n\"11\",\"Unknown command.\"\r\n\"03\",\"Homing refused.\"\r\n"
                   "\"31\",\"Overload alarm.\"\r\n");
    }
    ~LinkRig() { ProgramState::reset(); }

    bool loadErrors(const QByteArray& content)
    {
        QFile file(dir.filePath(QStringLiteral("errors.lst")));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            return false;
        file.close();
        return errors.load(file.fileName());
    }

    TempSettings settings;
    QTemporaryDir dir;
    Port port;
    ScriptedPrompter prompter;
    RecordingAlarmDisplay alarms;
    ErrorList errors;
    Link link{port, prompter, alarms, errors};
};
