#include "ParaFixtures.h"

#include "common/DataFiles.h"
#include "common/MessageTable.h"
#include "device/DeviceList.h"
#include "link/SequenceRig.h"
#include "params/ParaCommandFrame.h"
#include "params/ParaData.h"
#include "params/ParaFile.h"
#include "params/ParaReadCommand.h"
#include "params/ParaScreenTransfer.h"
#include "params/ParaVerifyCommand.h"
#include "params/ParaWriteCommand.h"

#include <QTemporaryDir>
#include <QTest>

namespace {

const QString Question = QStringLiteral("Save the editing data before reading data?");
const QString Empty = QStringLiteral("No data in some of parameters.\r\n Please fill the data in and try it again.");
const QString NoDeviceList = QStringLiteral("No device list file.\r\nPut device list file in the folder in which the program is "
                                            "saved in order to indicate device information correctly.");
// A transfer between the lock calls.
QStringList Locked(const QStringList& transfer)
{
    return QStringList{"Menyu_Muko", "ParaCMDBTN_Muko", "tabs off"} + transfer + QStringList{"tabs on", "ParaCMDBTN_Yuko", "Menyu_Yuko"};
}

// Block 1 of the size-28 set with another size byte and size code.
QString Block1(const QString& size = "1C", const QString& code = "00")
{
    return Size28Digits()[1].replace(18, 2, size).replace(26, 2, code);
}

// A parameter page on a scripted controller: English, port-occupy off, the
// device list of four sizes beside the "program", the page showing size 28.
struct ParaRig : SequenceRig {
    ParaRig()
    {
        link.setTimeoutMs(2000);
        progress.recordInto(lock.calls);
        DataFiles::setProgramFolder(dir.path());
        WriteBytes(dir.filePath("nqmdevice.lst"), "4\r\n\"28\",1,2,3,4\r\n\"35\",1,2,3,4\r\n\"42\",1,2,3,4\r\n\"SP\",1,2,3,4\r\n");
        data.set = Size28Set();
        ParametaHyoji(data.set, screen);
    }
    ~ParaRig() { DataFiles::setProgramFolder({}); }

    // The controller answers reads of blocks 0 to 2 (block 1 as given) and 7 (with a current).
    void answerReads(const QString& block1 = Block1(), const QString& current = "0AFC")
    {
        const QString digits[] = {Size28Digits()[0], block1, Size28Digits()[2]};
        for (int b = 0; b < 3; ++b)
            port.answer("0RD" + QByteArray::number(b), ReadReply(b, digits[b]).toLatin1());
        port.answer("0RD7", ReadReply(7, "0123456789AB" + current + QString(16, u'0')).toLatin1());
    }
    void answerWrite(const QString& block1 = Block1())
    {
        const QString digits[] = {Size28Digits()[0], block1, Size28Digits()[2]};
        port.answer("0RA", "0RA1\r\n");
        for (int b = 0; b < 3; ++b)
            port.answer(QStringLiteral("0WD%1%2").arg(b).arg(digits[b]).toLatin1(), "0WD" + QByteArray::number(b) + "\r\n");
        port.answer("0WE", "0WE\r\n");
    }

    DeviceList devices;
    ParaData data;
    ParaScreen screen;
};

} // namespace

Q_DECLARE_METATYPE(Prompter::Answer)

class TestParaTransfer : public QObject {
    Q_OBJECT

private slots:
    // The set is taken in only when all of it came in and fits; otherwise the
    // page is left as it was. The current of the special actuator is shown
    // only when the 16-bit display arithmetic does not overflow (1.5 A does).
    void read_data()
    {
        QTest::addColumn<QString>("block1");
        QTest::addColumn<int>("frames");
        QTest::addColumn<QStringList>("texts");
        QTest::addColumn<QString>("sizeTaken");
        QTest::newRow("size 28") << Block1() << 4 << QStringList() << "28";
        QTest::newRow("SP current too large to show") << Block1("14", "03") << 4 << QStringList{"The operating current in the controller is too large to be shown. The other parameters have been read."} << "20";
        QTest::newRow("error reply to block 1") << "error" << 2 << QStringList{UnknownText} << "";
        QTest::newRow("motor number beyond 16 bits") << Size28Digits()[1].replace(22, 4, "8000") << 3 << QStringList{"The controller holds a parameter value that this program cannot take in. The display is left as it was."} << "";
        QTest::newRow("no device list") << "" << 0 << QStringList{NoDeviceList, "Failed check of parameters."} << "";
    }
    void read()
    {
        QFETCH(QString, block1);
        QFETCH(int, frames);
        QFETCH(QString, sizeTaken);
        ParaRig rig;
        rig.data.set.home.vel = 20;
        const ParaSet earlier = rig.data.set;
        rig.data.image[1] = 4321;
        rig.data.paraEdited = true;
        rig.screen.txtHomeOffset = "77";
        rig.screen.txtDenryu = "0.9";
        if (block1 == "error")
            rig.port.answer("0RD1", "0%%101\r\n");
        if (block1.isEmpty())
            QFile::remove(rig.dir.filePath("nqmdevice.lst"));
        rig.answerReads(block1);
        ProgramState::instance().gCommBusy = true;
        ParaReadCommand(rig.ctx, rig.data, rig.devices).cmdParaRead_Click(rig.screen);
        QCOMPARE(rig.port.frames, (QList<QByteArray>{"0RD0", "0RD1", "0RD2", "0RD7"}.mid(0, frames)));
        QTEST(rig.prompter.texts(), "texts");
        QVERIFY(!ProgramState::instance().gCommBusy && !rig.port.isOpen());
        QCOMPARE(rig.screen.txtDenryu, sizeTaken == "28" ? "1.5" : "0.9");
        QCOMPARE(rig.data.set.axis.sizeText, sizeTaken.isEmpty() ? "28" : sizeTaken);
        QCOMPARE(rig.data.set.home.vel, sizeTaken.isEmpty() ? 20 : 10);
        QCOMPARE(rig.screen.txtHomeOffset, sizeTaken.isEmpty() ? "77" : "30");
        QCOMPARE(rig.data.paraEdited, sizeTaken.isEmpty());
        if (sizeTaken == "28") {
            QCOMPARE(Fields(rig.data.set), Fields(Size28Set()));
            QCOMPARE(rig.lock.calls, Locked({"bar 4", "bar = 1", "bar = 2", "bar = 3", "bar hidden"}));
        }
        if (sizeTaken.isEmpty())
            QCOMPARE(Fields(rig.data.set), Fields(earlier));
        // Nothing is decoded unless all three blocks came in.
        if (frames < 3)
            QCOMPARE(rig.data.image[1].toInt(), 4321);
    }

