#include "opdata/ReadFromCt.h"
#include "opdata/WriteToCt.h"

#include "OpDataRig.h"

#include <QTest>

namespace {

// VEL 2328, ACC 1, Spare1 0, Spare2 00000, DIR 1, DIVISION 0C, GEAR 01 (hex).
const char* ExampleReply = "0RP012328100000010C01";
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

    // Edits in the fields are offered a save first, and only a saved file
    // lets the read go on; without edits the read is confirmed.
    void questionsBeforeReading_data()
    {
        QTest::addColumn<bool>("changed");
        QTest::addColumn<bool>("filled");
        QTest::addColumn<Prompter::Answer>("answer");
        QTest::addColumn<QString>("file");        // empty: the save dialog is cancelled
        QTest::addColumn<QList<int>>("messages"); // each text begins with that message
        QTest::addColumn<bool>("read");
        using A = Prompter::Answer;
        QTest::newRow("read declined") << false << true << A::No << "" << QList<int>{370} << false;
        QTest::newRow("fields empty: nothing asked") << true << false << A::Yes << "" << QList<int>{} << true;
        QTest::newRow("Yes, saved") << true << true << A::Yes << "edits.qmd" << QList<int>{369} << true;
        QTest::newRow("Cancel") << true << true << A::Cancel << "" << QList<int>{369} << false;
        QTest::newRow("Yes, save cancelled") << true << true << A::Yes << "" << QList<int>{369, 5000} << false;
        QTest::newRow("Yes, save fails") << true << true << A::Yes << "no/such/folder/a.qmd" << QList<int>{369, 4501, 5000}
                                         << false;
    }
    void questionsBeforeReading()
    {
        QFETCH(bool, changed);
        QFETCH(bool, filled);
        QFETCH(Prompter::Answer, answer);
        QFETCH(QString, file);
        QFETCH(QList<int>, messages);
        QFETCH(bool, read);
        TransferRig rig(filled);
        rig.answerRead();
        ProgramState::instance().gDataChanged = changed;
        rig.files.setNextFileName(file.isEmpty() ? file : rig.dir.filePath(file));
        rig.prompter.script({answer});

        rig.read();

        QCOMPARE(rig.prompter.shown.size(), messages.size());
        for (qsizetype i = 0; i < messages.size(); ++i)
            QVERIFY2(rig.prompter.shown[i].text.startsWith(Msg(messages[i])), qPrintable(rig.prompter.shown[i].text));
        if (messages.value(0) == 369)
            QCOMPARE(rig.prompter.shown[0].buttons, Prompter::Buttons::YesNoCancel);
        QCOMPARE(rig.frames(), (read ? QStringList{"0CM6", "0RP01"} : QStringList{}));
        QCOMPARE(QFileInfo(rig.dir.filePath(file)).isFile(), read && !file.isEmpty());
        QCOMPARE(ProgramState::instance().gDataChanged, changed && !read);
        QVERIFY(!ProgramState::instance().gCommBusy);
    }

    // A failed read leaves the screen's values; after an error reply (no
    // communication error) the choices are derived from them again.
    void readFails_data()
    {
        QTest::addColumn<QByteArray>("reply");
        QTest::addColumn<QString>("speedChoice");
        QTest::newRow("wrong length") << QByteArray("0RP01") << "7";
        QTest::newRow("error reply") << QByteArray("0%%101") << "30";
    }
    void readFails()
    {
        QFETCH(QByteArray, reply);
        TransferRig rig;
        rig.answerRead(reply.constData());
        rig.answer("0CM6", "0CM6");
        rig.view.shown.comboVEL = QStringLiteral("7");

        rig.read();

        QTEST(rig.view.shown.comboVEL, "speedChoice");
        QCOMPARE(rig.view.shown.txtVEL, QStringLiteral("9000"));
        QVERIFY(rig.state.mDataTitle.isEmpty());
        QVERIFY(!rig.state.mEventsOff);
        QCOMPARE(rig.progress.calls.last(), QStringLiteral("window hidden"));
        QCOMPARE(rig.lock.calls, Locked);
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
        QCOMPARE(rig.prompter.texts(), QStringList{"Data is transmitted to controller,Yes?"});
        QVERIFY(!ProgramState::instance().gDataChanged);
        QVERIFY(!ProgramState::instance().gCommBusy);
        QCOMPARE(rig.lock.calls, Locked);
        QCOMPARE(rig.progress.calls.first(), QStringLiteral("window Sending Data to the controller... 3"));
        QVERIFY(rig.progress.calls.contains(QStringLiteral("window = 3")));
        QCOMPARE(rig.progress.calls.last(), QStringLiteral("window hidden"));
        QVERIFY(!rig.port.isOpen());
    }

    // An empty field, a cancelled question or a status other than at rest
    // stops the write before anything is written.
    void writeStopped_data()
    {
        QTest::addColumn<bool>("emptyField");
        QTest::addColumn<Prompter::Answer>("answer");
        QTest::addColumn<QByteArray>("status");
        QTest::addColumn<QString>("text");
        using A = Prompter::Answer;
        QTest::newRow("empty field") << true << A::Ok << QByteArray()
                                     << "No data in the list.\r\n\r\nInput data and try it again.";
        QTest::newRow("cancelled") << false << A::Cancel << QByteArray() << "Data is transmitted to controller,Yes?";
        QTest::newRow("moving") << false << A::Ok << QByteArray("0RA0") << "The writing of data is not made during movement.";
        QTest::newRow("status failed") << false << A::Ok << QByteArray("0RA7") << "Communication Error occured.";
    }
    void writeStopped()
    {
        QFETCH(bool, emptyField);
        QFETCH(Prompter::Answer, answer);
        QFETCH(QByteArray, status);
        TransferRig rig;
        if (emptyField)
            rig.view.shown.txtACC.clear();
        if (!status.isEmpty())
            rig.answer("0RA", status.constData());
        rig.prompter.script({answer});
        ProgramState::instance().gDataChanged = true;

        rig.write();

        QCOMPARE(rig.frames(), status.isEmpty() ? QStringList{} : QStringList{"0RA"});
        QTEST(rig.prompter.lastText(), "text");
        QVERIFY2(!ProgramState::instance().gDataChanged, "cleared after every write command");
        QCOMPARE(rig.lock.calls, Locked);
    }

    void writeEchoDiffers()
    {
        TransferRig rig;
        rig.answer("0RA", "0RA2");
        rig.answer("0WP012328100000000C01", "0WP11");

        rig.write();

        QCOMPARE(rig.frames(), (QStringList{"0RA", "0WP012328100000000C01"}));
        QCOMPARE(rig.prompter.lastText(), QStringLiteral("Communication error occurs!\r\n\r\ntransmit data is wrong"));
        QCOMPARE(rig.progress.calls.last(), QStringLiteral("window hidden"));
    }
};

QTEST_GUILESS_MAIN(TestOpDataTransfer)
#include "tst_opdatatransfer.moc"
