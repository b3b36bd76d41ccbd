#include "ParaRig.h"

#include "common/MessageTable.h"
#include "params/ParaBlockCodec.h"
#include "params/ParaFile.h"
#include "params/ParaMemoryMap.h"
#include "params/ParaReadCommand.h"
#include "params/ParaVerifyCommand.h"
#include "params/ParaWriteCommand.h"

#include <QTest>

namespace {

const QString SendingWindow = QStringLiteral("window Sending Data to the controller... 7");

std::array<QString, 3> spDigits()
{
    std::array<QString, 3> d = Size28Digits();
    d[1].replace(18, 2, QStringLiteral("14")); // size 20
    d[1].replace(26, 2, QStringLiteral("03")); // its size code
    return d;
}

void answerWrite(FakeSerialPort& port, const ParaSet& set)
{
    port.answer("0RA", "0RA1\r\n");
    const auto blocks = EncodeParaBlocks(set);
    for (int b = 0; b < 3; ++b)
        port.answer("0WD" + blocks.at(size_t(b)).toLatin1(), "0WD" + QByteArray::number(b) + "\r\n");
    port.answer("0WE", "0WE\r\n");
}

QStringList writeFrames(const ParaSet& set)
{
    const auto blocks = EncodeParaBlocks(set);
    return {"0RA", "0WD" + blocks[0], "0WD" + blocks[1], "0WD" + blocks[2], "0WE"};
}

ParaSet spSet()
{
    ParaSet set = Size28Set();
    set.axis.sizeText = QStringLiteral("20");
    set.axis.motorCode = QStringLiteral("20L100");
    return set;
}

} // namespace

Q_DECLARE_METATYPE(Prompter::Answer)

class TestParaTransfer : public QObject {
    Q_OBJECT

private slots:
    void readShowsTheControllersSet()
    {
        ParaRig rig;
        ParaSet earlier = Size28Set();
        earlier.home.vel = 20;
        rig.show(earlier);
        rig.data.paraEdited = true;
        rig.answerReads(Size28Digits());
        rig.answerBlock7(QStringLiteral("0AFC"));
        ParaReadCommand(rig.context, rig.data, rig.devices).cmdParaRead_Click(rig.screen);

        QCOMPARE(rig.frames(), (QStringList{"0RD0", "0RD1", "0RD2", "0RD7"}));
        QVERIFY(rig.prompter.shown.isEmpty());
        QVERIFY(SameSet(rig.data.set, Size28Set()));
        QCOMPARE(rig.data.image[MotorCodeEntry].toString(), QStringLiteral("28L100"));
        QCOMPARE(rig.screen.txtHomeVel, QStringLiteral("10"));
        QCOMPARE(rig.screen.txtDenryu, QStringLiteral("1.5"));
        QVERIFY(!rig.data.paraEdited);
        QCOMPARE(rig.progress.calls, (QStringList{"bar 4", "bar = 1", "bar = 2", "bar = 3", "bar hidden"}));
        QCOMPARE(rig.lock.calls, (QStringList{"Menyu_Muko", "ParaCMDBTN_Muko", "tabs off", "tabs on", "ParaCMDBTN_Yuko", "Menyu_Yuko"}));
        QVERIFY(!ProgramState::instance().gCommBusy);
        QVERIFY(!rig.port.isOpen());
    }

    // Nothing is converted unless all three blocks came in.
    void failedReadLeavesEverything()
    {
        ParaRig rig;
        rig.show(Size28Set());
        rig.data.image[1] = 4321;
        rig.screen.txtHomeOffset = QStringLiteral("77");
        rig.port.answer("0RD1", "0%%101\r\n");
        rig.answerReads(spDigits());
        ProgramState::instance().gCommBusy = true;
        ParaReadCommand(rig.context, rig.data, rig.devices).GetParametaValue(rig.screen);

        QCOMPARE(rig.frames(), (QStringList{"0RD0", "0RD1"}));
        QCOMPARE(rig.prompter.shown.size(), 1);
        QVERIFY(rig.prompter.lastText().startsWith(QStringLiteral("Communication error occurs!")));
        QCOMPARE(rig.data.image[1].toInt(), 4321);
        QCOMPARE(rig.screen.txtHomeOffset, QStringLiteral("77"));
        QVERIFY(SameSet(rig.data.set, Size28Set()));
        QCOMPARE(rig.progress.calls.last(), QStringLiteral("bar hidden"));
        QVERIFY(!ProgramState::instance().gCommBusy);
    }