    void saveQuestionBeforeReading_data()
    {
        QTest::addColumn<bool>("edited");
        QTest::addColumn<bool>("emptyBox");
        QTest::addColumn<Prompter::Answer>("answer");
        QTest::addColumn<QStringList>("texts");
        QTest::addColumn<int>("frames");
        ProgramState::instance().gMsgBase = MessageTable::EnglishBase;
        QTest::newRow("edited, empty box, Cancel") << true << true << Prompter::Answer::Cancel << QStringList{Question} << 0;
        QTest::newRow("edited, empty box, No") << true << true << Prompter::Answer::No << QStringList{Question} << 4;
        QTest::newRow("Yes: the save refuses, nothing is read") << true << true << Prompter::Answer::Yes << QStringList{Question, Empty, Msg(5000)} << 0;
        QTest::newRow("edited, boxes filled") << true << false << Prompter::Answer::Cancel << QStringList{} << 4;
        QTest::newRow("not edited") << false << true << Prompter::Answer::Cancel << QStringList{} << 4;
    }
    void saveQuestionBeforeReading()
    {
        QFETCH(bool, edited);
        QFETCH(bool, emptyBox);
        QFETCH(Prompter::Answer, answer);
        ParaRig rig;
        if (emptyBox)
            rig.screen.txtPgAlarm.clear();
        rig.data.paraEdited = edited;
        rig.prompter.script({answer});
        rig.answerReads(Block1(), "0000");
        ParaReadCommand(rig.ctx, rig.data, rig.devices).GetParametaValue(rig.screen);
        QTEST(rig.prompter.texts(), "texts");
        if (!rig.prompter.shown.isEmpty())
            QCOMPARE(rig.prompter.shown[0].buttons, Prompter::Buttons::YesNoCancel);
        QTEST(int(rig.port.frames.size()), "frames");
    }

    void write_data()
    {
        QTest::addColumn<QString>("vel");
        QTest::addColumn<Prompter::Answer>("answer");
        QTest::addColumn<QByteArray>("status");
        QTest::addColumn<QString>("told");
        QTest::addColumn<int>("frames");
        const auto yes = Prompter::Answer::Yes;
        QTest::newRow("size 28: four commands") << "10" << yes << QByteArray("0RA1\r\n") << "Completed writing parameters." << 5;
        QTest::newRow("No") << "10" << Prompter::Answer::No << QByteArray("0RA1\r\n") << QString() << 0;
        QTest::newRow("empty box") << "" << yes << QByteArray("0RA1\r\n") << Empty << 0;
        QTest::newRow("VEL 61") << "61" << yes << QByteArray("0RA1\r\n") << "Invalid value in some parameters.\r\nConfirm the value, and try it again." << 0;
        QTest::newRow("moving") << "10" << yes << QByteArray("0RA0\r\n") << "The writing of data is not made during movement." << 1;
        QTest::newRow("unknown status") << "10" << yes << QByteArray("0RA5\r\n") << "Communication Error occured." << 1;
    }
    void write()
    {
        QFETCH(QString, vel);
        QFETCH(Prompter::Answer, answer);
        QFETCH(QByteArray, status);
        QFETCH(QString, told);
        QFETCH(int, frames);
        ParaRig rig;
        rig.data.paraEdited = true;
        rig.screen.txtHomeVel = vel;
        rig.prompter.script({answer});
        rig.port.answer("0RA", status);
        rig.answerWrite();
        ParaWriteCommand(rig.ctx, rig.data).cmdParaWrite_Click(rig.screen);
        QCOMPARE(rig.prompter.texts(), QStringList{"Send parameters to controller?"} + (told.isNull() ? QStringList() : QStringList{told}));
        QCOMPARE(rig.prompter.shown[0].buttons, Prompter::Buttons::YesNo);
        const auto d = Size28Digits();
        const QList<QByteArray> all{"0RA", "0WD0" + d[0].toLatin1(), "0WD1" + d[1].toLatin1(), "0WD2" + d[2].toLatin1(), "0WE"};
        QCOMPARE(rig.port.frames, all.mid(0, frames));
        QCOMPARE(rig.data.paraEdited, frames < 5);
        if (frames == 5)
            QCOMPARE(rig.lock.calls, Locked({"window Sending Data to the controller... 7", "window = 0", "window = 1", "window = 2", "window = 3", "window = 4", "window hidden"}));
    }

