#include "opdata/ReadFromCt.h"
#include "opdata/WriteToCt.h"

#include "OpDataRig.h"

#include <QTest>

namespace {

const char* ExampleReply = "0RP01" "2328" "1" "0" "00000" "1" "0C" "01";
const QStringList Locked{"CMDBTN_Muko", "tabs off", "Menyu_Muko", "CMDBTN_Yuko", "tabs on", "Menyu_Yuko"};

} // namespace

class TestOpDataTransfer : public QObject {
    Q_OBJECT

private slots:
    void readExample()
    {
        OpDataRig rig;
        rig.answer("0CM6", "0CM6");
        rig.answer("0RP01", ExampleReply);
        rig.state.mEventsOff = true;

        ReadFromCt(rig.ctx, rig.state, rig.view).run();

        QCOMPARE(rig.frames(), (QStringList{"0CM6", "0RP01"}));
        QCOMPARE(rig.prompter.shown.size(), 1);
        QCOMPARE(rig.prompter.shown[0].text, QStringLiteral("Read the data from controller, OK?"));
        QCOMPARE(rig.prompter.shown[0].buttons, Prompter::Buttons::YesNo);
        QCOMPARE(rig.prompter.shown[0].icon, Prompter::Icon::Question);

        const OpDataScreen& s = rig.view.shown;
        QCOMPARE(s.txtVEL, QStringLiteral("9000"));
        QCOMPARE(s.txtACC, QStringLiteral("1"));
        QVERIFY(!s.optCW);
        QCOMPARE(s.txtDIVISION, QStringLiteral("12"));
        QCOMPARE(s.txtGEAR, QStringLiteral("1"));
        QCOMPARE(s.comboVEL, QStringLiteral("30"));
        QCOMPARE(s.comboACC, QStringLiteral("1"));
        QVERIFY(rig.view.eventsOffWhileShown);
        QVERIFY(!rig.state.mEventsOff);

        QCOMPARE(rig.state.PosiData.number(PosiTable::VEL), 9000);
        QCOMPARE(rig.state.PosiData.number(PosiTable::DIR), 1);
        QCOMPARE(rig.state.mDataTitle, QStringLiteral("Inside of C/T"));
        QVERIFY(!ProgramState::instance().gDataChanged);
        QVERIFY(!ProgramState::instance().gCommBusy);
        QCOMPARE(rig.lock.calls, Locked);
        QCOMPARE(rig.view.calls, (QStringList{"comboVEL 0", "comboVEL 1"}));
        QCOMPARE(rig.progress.calls.first(), QStringLiteral("window Reading data from controller... 3"));
        QVERIFY(rig.progress.calls.contains(QStringLiteral("bar = 3")));
        QCOMPARE(rig.progress.calls.last(), QStringLiteral("window hidden"));
        QVERIFY2(!rig.port.isOpen(), "closed after the read when the port is not kept");
    }

    void readDeclined()
    {
        OpDataRig rig;
        rig.prompter.script({Prompter::Answer::No});
        rig.view.shown.txtVEL = QStringLiteral("120");

        ReadFromCt(rig.ctx, rig.state, rig.view).run();

        QVERIFY(rig.frames().isEmpty());
        QCOMPARE(rig.view.showCount, 0);
        QCOMPARE(rig.lock.calls, Locked);
    }

    void readSavesEditsFirst()
    {
        OpDataRig rig;
        rig.answer("0CM6", "0CM6");
        rig.answer("0RP01", ExampleReply);
        ProgramState::instance().gDataChanged = true;
        rig.view.shown = exampleScreen();
        rig.view.shown.txtVEL = QStringLiteral("120");
        const QString path = rig.dir.filePath(QStringLiteral("edits.qmd"));
        rig.files.setNextFileName(path);
        rig.prompter.script({Prompter::Answer::Yes});

        ReadFromCt(rig.ctx, rig.state, rig.view).run();

        QCOMPARE(rig.prompter.shown[0].text, QStringLiteral("Save the editing data before reading data?"));
        QCOMPARE(rig.prompter.shown[0].buttons, Prompter::Buttons::YesNoCancel);
        QFile saved(path);
        QVERIFY(saved.open(QIODevice::ReadOnly));
        QVERIFY(saved.readAll().contains("0,\"120\","));
        QCOMPARE(rig.frames(), (QStringList{"0CM6", "0RP01"}));
        QCOMPARE(rig.view.shown.txtVEL, QStringLiteral("9000"));
        QCOMPARE(rig.state.mDataTitle, QStringLiteral("Inside of C/T"));
        QVERIFY(ProgramState::instance().gCommBusy == false);
    }

    void readCancelledAtSaveQuestion()
    {
        OpDataRig rig;
        ProgramState::instance().gDataChanged = true;
        rig.view.shown.txtGEAR = QStringLiteral("5");
        rig.prompter.script({Prompter::Answer::Cancel});

        ReadFromCt(rig.ctx, rig.state, rig.view).run();

        QVERIFY(rig.frames().isEmpty());
        QVERIFY(rig.files.requests.isEmpty());
        QVERIFY(ProgramState::instance().gDataChanged);
    }

    void readWithoutEditsInTheFieldsAsksNothing()
    {
        OpDataRig rig;
        rig.answer("0CM6", "0CM6");
        rig.answer("0RP01", ExampleReply);
        ProgramState::instance().gDataChanged = true;

        ReadFromCt(rig.ctx, rig.state, rig.view).run();

        QVERIFY(rig.prompter.shown.isEmpty());
        QCOMPARE(rig.frames(), (QStringList{"0CM6", "0RP01"}));
    }