    // 1.5 A overflows the 16-bit display arithmetic: the user is told, the
    // parameters stay shown and the box keeps its text.
    void spCurrentTooLargeToShow()
    {
        ParaRig rig;
        rig.screen.txtDenryu = QStringLiteral("0.9");
        rig.answerReads(spDigits());
        rig.answerBlock7(QStringLiteral("0AFC"));
        ParaReadCommand(rig.context, rig.data, rig.devices).GetParametaValue(rig.screen);
        QCOMPARE(rig.prompter.texts(), QStringList{Msg(4300)});
        QCOMPARE(rig.prompter.shown[0].icon, Prompter::Icon::Exclamation);
        QCOMPARE(rig.screen.txtDenryu, QStringLiteral("0.9"));
        QCOMPARE(rig.screen.txtPgAlarm, QStringLiteral("1000"));
        QCOMPARE(rig.data.set.axis.sizeText, QStringLiteral("20"));
    }

    void motorNumberBeyond16Bits()
    {
        ParaRig rig;
        rig.show(Size28Set());
        std::array<QString, 3> digits = Size28Digits();
        digits[1].replace(22, 4, QStringLiteral("8000"));
        rig.answerReads(digits);
        ParaReadCommand(rig.context, rig.data, rig.devices).GetParametaValue(rig.screen);
        QCOMPARE(rig.prompter.texts(), QStringList{Msg(4303)});
        QCOMPARE(rig.frames(), (QStringList{"0RD0", "0RD1", "0RD2"}));
        QVERIFY(SameSet(rig.data.set, Size28Set()));
    }

    void saveQuestionBeforeReading_data()
    {
        QTest::addColumn<bool>("edited");
        QTest::addColumn<bool>("emptyBox");
        QTest::addColumn<Prompter::Answer>("answer");
        QTest::addColumn<QStringList>("texts");
        QTest::addColumn<int>("frames");
        const QString question = QStringLiteral("Save the editing data before reading data?");
        const QString empty = QStringLiteral("No data in some of parameters.\r\n Please fill the data in and try it again.");
        QTest::newRow("edited, empty box, Cancel") << true << true << Prompter::Answer::Cancel << QStringList{question} << 0;
        QTest::newRow("edited, empty box, No") << true << true << Prompter::Answer::No << QStringList{question} << 4;
        QTest::newRow("edited, empty box, Yes: the save refuses, nothing is read")
            << true << true << Prompter::Answer::Yes << QStringList{question, empty, "The edited data was not saved, so nothing was read. The edited data is kept as it is."} << 0;
        QTest::newRow("edited, boxes filled") << true << false << Prompter::Answer::Cancel << QStringList{} << 4;
        QTest::newRow("not edited") << false << true << Prompter::Answer::Cancel << QStringList{} << 4;
    }
    void saveQuestionBeforeReading()
    {
        QFETCH(bool, edited);
        QFETCH(bool, emptyBox);
        QFETCH(Prompter::Answer, answer);
        QFETCH(QStringList, texts);
        QFETCH(int, frames);
        ParaRig rig;
        rig.show(Size28Set());
        if (emptyBox)
            rig.screen.txtPgAlarm.clear();
        rig.data.paraEdited = edited;
        rig.prompter.script({answer});
        rig.answerReads(Size28Digits());
        rig.answerBlock7(QStringLiteral("0000"));
        ParaReadCommand(rig.context, rig.data, rig.devices).GetParametaValue(rig.screen);
        QCOMPARE(rig.prompter.texts(), texts);
        if (!texts.isEmpty()) {
            QCOMPARE(rig.prompter.shown[0].buttons, Prompter::Buttons::YesNoCancel);
            QCOMPARE(rig.prompter.shown[0].icon, Prompter::Icon::Question);
        }
        QCOMPARE(rig.port.frames.size(), frames);
    }

    void missingDeviceListStopsTheRead()
    {
        ParaRig rig;
        QFile::remove(rig.dir.filePath(QStringLiteral("nqmdevice.lst")));
        ParaReadCommand(rig.context, rig.data, rig.devices).GetParametaValue(rig.screen);
        QCOMPARE(rig.prompter.texts(), (QStringList{MsgLines({15, 16}), "Failed check of parameters."}));
        QVERIFY(rig.port.frames.isEmpty());
    }