    void specialActuatorFailures_data()
    {
        QTest::addColumn<QString>("current");
        QTest::addColumn<QString>("block7");
        QTest::addColumn<int>("message");
        QTest::newRow("current not a number") << "abc" << QStringLiteral("0000") << 4301;
        QTest::newRow("block 7 not hexadecimal") << "1.5" << QStringLiteral("ZZZZ") << 385;
    }
    void specialActuatorFailures()
    {
        QFETCH(QString, block7);
        ParaRig rig;
        rig.data.set.axis.sizeText = "20";
        ParametaHyoji(rig.data.set, rig.screen);
        QFETCH(QString, current);
        rig.screen.txtDenryu = current;
        rig.answerWrite(Block1("14", "03"));
        rig.port.answer("0RD7", ReadReply(7, "0123456789AB" + block7 + QString(16, u'0')).toLatin1());
        ParaWriteCommand(rig.ctx, rig.data).WriteParaWorker(rig.screen);
        QCOMPARE(rig.port.frames.last(), "0RD7");
        QFETCH(int, message);
        QCOMPARE(rig.prompter.texts().mid(1), (QStringList{Msg(message), "Fail to Write parameters."}));
    }

    // An incomplete page is refused before anything is sent.
    void verifyWithTheController()
    {
        ParaRig rig;
        rig.screen.txtHomeOffset = "0";
        ParaVerifyCommand(rig.ctx, rig.data).cmdConpareCT_Click(rig.screen);
        QCOMPARE(rig.prompter.texts(), QStringList{MsgLines({1524, 1525})});
        QVERIFY(rig.port.frames.isEmpty());
        rig.screen.txtHomeOffset = "30";
        rig.screen.txtPgAlarm = "999";
        rig.answerReads();
        ParaVerifyCommand(rig.ctx, rig.data).cmdConpareCT_Click(rig.screen);
        QCOMPARE(rig.port.frames, (QList<QByteArray>{"0RD0", "0RD1", "0RD2"}));
        QCOMPARE(rig.prompter.lastText(), "Result of Verify - NG\r\n<PG Parameter> :ALM,\r\n");
    }

    void verifyWithAFile_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QStringList>("texts");
        const QString failed = QStringLiteral("Fail to open parameter file.");
        QTest::newRow("LS TIMER differs") << QByteArray() << QStringList{"Result of Verify - NG\r\n<SP Parameter> :LS TIMER,\r\n"};
        QTest::newRow("not a parameter file") << QByteArray("\"QM-KTR\",\"QMD\",1\r\n") << QStringList{"Not parameter file for QM-B4.\r\nOpening file is canceled.", failed};
        QTest::newRow("short file") << QByteArray("\"QM-KTR\",\"PRM\",6\r\n\"HOME\",5,1\r\n1\r\n") << QStringList{failed};
    }
    void verifyWithAFile()
    {
        QFETCH(QByteArray, content);
        ParaRig rig;
        const QString path = rig.dir.filePath("other.pmt");
        ParaSet other = Size28Set();
        other.special.lsTimer = 11;
        QCOMPARE(SaveParaFile(path, other), 0);
        if (!content.isEmpty())
            WriteBytes(path, content);
        rig.files.setNextFileName(path);
        ParaVerifyCommand(rig.ctx, rig.data).cmdConpareFile_Click(rig.screen);
        QTEST(rig.prompter.texts(), "texts");
        QCOMPARE(rig.files.requests[0].title, "Open Parameter file");
        QVERIFY(rig.port.frames.isEmpty());
    }

    // An exception leaving a transaction still gives everything back.
    void exceptionLeavesNothingHeld()
    {
        ParaRig rig;
        QCOMPARE(rig.link.OpenCommPort(), 0);
        QVERIFY_THROWS_EXCEPTION(std::runtime_error,
                                 runParaTransaction(rig.ctx, [] { throw std::runtime_error("thrown"); }));
        QCOMPARE(rig.lock.calls, Locked({}));
        QVERIFY(!ProgramState::instance().gCommBusy);
        QVERIFY(!rig.link.isPortOpen());
    }
};

QTEST_GUILESS_MAIN(TestParaTransfer)
#include "tst_paratransfer.moc"