    void readLengthErrorLeavesScreen()
    {
        OpDataRig rig;
        rig.answer("0CM6", "0CM6");
        rig.answer("0RP01", "0RP01");
        rig.answer("0CM6", "0CM6");
        rig.view.shown = exampleScreen();
        rig.view.shown.comboVEL = QStringLiteral("7");

        ReadFromCt(rig.ctx, rig.state, rig.view).run();

        QVERIFY(rig.link.gCommError);
        QCOMPARE(rig.view.showCount, 0);
        QCOMPARE(rig.view.shown.comboVEL, QStringLiteral("7"));
        QVERIFY(rig.state.mDataTitle.isEmpty());
        QCOMPARE(rig.progress.calls.last(), QStringLiteral("window hidden"));
        QCOMPARE(rig.lock.calls, Locked);
    }

    // An error reply is no communication error: the choices are derived from
    // the values still on the screen, as they always were.
    void readErrorReplyStillDerivesChoices()
    {
        OpDataRig rig;
        rig.answer("0CM6", "0CM6");
        rig.answer("0RP01", "0%%101");
        rig.view.shown = exampleScreen();
        rig.view.shown.comboVEL = QStringLiteral("7");

        ReadFromCt(rig.ctx, rig.state, rig.view).run();

        QVERIFY(!rig.link.gCommError);
        QCOMPARE(rig.view.shown.comboVEL, QStringLiteral("30"));
        QCOMPARE(rig.view.shown.txtVEL, QStringLiteral("9000"));
        QVERIFY(rig.state.mDataTitle.isEmpty());
        QVERIFY(!rig.state.mEventsOff);
    }

    void writeExample()
    {
        OpDataRig rig;
        rig.answer("0RA", "0RA1");
        rig.answer("0WP012328100000000C01", "0WP01");
        rig.answer("0WA0101", "0WA");
        rig.view.shown = exampleScreen();
        ProgramState::instance().gDataChanged = true;

        WriteToCt(rig.ctx, rig.state, rig.view).run();

        QCOMPARE(rig.frames(), (QStringList{"0RA", "0WP012328100000000C01", "0WA0101"}));
        QCOMPARE(rig.prompter.shown.size(), 1);
        QCOMPARE(rig.prompter.shown[0].text, QStringLiteral("Data is transmitted to controller,Yes?"));
        QCOMPARE(rig.prompter.shown[0].buttons, Prompter::Buttons::OkCancel);
        QVERIFY(!ProgramState::instance().gDataChanged);
        QVERIFY(!ProgramState::instance().gCommBusy);
        QCOMPARE(rig.lock.calls, Locked);
        QCOMPARE(rig.progress.calls.first(), QStringLiteral("window Sending Data to the controller... 3"));
        QVERIFY(rig.progress.calls.contains(QStringLiteral("window = 3")));
        QCOMPARE(rig.progress.calls.last(), QStringLiteral("window hidden"));
        QVERIFY(!rig.port.isOpen());
    }

    void writeRefusedWhileMoving()
    {
        OpDataRig rig;
        rig.answer("0RA", "0RA0");
        rig.view.shown = exampleScreen();
        ProgramState::instance().gDataChanged = true;

        WriteToCt(rig.ctx, rig.state, rig.view).run();

        QCOMPARE(rig.frames(), QStringList{"0RA"});
        QCOMPARE(rig.prompter.lastText(), QStringLiteral("The writing of data is not made during movement."));
        QVERIFY2(!ProgramState::instance().gDataChanged, "cleared after every write command");
        QCOMPARE(rig.lock.calls, Locked);
    }

    void writeStatusFailed()
    {
        OpDataRig rig;
        rig.answer("0RA", "0RA7");
        rig.view.shown = exampleScreen();

        WriteToCt(rig.ctx, rig.state, rig.view).run();

        QCOMPARE(rig.frames(), QStringList{"0RA"});
        QCOMPARE(rig.prompter.lastText(), QStringLiteral("Communication Error occured."));
    }

    void writeCancelled()
    {
        OpDataRig rig;
        rig.view.shown = exampleScreen();
        rig.prompter.script({Prompter::Answer::Cancel});
        ProgramState::instance().gDataChanged = true;

        WriteToCt(rig.ctx, rig.state, rig.view).run();

        QVERIFY(rig.frames().isEmpty());
        QVERIFY(!ProgramState::instance().gDataChanged);
    }

    void writeEchoDiffers()
    {
        OpDataRig rig;
        rig.answer("0RA", "0RA2");
        rig.answer("0WP012328100000000C01", "0WP11");
        rig.view.shown = exampleScreen();

        WriteToCt(rig.ctx, rig.state, rig.view).run();

        QCOMPARE(rig.frames(), (QStringList{"0RA", "0WP012328100000000C01"}));
        QCOMPARE(rig.prompter.lastText(), QStringLiteral("Communication error occurs!\r\n\r\ntransmit data is wrong"));
        QVERIFY(rig.link.gCommError);
        QCOMPARE(rig.progress.calls.last(), QStringLiteral("window hidden"));
    }

    void writeRefusesEmptyField()
    {
        OpDataRig rig;
        rig.view.shown = exampleScreen();
        rig.view.shown.txtACC.clear();

        WriteToCt(rig.ctx, rig.state, rig.view).run();

        QVERIFY(rig.frames().isEmpty());
        QCOMPARE(rig.prompter.texts(), QStringList{"No data in the list.\r\n\r\nInput data and try it again."});
        QCOMPARE(rig.lock.calls, Locked);
    }
};

QTEST_GUILESS_MAIN(TestOpDataTransfer)
#include "tst_opdatatransfer.moc"