    void writeOfSize28SendsFourCommands()
    {
        ParaRig rig;
        rig.show(Size28Set());
        rig.data.paraEdited = true;
        answerWrite(rig.port, Size28Set());
        ParaWriteCommand(rig.context, rig.data).cmdParaWrite_Click(rig.screen);

        QCOMPARE(rig.frames(), writeFrames(Size28Set()));
        QCOMPARE(rig.frames()[1], QStringLiteral("0WD0001E1E0A0A0A0003E8000A0A00000000"));
        QCOMPARE(rig.prompter.texts(), (QStringList{"Send parameters to controller?", "Completed writing parameters."}));
        QCOMPARE(rig.prompter.shown[0].buttons, Prompter::Buttons::YesNo);
        QCOMPARE(rig.progress.calls, (QStringList{SendingWindow, "window = 0", "window = 1", "window = 2",
                                                  "window = 3", "window = 4", "window hidden"}));
        QVERIFY(!rig.data.paraEdited);
        QVERIFY(!ProgramState::instance().gCommBusy);
        QCOMPARE(rig.lock.calls, (QStringList{"Menyu_Muko", "ParaCMDBTN_Muko", "tabs off", "tabs on", "ParaCMDBTN_Yuko", "Menyu_Yuko"}));
    }

    void writeOfTheSpecialActuatorSendsSeven()
    {
        ParaRig rig;
        rig.show(spSet());
        rig.screen.txtDenryu = QStringLiteral("1.5");
        answerWrite(rig.port, spSet());
        rig.answerBlock7(QStringLiteral("FFFF"));
        rig.port.answer("0WD70123456789AB0AFC0000000000000000", "0WD7\r\n");
        rig.port.answer("0WF", "0WF\r\n");
        ParaWriteCommand(rig.context, rig.data).WriteParaWorker(rig.screen);

        const QStringList block7Frames{"0RD7", "0WD70123456789AB0AFC0000000000000000", "0WF"};
        QCOMPARE(rig.frames(), writeFrames(spSet()) + block7Frames);
        QCOMPARE(rig.prompter.lastText(), QStringLiteral("Completed writing parameters."));
        QCOMPARE(rig.progress.calls.mid(6), (QStringList{"window = 5", "window = 6", "window = 7", "window hidden"}));
    }

    void writeRefusals_data()
    {
        QTest::addColumn<QString>("vel");
        QTest::addColumn<Prompter::Answer>("answer");
        QTest::addColumn<QByteArray>("status");
        QTest::addColumn<QStringList>("texts");
        QTest::addColumn<int>("frames");
        const QString question = QStringLiteral("Send parameters to controller?");
        QTest::newRow("No") << "10" << Prompter::Answer::No << QByteArray("0RA1\r\n") << QStringList{question} << 0;
        QTest::newRow("empty box") << "" << Prompter::Answer::Yes << QByteArray("0RA1\r\n")
            << QStringList{question, "No data in some of parameters.\r\n Please fill the data in and try it again."} << 0;
        QTest::newRow("VEL 61") << "61" << Prompter::Answer::Yes << QByteArray("0RA1\r\n")
            << QStringList{question, "Invalid value in some parameters.\r\nConfirm the value, and try it again."} << 0;
        QTest::newRow("moving") << "10" << Prompter::Answer::Yes << QByteArray("0RA0\r\n")
            << QStringList{question, "The writing of data is not made during movement."} << 1;
        QTest::newRow("unknown status") << "10" << Prompter::Answer::Yes << QByteArray("0RA5\r\n")
            << QStringList{question, "Communication Error occured."} << 1;
    }
    void writeRefusals()
    {
        QFETCH(QString, vel);
        QFETCH(Prompter::Answer, answer);
        QFETCH(QByteArray, status);
        QFETCH(QStringList, texts);
        QFETCH(int, frames);
        ParaRig rig;
        rig.show(Size28Set());
        rig.screen.txtHomeVel = vel;
        rig.prompter.script({answer});
        rig.port.answer("0RA", status);
        ParaWriteCommand(rig.context, rig.data).WriteParaWorker(rig.screen);
        QCOMPARE(rig.prompter.texts(), texts);
        QCOMPARE(rig.port.frames.size(), frames);
    }

    // A reply naming another block: the write stops before "0WE".
    void wrongEchoStopsTheWrite()
    {
        ParaRig rig;
        rig.show(Size28Set());
        const auto blocks = EncodeParaBlocks(Size28Set());
        rig.port.answer("0RA", "0RA1\r\n");
        rig.port.answer("0WD" + blocks[0].toLatin1(), "0WD0\r\n");
        rig.port.answer("0WD" + blocks[1].toLatin1(), "0WD0\r\n");
        ParaWriteCommand(rig.context, rig.data).WriteParaWorker(rig.screen);
        QCOMPARE(rig.port.frames.size(), 3);
        QCOMPARE(rig.prompter.texts().mid(1), (QStringList{"Communication error occurs!", "Fail to Write parameters."}));
        QVERIFY(rig.link.gCommError);
        QCOMPARE(rig.progress.calls.last(), QStringLiteral("window hidden"));
    }

