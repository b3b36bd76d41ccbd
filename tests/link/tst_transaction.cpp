#include "LinkRig.h"

#include "common/Waiter.h"

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

namespace {

const QString OwnErrorText = QStringLiteral(
    "The controller reported an error of its own accord (not in reply to a command).\r\n"
    "Communication error occurs!\r\nError No.301\r\n[Overload alarm.]");
const QString LostText = QStringLiteral(
    "The device of the communication port has gone away (was the cable or the USB adapter unplugged?).\r\n");

using Frames = QList<QByteArray>;

} // namespace

class TestTransaction : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { Waiter::clearAbort(); }

    // However the line is cut, the reply is whole and clears the lamp.
    void acceptedReply_data()
    {
        QTest::addColumn<Frames>("chunks");
        QTest::addColumn<int>("expectedLength");
        QTest::addColumn<QString>("reply");
        QTest::newRow("one read") << Frames{"0RA1\r\n"} << 6 << "0RA1\r\n";
        QTest::newRow("one character per read")
            << Frames{"0", "R", "A", "1", "\r", "\n"} << 6 << "0RA1\r\n";
        QTest::newRow("text after a CR LF inside a read stays in the line")
            << Frames{"0RA1\r\nX", "Y\r\n"} << 10 << "0RA1\r\nXY\r\n";
    }
    void acceptedReply()
    {
        QFETCH(Frames, chunks);
        QFETCH(int, expectedLength);
        LinkRig rig;
        rig.alarms.alarm = true;
        rig.port.answer("0RA", chunks);

        QCOMPARE(rig.link.SendRecvCommand("0RA", expectedLength, ""), 0);

        QTEST(rig.link.gReply, "reply");
        QVERIFY(rig.link.gRxBuffer.isEmpty());
        QCOMPARE(rig.port.frames, Frames{"0RA"});
        QVERIFY(!rig.alarms.alarm);
        QCOMPARE(rig.alarms.status, QStringLiteral(" "));
        QVERIFY(rig.link.isPortOpen());
        QVERIFY(rig.prompter.shown.isEmpty());
    }

    // What came before the request is not its reply: an error line among it
    // (whole, or cut) is told and stays on the lamp; the rest is dropped.
    void inputBeforeTheRequest_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<bool>("read");
        QTest::addColumn<Frames>("after");
        QTest::addColumn<int>("result");
        QTest::addColumn<QStringList>("told");
        const QStringList own{OwnErrorText};
        QTest::newRow("late answer") << QByteArray("0RA1\r\n") << false << Frames{"0RA2\r\n"} << 0 << QStringList{};
        QTest::newRow("whole error line") << QByteArray("0%%301\r\n") << false << Frames{"0RA2\r\n"} << 0 << own;
        QTest::newRow("error line cut") << QByteArray("0%%3") << true << Frames{"01\r\n", "0RA2\r\n"} << 0 << own;
        QTest::newRow("cut after one character") << QByteArray("0") << true << Frames{"%%301\r\n0RA2\r\n"} << 0 << own;
        QTest::newRow("noise") << QByteArray("\xff"
                                             "0")
                               << true << Frames{"0RA2\r\n"} << 0 << QStringList{};
        QTest::newRow("then an error reply") << QByteArray("0") << false << Frames{"0%%301\r\n"} << 1
                                             << QStringList{"Communication error occurs!\r\nError No.301\r\n[Overload alarm.]"};
    }
    void inputBeforeTheRequest()
    {
        QFETCH(QByteArray, before);
        QFETCH(bool, read);
        QFETCH(QStringList, told);
        LinkRig rig;
        QCOMPARE(rig.link.OpenCommPort(), 0);
        if (read) {
            rig.port.deliver({before});
            QTRY_COMPARE(rig.link.gRxBuffer, QString::fromLatin1(before));
        } else {
            rig.port.preload(before);
        }
        QFETCH(Frames, after);
        rig.port.answer("0RA", after);

        QTEST(rig.link.SendRecvCommand("0RA", 6, ""), "result");

        QCOMPARE(rig.port.frames, Frames{"0RA"});
        QCOMPARE(rig.prompter.texts(), told);
        QCOMPARE(rig.alarms.alarm, !told.isEmpty());
        QCOMPARE(rig.alarms.status, told.isEmpty() ? QStringLiteral(" ") : QStringLiteral("Overload alarm."));
    }

    // Without a hit the box shows the text of the last code found.
    void errorReply_data()
    {
        QTest::addColumn<int>("msgBase");
        QTest::addColumn<Frames>("replies");
        QTest::addColumn<QString>("told");
        QTest::addColumn<QString>("status");
        const QString none = QStringLiteral("No error information in the error List");
        QTest::newRow("in Japanese") << 0 << Frames{"0%%101\r\n"}
                                     << "エラーが発生しました！\r\nエラー番号：101\r\n[Unknown command.]"
                                     << "Unknown command.";
        QTest::newRow("not in the list") << 10000 << Frames{"0%%999\r\n"} << "Communication error occurs!\r\n[]" << none;
        QTest::newRow("not in the list after one that was") << 10000 << Frames{"0%%999\r\n", "0%%301\r\n", "0%%999\r\n"}
                                                            << "Communication error occurs!\r\n[Overload alarm.]" << none;
    }
    void errorReply()
    {
        QFETCH(Frames, replies);
        LinkRig rig;
        QFETCH(int, msgBase);
        ProgramState::instance().gMsgBase = msgBase;
        for (const QByteArray& reply : replies) {
            rig.port.answer("0RA", reply);
            QCOMPARE(rig.link.SendRecvCommand("0RA", 6, ""), 1);
        }

        QTEST(rig.prompter.lastText(), "told");
        QVERIFY(rig.link.gErrorReply);
        QCOMPARE(rig.link.gLastErrorReply, QString::fromLatin1(replies.last()));
        QVERIFY(rig.alarms.alarm);
        QTEST(rig.alarms.status, "status");
        QVERIFY(!rig.link.gCommError);
        QVERIFY(rig.link.isPortOpen());
    }

    void errorLineOutsideATransaction()
    {
        LinkRig rig;
        QCOMPARE(rig.link.OpenCommPort(), 0);

        rig.port.deliver({"0%%3", "01\r\n"});

        QTRY_VERIFY(rig.alarms.alarm);
        QCOMPARE(rig.alarms.status, QStringLiteral("Overload alarm."));
        QVERIFY(rig.link.gErrorReply);
        QVERIFY(rig.prompter.shown.isEmpty());
    }

    // No reply, or a wrong length or echo (then "0CM6"'s answer decides what
    // is told); the port is released unless an error reply came or it is held.
    void failures_data()
    {
        QTest::addColumn<QByteArray>("reply");
        QTest::addColumn<QByteArray>("checkAnswer");
        QTest::addColumn<bool>("occupy");
        QTest::addColumn<QString>("told");
        QTest::addColumn<bool>("portOpen");
        const QByteArray none;
        QTest::newRow("time-out") << none << none << false << TimedOut << false;
        QTest::newRow("time-out, port held") << none << none << true << TimedOut << true;
        QTest::newRow("wrong length") << QByteArray("0RA12\r\n") << QByteArray("0CM6\r\n") << false << LengthError << false;
        QTest::newRow("wrong length, port held") << QByteArray("0RA12\r\n") << QByteArray("0CM6\r\n") << true << LengthError << true;
        QTest::newRow("check answered with an error") << QByteArray("0RA12\r\n") << QByteArray("0%%101\r\n") << false
                                                      << UnknownText << true;
        QTest::newRow("wrong echo, no answer") << QByteArray("0RD1\r\n") << none << false << LengthError << false;
    }
    void failures()
    {
        QFETCH(QByteArray, reply);
        QFETCH(QByteArray, checkAnswer);
        QFETCH(bool, occupy);
        QFETCH(bool, portOpen);
        LinkRig rig;
        ProgramState::instance().gPortOccupy = occupy;
        if (!reply.isEmpty())
            rig.port.answer("0RA", reply);
        if (!checkAnswer.isEmpty())
            rig.port.answer("0CM6", checkAnswer);
        QElapsedTimer clock;
        clock.start();

        QCOMPARE(rig.link.SendRecvCommand("0RA", 6, ""), 1);

        QVERIFY(clock.elapsed() < 2000);
        QCOMPARE(rig.port.frames, (reply.isEmpty() ? Frames{"0RA"} : Frames{"0RA", "0CM6"}));
        QFETCH(QString, told);
        QCOMPARE(rig.prompter.texts(), QStringList{told});
        QCOMPARE(rig.link.gCommError, told != UnknownText); // an error reply is an answer
        QCOMPARE(rig.link.isPortOpen(), portOpen);
        QVERIFY(!rig.link.gAbortWait);
        rig.port.answer("0RA", "0RA1\r\n");
        QCOMPARE(rig.link.SendRecvCommand("0RA", 6, ""), 0);
        QCOMPARE(rig.port.opened.size(), portOpen ? 1 : 2);
        QVERIFY(!rig.link.gCommError);
    }

    // Closing ends any reply wait at once, the endless one too, silently.
    void closingTheProgramEndsTheWait_data()
    {
        QTest::addColumn<QByteArray>("reply");
        QTest::addColumn<int>("closeAtMs");
        QTest::addColumn<Frames>("sent");
        QTest::newRow("reply wait") << QByteArray() << 50 << Frames{"0RA"};
        QTest::newRow("after a wrong length, beyond the time-out") << QByteArray("0RA\r\n") << 500
                                                                   << Frames{"0RA", "0CM6"};
    }
    void closingTheProgramEndsTheWait()
    {
        QFETCH(QByteArray, reply);
        QFETCH(int, closeAtMs);
        LinkRig rig;
        if (!reply.isEmpty())
            rig.port.answer("0RA", reply);
        QTimer::singleShot(closeAtMs, [] { Waiter::abortAll(); });
        QElapsedTimer clock;
        clock.start();

        QCOMPARE(rig.link.SendRecvCommand("0RA", 6, ""), 1);

        QVERIFY(clock.elapsed() >= closeAtMs - 10 && clock.elapsed() < closeAtMs + 1000);
        QVERIFY(rig.link.gAbortWait);
        QTEST(rig.port.frames, "sent");
        QVERIFY(rig.prompter.shown.isEmpty());
        QVERIFY(!rig.link.busy());
    }

    // The refused one is told why; its closing the port spares the first.
    void secondTransactionIsRefused()
    {
        LinkRig rig;
        rig.port.answer("0RA", {"0RA1\r\n"}, 80);
        int inner = -2;
        QTimer::singleShot(20, [&] {
            inner = rig.link.SendRecvCommand("0CM", 6, "6");
            rig.link.CloseCommPort();
        });
        QTest::ignoreMessage(QtCriticalMsg, QRegularExpression("refused"));

        QCOMPARE(rig.link.SendRecvCommand("0RA", 6, ""), 0);

        QCOMPARE(inner, 1);
        QCOMPARE(rig.port.frames, Frames{"0RA"});
        QCOMPARE(rig.link.gReply, QStringLiteral("0RA1\r\n"));
        QCOMPARE(rig.prompter.texts(), QStringList{"Another command is communicating with the controller. "
                                                   "Try again when it has finished."});
    }

    // Pulled during a request: said at once; while idle: when it cannot reopen.
    void lostDeviceIsOpenedAgain()
    {
        LinkRig rig;
        ProgramState::instance().gPortOccupy = true;
        rig.link.gTimeoutMs = 5000;
        QTimer::singleShot(20, &rig.port, &FakeSerialPort::pull);
        QElapsedTimer clock;
        clock.start();

        QCOMPARE(rig.link.SendRecvCommand("0RA", 6, ""), 1);

        QVERIFY(clock.elapsed() < 1000);
        QVERIFY(!rig.link.isPortOpen());
        QCOMPARE(rig.prompter.texts(), QStringList{LostText + "The port has been released; the next command opens it again."});
        rig.port.answer("0RA", "0RA1\r\n");
        QCOMPARE(rig.link.SendRecvCommand("0RA", 6, ""), 0);
        QCOMPARE(rig.port.opened.size(), 2);

        rig.port.pull();
        rig.port.setRefuseAll(true);
        QCOMPARE(rig.link.SendRecvCommand("0RA", 6, ""), 1);
        QCOMPARE(rig.prompter.lastText(), LostText + "Failed in opening of a communication port.");
    }
};

QTEST_GUILESS_MAIN(TestTransaction)
#include "tst_transaction.moc"
