#include "common/FileBytes.h"
#include "common/ProgramState.h"
#include "common/Waiter.h"
#include "sim/SimController.h"
#include "sim/SimOptions.h"
#include "support/FileSizeLimit.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

// What a fresh virtual controller holds, written out from the memory map by
// hand (not taken from the code under test), and a pattern to write over it.
namespace FactoryMemory {
// OFFSET 30, HOME byte 30, VEL 10, OFSVEL 10, speed 10, PG FUNCTION 0,
// ALM 1000, AUTO HOME 0, PG TIMER 10, LS TIMER 10, flag 0, EMG 0, ALM1 CLEAR 0.
inline const QByteArray Block0 = "001E1E0A0A0A0003E8000A0A00000000";
// Type 2, AXIS byte 2, PULSE 400, 65535, 20, AUTODRIVE 0, motor "1C" "L" 100, size code 00.
inline const QByteArray Block1 = "0202019000FFFF14001C4C0064000000";
// The operating current 1.5 A (2812 = 0AFC) at data digits 13 to 16.
inline const QByteArray Block7 = "0000000000000AFC0000000000000000";
// VEL 300, ACC 1, spares 0, DIR CW, DIVISION 12, GEAR 1.
inline const QByteArray Record1 = "012C100000000C01";
inline const QByteArray OtherBlock = "0123456789ABCDEF0123456789ABCDEF";
inline const QByteArray OtherRecord = "2328100000000C01";
} // namespace FactoryMemory

// A fresh controller, with the faults of ktr-sim's options if given, and a
// client on its line that writes requests and gathers what comes back, with
// the time each piece arrived.
class SimLine : public QObject {
public:
    explicit SimLine(const QStringList& faultOptions = {})
    {
        QString error;
        controller.setFaults(SimOptions::parse(faultOptions, &error).value().faults);
        connect(&controller, &SimController::output, this, [this](const QByteArray& bytes) {
            received += bytes;
            pieces.append(bytes);
            arrivalsMs.append(m_clock.elapsed());
            Waiter::wake();
        });
    }

    // Sends request + CR LF; what arrived up to the first line end (or within the time limit).
    QByteArray ask(const QByteArray& request, int timeoutMs = 1000)
    {
        send(request + "\r\n");
        waitForLines(1, timeoutMs);
        return received;
    }
    QList<QByteArray> askAll(const QList<QByteArray>& requests)
    {
        QList<QByteArray> replies;
        for (const QByteArray& r : requests)
            replies.append(ask(r));
        return replies;
    }
    void send(const QByteArray& bytes)
    {
        received.clear();
        pieces.clear();
        arrivalsMs.clear();
        m_clock.restart();
        controller.receive(bytes);
    }
    bool waitForLines(int count, int timeoutMs = 1000)
    {
        return Waiter::waitUntil([this, count] { return received.count("\r\n") >= count; }, timeoutMs)
            == Waiter::Result::Done;
    }

    SimController controller;
    QByteArray received;
    QList<QByteArray> pieces;
    QList<qint64> arrivalsMs; // since the last send

private:
    QElapsedTimer m_clock;
};

using namespace FactoryMemory;

namespace {

// Rows of requests that all get the same reply (the request's own echo when none is given).
void addRows(std::initializer_list<std::pair<const char*, QByteArray>> rows, const QByteArray& reply = {})
{
    for (const auto& [name, request] : rows)
        QTest::newRow(name) << request << (reply.isEmpty() ? request + "\r\n" : "0%%" + reply + "\r\n");
}

// Polls the status as the tool does until it is no longer "moving"; the time taken.
qint64 pollUntilStill(SimLine& line, QByteArray& status)
{
    QElapsedTimer clock;
    clock.start();
    while ((status = line.ask("0RA")) == "0RA0\r\n" && clock.elapsed() < 5000)
        Waiter::sleep(1);
    return clock.elapsed();
}

} // namespace