    void specialActuatorFailures_data()
    {
        QTest::addColumn<QString>("current");
        QTest::addColumn<QString>("block7");
        QTest::addColumn<int>("message");
        QTest::newRow("current not a number") << "abc" << "0123456789AB0000" << 4301;
        QTest::newRow("block 7 not hexadecimal") << "1.5" << "0123456789ABZZZZ" << 385;
    }
    void specialActuatorFailures()
    {
        QFETCH(QString, current);
        QFETCH(QString, block7);
        QFETCH(int, message);
        ParaRig rig;
        rig.show(spSet());
        rig.screen.txtDenryu = current;
        answerWrite(rig.port, spSet());
        rig.port.answer("0RD7", ("0RD7" + block7 + QString(16, u'0') + "\r\n").toLatin1());
        ParaWriteCommand(rig.context, rig.data).WriteParaWorker(rig.screen);
        QCOMPARE(rig.frames().last(), QStringLiteral("0RD7"));
        QCOMPARE(rig.prompter.texts().mid(1), (QStringList{Msg(message), "Fail to Write parameters."}));
    }

    void verifyWithTheController_data()
    {
        QTest::addColumn<QString>("alm");
        QTest::addColumn<QString>("report");
        QTest::newRow("equal") << "1000" << "Result of Verify - OK";
        QTest::newRow("ALM differs") << "999" << "Result of Verify - NG\r\n<PG Parameter> :ALM,\r\n";
    }
    void verifyWithTheController()
    {
        QFETCH(QString, alm);
        QFETCH(QString, report);
        ParaRig rig;
        rig.show(Size28Set());
        rig.screen.txtPgAlarm = alm;
        rig.answerReads(Size28Digits());
        ParaVerifyCommand(rig.context, rig.data).cmdConpareCT_Click(rig.screen);
        QCOMPARE(rig.frames(), (QStringList{"0RD0", "0RD1", "0RD2"}));
        QCOMPARE(rig.prompter.texts(), QStringList{report});
        QCOMPARE(rig.prompter.shown[0].buttons, Prompter::Buttons::Ok);
    }

    void verifyRefusesAnIncompletePage()
    {
        ParaRig rig;
        rig.show(Size28Set());
        rig.screen.txtHomeOffset = QStringLiteral("0");
        ParaVerifyCommand(rig.context, rig.data).CompareWithController(rig.screen);
        QCOMPARE(rig.prompter.texts(), QStringList{MsgLines({1524, 1525})});
        QVERIFY(rig.port.frames.isEmpty());
    }

    void verifyWithAFile()
    {
        ParaRig rig;
        rig.show(Size28Set());
        ParaSet other = Size28Set();
        other.special.lsTimer = 11;
        const QString path = rig.dir.filePath(QStringLiteral("other.pmt"));
        QCOMPARE(SaveParaFile(path, other), 0);
        rig.files.setNextFileName(path);
        ParaVerifyCommand(rig.context, rig.data).cmdConpareFile_Click(rig.screen);
        QCOMPARE(rig.prompter.texts(), QStringList{"Result of Verify - NG\r\n<SP Parameter> :LS TIMER,\r\n"});
        QCOMPARE(rig.files.requests[0].title, QStringLiteral("Open Parameter file"));
        QVERIFY(rig.port.frames.isEmpty());
    }

    void verifyWithAFileThatCannotBeLoaded_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QStringList>("texts");
        const QString failed = QStringLiteral("Fail to open parameter file.");
        QTest::newRow("not a parameter file") << QByteArray("\"QM-KTR\",\"QMD\",1\r\n")
            << QStringList{"Not parameter file for QM-B4.\r\nOpening file is canceled.", failed};
        QTest::newRow("short file") << QByteArray("\"QM-KTR\",\"PRM\",6\r\n\"HOME\",5,1\r\n1\r\n")
            << QStringList{failed};
    }
    void verifyWithAFileThatCannotBeLoaded()
    {
        QFETCH(QByteArray, content);
        QFETCH(QStringList, texts);
        ParaRig rig;
        rig.show(Size28Set());
        rig.writeFile(QStringLiteral("bad.pmt"), content);
        rig.files.setNextFileName(rig.dir.filePath(QStringLiteral("bad.pmt")));
        ParaVerifyCommand(rig.context, rig.data).CompareWithFile(rig.screen);
        QCOMPARE(rig.prompter.texts(), texts);
    }
};

QTEST_GUILESS_MAIN(TestParaTransfer)
#include "tst_paratransfer.moc"
