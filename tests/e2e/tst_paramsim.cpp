// The parameter sequences against the virtual controller itself, in
// process: what the tool sends must be what the controller keeps, and the
// shipped standard parameters must be what a fresh controller holds.

#include "common/ControlLock.h"
#include "common/DataFiles.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "device/DeviceList.h"
#include "device/DeviceSelector.h"
#include "link/CommandSet.h"
#include "link/ErrorList.h"
#include "link/Link.h"
#include "link/SequenceContext.h"
#include "params/ParaData.h"
#include "params/ParaReadCommand.h"
#include "params/ParaScreen.h"
#include "params/ParaScreenTransfer.h"
#include "params/ParaVerifyCommand.h"
#include "params/ParaWriteCommand.h"
#include "params/StandardPara.h"
#include "sim/SimController.h"
#include "sim/SimSerialPort.h"

#include "support/RecordingAlarmDisplay.h"
#include "support/ScriptedFileChooser.h"
#include "support/ScriptedPrompter.h"
#include "support/TempSettings.h"

#include <QFileInfo>
#include <QTest>

namespace {

class ChosenSize : public DeviceSelector {
public:
    explicit ChosenSize(QString size) : m_size(std::move(size)) {}
    bool selectDevice() override
    {
        ProgramState& g = ProgramState::instance();
        g.gActSize = m_size;
        g.gActKindChar = QStringLiteral("L");
        g.gActNumber = 100;
        g.gPgUse = false;
        return false;
    }

private:
    QString m_size;
};

struct SimRig {
    SimRig()
    {
        ProgramState::reset();
        ProgramState::instance().gMsgBase = 10000;
        ProgramState::instance().gPortOccupy = true;
        DataFiles::setProgramFolder(QFileInfo(QFINDTESTDATA("../../resources/data/nqmdevice.lst")).path());
    }
    ~SimRig()
    {
        DataFiles::setProgramFolder({});
        ProgramState::reset();
    }

    void applyStandard(const QString& size)
    {
        ChosenSize selector(size);
        StandardPara(lock, prompter, selector).SetStandardPara(data, screen);
    }

    TempSettings settings;
    SimSerialPort port;
    ScriptedPrompter prompter;
    RecordingAlarmDisplay alarms;
    ErrorList errors;
    Link link{port, prompter, alarms, errors};
    CommandSet commands{link};
    ControlLock lock;
    ProgressDisplay progress;
    ScriptedFileChooser files;
    SequenceContext context{link, commands, prompter, lock, progress, files};
    DeviceList devices;
    ParaData data;
    ParaScreen screen;
};

} // namespace

class TestParamSim : public QObject {
    Q_OBJECT

private slots:
    void standardParametersAreTheFactorySet()
    {
        SimRig rig;
        rig.applyStandard(QStringLiteral("28"));
        ParaVerifyCommand(rig.context, rig.data).CompareWithController(rig.screen);
        QCOMPARE(rig.prompter.texts(), QStringList{"Result of Verify - OK"});
    }

    void writtenParametersAreKeptAndReadBack()
    {
        SimRig rig;
        rig.applyStandard(QStringLiteral("35"));
        rig.screen.txtHomeVel = QStringLiteral("33");
        rig.screen.txtPgAlarm = QStringLiteral("65535");
        ParaWriteCommand(rig.context, rig.data).WriteParaWorker(rig.screen);
        QCOMPARE(rig.prompter.lastText(), QStringLiteral("Completed writing parameters."));
        QCOMPARE(rig.port.controller().memory().storedBlock(1).mid(18, 2), QByteArray("23"));

        ParaData fresh;
        ParaScreen shown;
        ParaReadCommand(rig.context, fresh, rig.devices).GetParametaValue(shown);
        QCOMPARE(shown.txtHomeVel, QStringLiteral("33"));
        QCOMPARE(shown.txtPgAlarm, QStringLiteral("65535"));
        QCOMPARE(shown.comboActSize, QStringLiteral("35"));
        QCOMPARE(shown.txtDenryu, QStringLiteral("1.6"));
    }
};

QTEST_GUILESS_MAIN(TestParamSim)
#include "tst_paramsim.moc"
