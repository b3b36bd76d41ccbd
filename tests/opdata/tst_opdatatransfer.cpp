#include "opdata/ReadFromCt.h"
#include "opdata/WriteToCt.h"

#include "OpDataRig.h"

#include <QTest>

namespace {

const char* ExampleReply = "0RP01" "2328" "1" "0" "00000" "1" "0C" "01";
const QStringList Locked{"CMDBTN_Muko", "tabs off", "Menyu_Muko", "CMDBTN_Yuko", "tabs on", "Menyu_Yuko"};

// The operation data tab on a scripted line, by default with the example
// data on its screen.
struct TransferRig : OpDataRig {
    explicit TransferRig(bool exampleOnScreen = true)
    {
        if (exampleOnScreen)
            view.shown = exampleScreen();
    }
    void answerRead(const char* reply = ExampleReply)
    {
        answer("0CM6", "0CM6");
        answer("0RP01", reply);
    }
    void read() { ReadFromCt(ctx, state, view).run(); }
    void write() { WriteToCt(ctx, state, view).run(); }
};

} // namespace

class TestOpDataTransfer : public QObject {
    Q_OBJECT

private slots:
    void readExample()
    {
        TransferRig rig(false);
        rig.answerRead();
        rig.state.mEventsOff = true;

        rig.read();

        QCOMPARE(rig.frames(), (QStringList{"0CM6", "0RP01"}));
        QCOMPARE(rig.prompter.shown.size(), 1);
        QCOMPARE(rig.prompter.shown[0].text, QStringLiteral("Read the data from controller, OK?"));
        QCOMPARE(rig.prompter.shown[0].buttons, Prompter::Buttons::YesNo);
        QCOMPARE(rig.prompter.shown[0].icon, Prompter::Icon::Question);

        QCOMPARE(fieldTexts(rig.view.shown), (QStringList{"9000", "1", "12", "1", "30", "1"}));
        QVERIFY(!rig.view.shown.optCW);
        QVERIFY(rig.view.eventsOffWhileShown);
        QVERIFY(!rig.state.mEventsOff);

        QCOMPARE(numbers(rig.state.PosiData, {PosiTable::VEL, PosiTable::DIR}), (QList<qint64>{9000, 1}));
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
        TransferRig rig(false);
        rig.prompter.script({Prompter::Answer::No});
        rig.view.shown.txtVEL = QStringLiteral("120");

        rig.read();

        QVERIFY(rig.frames().isEmpty());
        QCOMPARE(rig.view.showCount, 0);
        QCOMPARE(rig.lock.calls, Locked);
    }

    // Edits are offered a save first. Only a saved file lets the read go on;
    // Cancel, or a Yes whose save is cancelled or fails, keeps the edits.
    void saveQuestionBeforeReading_data()
    {
        QTest::addColumn<Prompter::Answer>("answer");
        QTest::addColumn<QString>("file");   // empty: the save dialog is cancelled
        QTest::addColumn<int>("messages");
        QTest::addColumn<int>("last");
        QTest::addColumn<bool>("read");
        QTest::newRow("Yes, saved") << Prompter::Answer::Yes << "edits.qmd" << 1 << 369 << true;
        QTest::newRow("Cancel") << Prompter::Answer::Cancel << "" << 1 << 369 << false;
        QTest::newRow("Yes, save cancelled") << Prompter::Answer::Yes << "" << 2 << 5000 << false;
        QTest::newRow("Yes, save fails") << Prompter::Answer::Yes << "no/such/folder/a.qmd" << 3 << 5000 << false;
    }
    void saveQuestionBeforeReading()
    {
        QFETCH(Prompter::Answer, answer);
        QFETCH(QString, file);
        QFETCH(int, last);
        QFETCH(bool, read);
        TransferRig rig;
        rig.answerRead();
        ProgramState::instance().gDataChanged = true;
        rig.files.setNextFileName(file.isEmpty() ? file : rig.dir.filePath(file));
        rig.prompter.script({answer});

        rig.read();

        QTEST(int(rig.prompter.shown.size()), "messages");
        QCOMPARE(rig.prompter.shown[0].text, Msg(369));
        QCOMPARE(rig.prompter.shown[0].buttons, Prompter::Buttons::YesNoCancel);
        QCOMPARE(rig.prompter.lastText(), Msg(last));
        QCOMPARE(rig.frames(), (read ? QStringList{"0CM6", "0RP01"} : QStringList{}));
        QCOMPARE(QFileInfo(rig.dir.filePath(file)).isFile(), read);
        QCOMPARE(ProgramState::instance().gDataChanged, !read);
        QVERIFY(!ProgramState::instance().gCommBusy);
    }

