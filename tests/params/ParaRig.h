#pragma once

#include "ParaFixtures.h"

#include "common/ControlLock.h"
#include "common/DataFiles.h"
#include "common/ProgramState.h"
#include "device/DeviceList.h"
#include "link/CommandSet.h"
#include "link/ErrorList.h"
#include "link/Link.h"
#include "link/SequenceContext.h"
#include "params/ParaData.h"
#include "params/ParaScreen.h"
#include "params/ParaScreenTransfer.h"

#include "support/FakeSerialPort.h"
#include "support/RecordingAlarmDisplay.h"
#include "support/ScriptedFileChooser.h"
#include "support/ScriptedPrompter.h"
#include "support/TempSettings.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

class RecordingLock : public ControlLock {
public:
    void Menyu_Muko() override { calls << QStringLiteral("Menyu_Muko"); }
    void Menyu_Yuko() override { calls << QStringLiteral("Menyu_Yuko"); }
    void ParaCMDBTN_Muko() override { calls << QStringLiteral("ParaCMDBTN_Muko"); }
    void ParaCMDBTN_Yuko() override { calls << QStringLiteral("ParaCMDBTN_Yuko"); }
    void setTabsEnabled(bool on) override { calls << (on ? QStringLiteral("tabs on") : QStringLiteral("tabs off")); }
    QStringList calls;
};

class RecordingProgress : public ProgressDisplay {
public:
    void Disp_ProgressBar(int maximum) override { m_value = 0; calls << QStringLiteral("bar %1").arg(maximum); }
    void setProgress(int value) override { m_value = value; calls << QStringLiteral("bar = %1").arg(value); }
    int progress() const override { return m_value; }
    void Hide_ProgressBar() override { m_value = 0; calls << QStringLiteral("bar hidden"); }
    void showTransfer(const QString& text, int maximum) override
    {
        calls << QStringLiteral("window %1 %2").arg(text).arg(maximum);
    }
    void setTransferProgress(int value) override { calls << QStringLiteral("window = %1").arg(value); }
    void hideTransfer() override { calls << QStringLiteral("window hidden"); }
    QStringList calls;

private:
    int m_value = 0;
};

// A parameter page on a scripted controller: English messages, port-occupy
// off, the device list of four sizes beside the "program".
struct ParaRig {
    ParaRig()
    {
        ProgramState::reset();
        ProgramState::instance().gMsgBase = 10000;
        ProgramState::instance().gLanguage = 2;
        ProgramState::instance().gPortOccupy = false;
        link.setPortNaming([](int n) { return QStringLiteral("port%1").arg(n); });
        DataFiles::setProgramFolder(dir.path());
        writeFile(QStringLiteral("nqmdevice.lst"), "4\r\n\"28\",1,2,3,4\r\n\"35\",1,2,3,4\r\n"
                                                  "\"42\",1,2,3,4\r\n\"SP\",1,2,3,4\r\n");
    }
    ~ParaRig()
    {
        DataFiles::setProgramFolder({});
        ProgramState::reset();
    }

    void writeFile(const QString& name, const QByteArray& bytes)
    {
        QFile file(dir.filePath(name));
        file.open(QIODevice::WriteOnly | QIODevice::Truncate);
        file.write(bytes);
    }

    // The controller answers reads of blocks 0 to 2 with these digits.
    void answerReads(const std::array<QString, 3>& digits)
    {
        for (int b = 0; b < 3; ++b)
            port.answer("0RD" + QByteArray::number(b), ReadReply(b, digits.at(size_t(b))).toLatin1());
    }
    void answerBlock7(const QString& current)
    {
        port.answer("0RD7", ReadReply(7, QStringLiteral("0123456789AB") + current + QString(16, u'0')).toLatin1());
    }

    // The page showing a set.
    void show(const ParaSet& set)
    {
        data.set = set;
        ParametaHyoji(set, screen);
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
    SequenceContext context{link, commands, prompter, lock, progress, files};
    DeviceList devices;
    ParaData data;
    ParaScreen screen;
};