// The virtual controller: its protocol at rest and while moving, refusals of
// malformed requests, the faults it can be told to show, its motion and
// alarms, its memory and state file, and ktr-sim's command line.
class TestSimController : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        ProgramState::instance().gMsgBase = 10000;
        QFile::remove(state);
    }

    void malformedRequests_data()
    {
        QTest::addColumn<QByteArray>("request");
        QTest::addColumn<QByteArray>("reply");
        addRows({{"unknown letters", "0XY"}, {"lower-case letters", "0rd0"}, {"too short", "0R"}}, "101");
        addRows({{"record X", "0RPX"}, {"lower-case hex", "0RP0a"}, {"outputs not hex", "0WOX1"}}, "102");
        addRows({{"two block digits", "0RD00"}, {"status with data", "0RA1"}, {"block short by one", "0WD0" + OtherBlock.left(31)}, {"record short", "0WP012328100000000C0"}, {"store with data", "0WE0"}}, "103");
        addRows({{"mode 8", "0CM8"}, {"block 3", "0RD3"}, {"write block 6", "0WD6" + OtherBlock}, {"record 64", "0RP40"}, {"move with empty record", "0MP02"}, {"write record 0", "0WP002328100000000C01"}, {"ACC 4", "0WP012328400000000C01"}, {"DIR 2", "0WP012328100000020C01"}, {"GEAR 0", "0WP012328100000000C00"}, {"VEL 0", "0WP010000100000000C01"}, {"store records backwards", "0WA0201"}}, "104");
    }
    void malformedRequests()
    {
        QFETCH(QByteArray, request);
        SimLine line;
        QTEST(line.ask(request), "reply");
        QCOMPARE(line.controller.memory().block(0), Block0);
        QCOMPARE(line.controller.memory().record(1), Record1);
    }

    void whileMoving_data()
    {
        QTest::addColumn<QByteArray>("request");
        QTest::addColumn<QByteArray>("reply");
        // Status and outputs while moving: moveTakesItsTime.
        QTest::newRow("reads go on") << QByteArray("0RD0") << "0RD0" + Block0 + "\r\n";
        addRows({{"write block", "0WD0" + OtherBlock}, {"store blocks", "0WE"}, {"store block 7", "0WF"}, {"write record", "0WP01" + OtherRecord}, {"store record", "0WA0101"}, {"another move", "0MP01"}}, "201");
        QTest::newRow("malformed still first") << QByteArray("0MP1") << QByteArray("0%%103\r\n");
    }
    void whileMoving()
    {
        QFETCH(QByteArray, request);
        SimLine line;
        QCOMPARE(line.ask("0MP01"), QByteArray("0MP01\r\n"));
        QTEST(line.ask(request), "reply");
        QCOMPARE(line.controller.memory().block(0), Block0);
        QCOMPARE(line.controller.memory().record(1), Record1);
    }

    // Another station is not answered; noise without a line end is dropped;
    // only CR LF ends a line, so "0CM" gets the data "6\n0RA", which is not hex.
    void lineHandling()
    {
        SimLine line;
        QVERIFY(line.ask("1RA", 100).isEmpty());
        line.controller.receive(QByteArray(SimController::MaxLineLength + 1, '#'));
        line.send("0R");
        line.controller.receive("A\r");
        line.controller.receive("\n0RV\r\n0CM6\n0RA\r\n");
        QVERIFY(line.waitForLines(3));
        QCOMPARE(line.received, QByteArray("0RA1\r\n0RVK01100\r\n0%%102\r\n"));
    }

    // The first digit cannot switch ALM, RDY or IN-P; a restart clears the outputs.
    void outputsFollowTheWrite()
    {
        SimLine line;
        QCOMPARE(line.askAll({"0WO43", "0RO", "0WO01", "0RO"}),
                 (QList<QByteArray>{"0WO43\r\n", "0RO33\r\n", "0WO01\r\n", "0RO31\r\n"}));
        line.controller.restart();
        QCOMPARE(line.ask("0RO"), QByteArray("0RO30\r\n"));
    }

    void faultShapesTheReply_data()
    {
        QTest::addColumn<QStringList>("faults");
        QTest::addColumn<QByteArray>("request");
        QTest::addColumn<QByteArray>("reply");
        QTest::newRow("extra character, other command") << QStringList{"--extra-char", "RA"} << QByteArray("0CM6") << QByteArray("0CM6\r\n");
        QTest::newRow("extra character on all") << QStringList{"--extra-char", "all"} << QByteArray("0CM6") << QByteArray("0CM60\r\n");
        QTest::newRow("wrong echo on version") << QStringList{"--wrong-echo", "RV,RA"} << QByteArray("0RV") << QByteArray("0RAK01100\r\n");
        QTest::newRow("STB and STOP") << QStringList{"--stb", "--stop"} << QByteArray("0RI") << QByteArray("0RIA00\r\n");
    }
    void faultShapesTheReply()
    {
        QFETCH(QStringList, faults);
        QFETCH(QByteArray, request);
        SimLine line(faults);
        QTEST(line.ask(request), "reply");
    }

    void refusedOrSilencedRequestHasNoEffect()
    {
        SimLine line({"--silent", "RA,WD", "--error-reply", "WO:104"});
        QCOMPARE(line.ask("0RA", 150), QByteArray());
        QCOMPARE(line.ask("0WD0" + OtherBlock, 150), QByteArray());
        QCOMPARE(line.ask("0WO03"), QByteArray("0%%104\r\n"));
        QCOMPARE(line.askAll({"0RD0", "0RO"}), (QList<QByteArray>{"0RD0" + Block0 + "\r\n", "0RO30\r\n"}));
    }

    // Lateness is judged by the soak and tst_faults (a reply past the time-out).
    void splitReply()
    {
        SimLine line({"--split-crlf", "RV"});
        QCOMPARE(line.ask("0RV"), QByteArray("0RVK01100\r\n"));
        QVERIFY2(line.arrivalsMs[0] < 30, QByteArray::number(line.arrivalsMs[0]));
        QCOMPARE(line.pieces, (QList<QByteArray>{"0RVK01100\r", "\n"}));
        QVERIFY2(line.arrivalsMs[1] - line.arrivalsMs[0] >= SimFaults::SplitGapMs - 2, QByteArray::number(line.arrivalsMs[1]));
    }

    void unsolicitedAlarmIsNotShaped()
    {
        SimLine line({"--extra-char", "all", "--wrong-echo", "all"});
        line.send({});
        line.controller.raiseAlarm("301");
        QVERIFY(line.waitForLines(1));
        QCOMPARE(line.received, QByteArray("0%%301\r\n"));
    }

    void moveTakesItsTime_data()
    {
        QTest::addColumn<QByteArray>("record");
        QTest::addColumn<double>("scale");
        QTest::addColumn<double>("expectedMs");
        // Homing: 500 ms. Moves: 60000 / (DIVISION x VEL x GEAR / 30) + 50 x ACC.
        QTest::newRow("homing") << QByteArray("00") << 0.2 << 100.0;
        QTest::newRow("VEL 9000, ACC 3, 12 steps: 16.7 + 150") << QByteArray("012328300000000C01") << 0.5 << 83.3;
        QTest::newRow("VEL 3, GEAR 100, ACC 2, 4 steps: 1500 + 100") << QByteArray("010003200000000464") << 0.05 << 80.0;
    }
    void moveTakesItsTime()
    {
        QFETCH(QByteArray, record);
        QFETCH(double, scale);
        QFETCH(double, expectedMs);
        SimLine line;
        line.controller.setTimeScale(scale);
        const QByteArray point = record.left(2);
        if (record.size() > 2)
            QCOMPARE(line.ask("0WP" + record), "0WP" + point + "\r\n");
        QCOMPARE(line.askAll({"0MP" + point, "0RA", "0RO"}), (QList<QByteArray>{"0MP" + point + "\r\n", "0RA0\r\n", "0RO00\r\n"}));
        QByteArray status;
        const qint64 endMs = pollUntilStill(line, status);
        QCOMPARE(status, QByteArray("0RA1\r\n"));
        QVERIFY2(endMs >= expectedMs * 0.95 - 1 && endMs <= expectedMs * 1.15 + 10, QByteArray::number(endMs));
        QCOMPARE(line.ask("0RO"), QByteArray("0RO30\r\n"));
    }

    void alarmHoldsTheAxis()
    {
        SimLine line;
        line.controller.setTimeScale(0.01);
        line.controller.raiseAlarm("301");
        QVERIFY(line.waitForLines(1));
        QCOMPARE(line.received, QByteArray("0%%301\r\n"));
        QCOMPARE(line.askAll({"0RA", "0RO", "0MP00", "0MP01", "0AR", "0RA", "0RO", "0MP00"}),
                 (QList<QByteArray>{"0RA3\r\n", "0RO40\r\n", "0%%0B3\r\n", "0%%0B3\r\n", "0AR\r\n", "0RA1\r\n",
                                    "0RO30\r\n", "0MP00\r\n"}));
    }

    // The move's end does not clear the alarm; once only: after the reset the
    // next move runs to its end.
    void alarmPartWayThroughTheNextMove()
    {
        SimLine line({"--alarm", "302@move"});
        line.controller.setTimeScale(0.2);
        line.ask("0MP01");
        line.send({});
        QVERIFY(line.waitForLines(1, 300));
        QCOMPARE(line.received, QByteArray("0%%302\r\n"));
        Waiter::sleep(150);
        QCOMPARE(line.askAll({"0RA", "0AR", "0MP01"}), (QList<QByteArray>{"0RA3\r\n", "0AR\r\n", "0MP01\r\n"}));
        QByteArray status;
        pollUntilStill(line, status);
        QCOMPARE(status, QByteArray("0RA1\r\n"));
    }

    // A move ends at once while STOP is held, and leaves the axis ready but not in position.
    void stopInputEndsTheMove()
    {
        SimLine line;
        QCOMPARE(line.askAll({"0MP01", "0RA"}), (QList<QByteArray>{"0MP01\r\n", "0RA0\r\n"}));
        line.controller.setInputs(false, true);
        QCOMPARE(line.askAll({"0RA", "0RO", "0MP01", "0RA"}),
                 (QList<QByteArray>{"0RA2\r\n", "0RO20\r\n", "0MP01\r\n", "0RA2\r\n"}));
        line.controller.setInputs(false, false);
        QCOMPARE(line.askAll({"0MP01", "0RA"}), (QList<QByteArray>{"0MP01\r\n", "0RA0\r\n"}));
    }

    // What the ktr-sim runs of tests/e2e do not use: the device front, and a
    // fault without command letters, which applies to all.
    void deviceFrontAndFaultOnAll()
    {
        QString error;
        const auto o = SimOptions::parse({"--device", "/dev/ttyUSB1", "--late=150"}, &error);
        QVERIFY(o && o->front == SimOptions::Front::Device && o->device == "/dev/ttyUSB1" && o->faults.lateMs == 150);
        QVERIFY(o->faults.late.matches("RA") && o->faults.late.matches("WD"));
    }

    void rejected_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<QString>("error");
        QTest::newRow("flag with value") << QStringList{"--pace=1"} << "Unknown option: --pace=1";
        QTest::newRow("missing value") << QStringList{"--state"} << "The option --state needs a value.";
        QTest::newRow("time scale 0") << QStringList{"--time-scale", "0"} << "Invalid value for --time-scale: 0";
        QTest::newRow("alarm 304") << QStringList{"--alarm", "304"} << "Invalid value for --alarm: 304";
        QTest::newRow("alarm when") << QStringList{"--alarm", "301@soon"} << "Invalid value for --alarm: 301@soon";
        QTest::newRow("error code short") << QStringList{"--error-reply", "RV:11"} << "Invalid value for --error-reply: RV:11";
        QTest::newRow("late negative") << QStringList{"--late", "-5"} << "Invalid value for --late: -5";
        QTest::newRow("bad command") << QStringList{"--silent", "READ"} << "Invalid value for --silent: READ";
        QTest::newRow("restart 0") << QStringList{"--restart-after", "0"} << "Invalid value for --restart-after: 0";
        QTest::newRow("language") << QStringList{"--lang", "fr"} << "Invalid value for --lang: fr";
        QTest::newRow("two fronts") << QStringList{"--pty", "--device", "/dev/ttyS0"} << "--pty and --device cannot be used together.";
    }
    void rejected()
    {
        QFETCH(QStringList, args);
        QString message;
        QVERIFY(!SimOptions::parse(args, &message));
        QTEST(message, "error");
    }

    // An option added to the table without its help line is caught here.
    void everyAcceptedOptionHasItsHelpLine()
    {
        for (int msgBase : {0, 10000}) {
            ProgramState::instance().gMsgBase = msgBase;
            const QString help = SimOptions::usage();
            QVERIFY(!help.contains("%%"));
            for (const QString& name : SimOptions::optionNames()) {
                // At the start of an indented option line, alone or after the
                // other names of the same line ("  --stb, --stop").
                const QRegularExpression line(QStringLiteral("(^|\\n)  ([-a-z]+, )*%1[ ,]").arg(QRegularExpression::escape(name)));
                QVERIFY2(line.match(help).hasMatch(), qPrintable(name));
            }
        }
    }

    // Until the restart the working copy holds the write; after it, only what
    // was stored (blocks 0 to 2 around 0WE: tst_faults' restart during a write).
    void restartKeepsOnlyWhatWasStored_data()
    {
        QTest::addColumn<QList<QByteArray>>("requests");
        QTest::addColumn<QByteArray>("read");
        QTest::addColumn<QByteArray>("afterRestart");
        const QByteArray wd0 = "0WD0" + OtherBlock;
        const QByteArray wd7 = "0WD7" + OtherBlock;
        const QByteArray wp = "0WP01" + OtherRecord;
        QTest::newRow("block 0 and 0WF") << QList<QByteArray>{wd0, "0WF"} << QByteArray("0RD0") << Block0;
        QTest::newRow("block 7 and 0WE") << QList<QByteArray>{wd7, "0WE"} << QByteArray("0RD7") << Block7;
        QTest::newRow("block 7 stored") << QList<QByteArray>{wd7, "0WF"} << QByteArray("0RD7") << OtherBlock;
        QTest::newRow("record unstored") << QList<QByteArray>{wp} << QByteArray("0RP01") << Record1;
        QTest::newRow("record stored") << QList<QByteArray>{wp, "0WA0101"} << QByteArray("0RP01") << OtherRecord;
        QTest::newRow("record outside the stored range") << QList<QByteArray>{"0WP3F" + OtherRecord, "0WA0101"}
                                                         << QByteArray("0RP3F") << QByteArray(16, '0');
    }
    void restartKeepsOnlyWhatWasStored()
    {
        QFETCH(QList<QByteArray>, requests);
        QFETCH(QByteArray, read);
        SimLine line;
        for (const QByteArray& r : requests)
            QVERIFY(!line.ask(r).startsWith("0%%"));
        QCOMPARE(line.ask(read), read + (read.startsWith("0RP") ? OtherRecord : OtherBlock) + "\r\n");
        line.controller.restart();
        QFETCH(QByteArray, afterRestart);
        QCOMPARE(line.ask(read), read + afterRestart + "\r\n");
    }

    void stateFileWithUnknownLines_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("block 3") << "BLOCK3=" + OtherBlock;
        QTest::newRow("short block") << "BLOCK0=" + OtherBlock.left(31);
        QTest::newRow("lower-case hex") << "BLOCK0=" + OtherBlock.toLower();
        QTest::newRow("record 64") << "RECORD40=" + OtherRecord;
        QTest::newRow("long record") << "RECORD01=" + OtherRecord + "0";
        QTest::newRow("no equals sign") << QByteArray("BLOCK0");
        QTest::newRow("unknown key") << "PARAM0=" + OtherBlock;
    }
    void stateFileWithUnknownLines()
    {
        QFETCH(QByteArray, line);
        WriteBytes(state, "# comment\nBLOCK1=" + OtherBlock + "\n" + line + "\n");
        SimLine sim;
        QString error;
        QVERIFY(!sim.controller.useStateFile(state, &error));
        QCOMPARE(error, "line 3 is not understood");
        QCOMPARE(sim.ask("0RD1"), "0RD1" + Block1 + "\r\n");
    }

    void failedSaveKeepsTheOldFile()
    {
        SimLine line;
        QString error;
        QVERIFY(line.controller.useStateFile(state, &error));
        QSignalSpy failed(&line.controller.memory(), &ControllerMemory::saveFailed);
        line.ask("0WE");
        const QByteArray saved = ReadBytes(state);
        QVERIFY(!saved.isEmpty());
        line.ask("0WD0" + OtherBlock);
        {
            FileSizeLimit limit(64);
            QCOMPARE(line.ask("0WE"), QByteArray("0WE\r\n"));
        }
        QCOMPARE(failed.count(), 1);
        QCOMPARE(failed.first().first().toString(), state);
        QCOMPARE(ReadBytes(state), saved);
    }

private:
    QTemporaryDir dir;
    const QString state = dir.filePath("sim.state");
};

QTEST_GUILESS_MAIN(TestSimController)
#include "tst_simcontroller.moc"