    void readWithoutEditsInTheFieldsAsksNothing()
    {
        TransferRig rig(false);
        rig.answerRead();
        ProgramState::instance().gDataChanged = true;

        rig.read();

        QVERIFY(rig.prompter.shown.isEmpty());
        QCOMPARE(rig.frames(), (QStringList{"0CM6", "0RP01"}));
    }

    void readLengthErrorLeavesScreen()
    {
        TransferRig rig;
        rig.answerRead("0RP01");
        rig.answer("0CM6", "0CM6");
        rig.view.shown.comboVEL = QStringLiteral("7");

        rig.read();

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
        TransferRig rig;
        rig.answerRead("0%%101");
        rig.view.shown.comboVEL = QStringLiteral("7");

        rig.read();

        QVERIFY(!rig.link.gCommError);
        QCOMPARE(rig.view.shown.comboVEL, QStringLiteral("30"));
        QCOMPARE(rig.view.shown.txtVEL, QStringLiteral("9000"));
        QVERIFY(rig.state.mDataTitle.isEmpty());
        QVERIFY(!rig.state.mEventsOff);
    }

    void writeExample()
    {
        TransferRig rig;
        rig.answer("0RA", "0RA1");
        rig.answer("0WP012328100000000C01", "0WP01");
        rig.answer("0WA0101", "0WA");
        ProgramState::instance().gDataChanged = true;

        rig.write();

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

    // A status other than at rest stops the write before anything is sent.
    void writeStoppedByStatus_data()
    {
        QTest::addColumn<QByteArray>("status");
        QTest::addColumn<QString>("text");
        QTest::newRow("moving") << QByteArray("0RA0") << "The writing of data is not made during movement.";
        QTest::newRow("status failed") << QByteArray("0RA7") << "Communication Error occured.";
    }
    void writeStoppedByStatus()
    {
        QFETCH(QByteArray, status);
        TransferRig rig;
        rig.answer("0RA", status.constData());
        ProgramState::instance().gDataChanged = true;

        rig.write();

        QCOMPARE(rig.frames(), QStringList{"0RA"});
        QTEST(rig.prompter.lastText(), "text");
        QVERIFY2(!ProgramState::instance().gDataChanged, "cleared after every write command");
        QCOMPARE(rig.lock.calls, Locked);
    }

    void writeCancelled()
    {
        TransferRig rig;
        rig.prompter.script({Prompter::Answer::Cancel});
        ProgramState::instance().gDataChanged = true;

        rig.write();

        QVERIFY(rig.frames().isEmpty());
        QVERIFY(!ProgramState::instance().gDataChanged);
    }

    void writeEchoDiffers()
    {
        TransferRig rig;
        rig.answer("0RA", "0RA2");
        rig.answer("0WP012328100000000C01", "0WP11");

        rig.write();

        QCOMPARE(rig.frames(), (QStringList{"0RA", "0WP012328100000000C01"}));
        QCOMPARE(rig.prompter.lastText(), QStringLiteral("Communication error occurs!\r\n\r\ntransmit data is wrong"));
        QVERIFY(rig.link.gCommError);
        QCOMPARE(rig.progress.calls.last(), QStringLiteral("window hidden"));
    }

    void writeRefusesEmptyField()
    {
        TransferRig rig;
        rig.view.shown.txtACC.clear();

        rig.write();

        QVERIFY(rig.frames().isEmpty());
        QCOMPARE(rig.prompter.texts(), QStringList{"No data in the list.\r\n\r\nInput data and try it again."});
        QCOMPARE(rig.lock.calls, Locked);
    }
};

QTEST_GUILESS_MAIN(TestOpDataTransfer)
#include "tst_opdatatransfer.moc"
