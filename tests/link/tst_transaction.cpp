#include "LinkRig.h"

#include "common/Waiter.h"
#include "link/CommLog.h"

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QSignalSpy>
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

Q_DECLARE_METATYPE(LinkOutcome::Kind)

class TestTransaction : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { Waiter::clearAbort(); }

    // Every way a transaction ends on its own, told where found: the reply
    // however it is cut, no reply, a wrong length or echo (then "0CM6"'s
    // answer decides what is told), an error reply. The port is released on
    // a failure unless an error reply came or it is held; the next command
    // opens it again.
    void outcomes_data()
    {
        QTest::addColumn<Frames>("answer");
        QTest::addColumn<QByteArray>("checkAnswer");
        QTest::addColumn<int>("length");
        QTest::addColumn<bool>("occupy");
        QTest::addColumn<LinkOutcome::Kind>("kind");
        QTest::addColumn<QString>("told");
        QTest::addColumn<bool>("portOpen");
        QTest::addColumn<QString>("status");
        using K = LinkOutcome::Kind;
        const QString overload = QStringLiteral("Communication error occurs!\r\nError No.301\r\n[Overload alarm.]");
        QTest::newRow("one character per read")
            << Frames{"0", "R", "A", "1", "\r", "\n"} << QByteArray() << 6 << false << K::Ok << "" << true << " ";
        QTest::newRow("text after a CR LF inside a read stays in the line")
            << Frames{"0RA1\r\nX", "Y\r\n"} << QByteArray() << 10 << false << K::Ok << "" << true << " ";
        QTest::newRow("time-out") << Frames{} << QByteArray() << 6 << false << K::TimedOut << TimedOut << false << "";
        QTest::newRow("time-out, port held") << Frames{} << QByteArray() << 6 << true << K::TimedOut << TimedOut << true << "";
        QTest::newRow("wrong length") << Frames{"0RA12\r\n"} << QByteArray("0CM6\r\n") << 6 << false << K::WrongReply
                                      << LengthError << false << "";
        QTest::newRow("check answered with an error") << Frames{"0RA12\r\n"} << QByteArray("0%%101\r\n") << 6 << false
                                                      << K::ErrorReply << UnknownText << true << "Unknown command.";
        QTest::newRow("wrong echo, no answer")
            << Frames{"0RD1\r\n"} << QByteArray() << 6 << false << K::WrongReply << LengthError << false << "";
        QTest::newRow("error reply") << Frames{"0%%301\r\n"} << QByteArray() << 6 << false << K::ErrorReply << overload
                                     << true << "Overload alarm.";
    }
    void outcomes()
    {
        QFETCH(Frames, answer);
        QFETCH(QByteArray, checkAnswer);
        QFETCH(int, length);
        QFETCH(LinkOutcome::Kind, kind);
        QFETCH(QString, told);
        QFETCH(bool, portOpen);
        QFETCH(QString, status);
        LinkRig rig;
        QFETCH(bool, occupy);
        ProgramState::instance().gPortOccupy = occupy;
        rig.alarms.alarm = true;
        if (!answer.isEmpty())
            rig.port.answer("0RA", answer);
        if (!checkAnswer.isEmpty())
            rig.port.answer("0CM6", checkAnswer);
        QElapsedTimer clock;
        clock.start();

        const LinkOutcome outcome = rig.link.SendRecvCommand("0RA", length, "");

        QVERIFY(clock.elapsed() < 2000);
        QCOMPARE(outcome.kind(), kind);
        QCOMPARE(outcome.ok(), told.isEmpty());
        const bool checked = !answer.isEmpty() && !outcome.ok() && !answer[0].startsWith("0%%");
        QCOMPARE(rig.port.frames, (checked ? Frames{"0RA", "0CM6"} : Frames{"0RA"}));
        QCOMPARE(rig.prompter.texts(), told.isEmpty() ? QStringList{} : QStringList{told});
        QCOMPARE(rig.alarms.alarm, status != QStringLiteral(" "));
        QCOMPARE(rig.alarms.status, status);
        if (kind == LinkOutcome::Kind::Ok)
            QCOMPARE(outcome.reply(), QString::fromLatin1(answer.join()));
        QCOMPARE(outcome.error().text, kind == LinkOutcome::Kind::ErrorReply ? status : QString());
        QVERIFY(rig.link.pendingInput().isEmpty());
        QCOMPARE(rig.link.isPortOpen(), portOpen);
        rig.port.answer("0RA", "0RA1\r\n");
        QVERIFY(rig.link.SendRecvCommand("0RA", 6, "").ok());
        QCOMPARE(rig.port.opened.size(), portOpen ? 1 : 2);
    }

    // What came before the request is not its reply: an error line among it
    // (whole, or cut) is told and stays on the lamp; the rest is dropped.
    void inputBeforeTheRequest_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<bool>("read");
        QTest::addColumn<Frames>("after");
        QTest::addColumn<bool>("ok");
        QTest::addColumn<QStringList>("told");
        const QStringList own{OwnErrorText};
        QTest::newRow("late answer") << QByteArray("0RA1\r\n") << false << Frames{"0RA2\r\n"} << true << QStringList{};
        QTest::newRow("whole error line") << QByteArray("0%%301\r\n") << false << Frames{"0RA2\r\n"} << true << own;
        QTest::newRow("error line cut") << QByteArray("0%%3") << true << Frames{"01\r\n", "0RA2\r\n"} << true << own;
        QTest::newRow("cut after one character") << QByteArray("0") << true << Frames{"%%301\r\n0RA2\r\n"} << true << own;
        QTest::newRow("noise") << QByteArray("\xff"
                                             "0")
                               << true << Frames{"0RA2\r\n"} << true << QStringList{};
        QTest::newRow("then an error reply") << QByteArray("0") << false << Frames{"0%%301\r\n"} << false
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
            QTRY_COMPARE(rig.link.pendingInput(), QString::fromLatin1(before));
        } else {
            rig.port.preload(before);
        }
        QFETCH(Frames, after);
        rig.port.answer("0RA", after);

        QTEST(rig.link.SendRecvCommand("0RA", 6, "").ok(), "ok");

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
            const LinkOutcome outcome = rig.link.SendRecvCommand("0RA", 6, "");
            QCOMPARE(outcome.kind(), LinkOutcome::Kind::ErrorReply);
            QCOMPARE(outcome.reply(), QString::fromLatin1(reply));
        }

        QTEST(rig.prompter.lastText(), "told");
        QVERIFY(rig.alarms.alarm);
        QTEST(rig.alarms.status, "status");
    }

    void errorLineOutsideATransaction()
    {
        LinkRig rig;
        QCOMPARE(rig.link.OpenCommPort(), 0);

        rig.port.deliver({"0%%3", "01\r\n"});

        QTRY_VERIFY(rig.alarms.alarm);
        QCOMPARE(rig.alarms.status, QStringLiteral("Overload alarm."));
        QVERIFY(rig.prompter.shown.isEmpty());
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

        QCOMPARE(rig.link.SendRecvCommand("0RA", 6, "").kind(), LinkOutcome::Kind::Aborted);

        QVERIFY(clock.elapsed() >= closeAtMs - 10 && clock.elapsed() < closeAtMs + 1000);
        QTEST(rig.port.frames, "sent");
        QVERIFY(rig.prompter.shown.isEmpty());
        QVERIFY(!rig.link.busy());
    }

    // The refused one is told why; its closing the port spares the first.
    void secondTransactionIsRefused()
    {
        LinkRig rig;
        rig.port.answer("0RA", {"0RA1\r\n"}, 80);
        LinkOutcome::Kind inner = LinkOutcome::Kind::Ok;
        QTimer::singleShot(20, [&] {
            inner = rig.link.SendRecvCommand("0CM", 6, "6").kind();
            rig.link.CloseCommPort();
        });
        QTest::ignoreMessage(QtCriticalMsg, QRegularExpression("refused"));

        QCOMPARE(rig.link.SendRecvCommand("0RA", 6, "").reply(), QStringLiteral("0RA1\r\n"));

        QCOMPARE(inner, LinkOutcome::Kind::RefusedBusy);
        QCOMPARE(rig.port.frames, Frames{"0RA"});
        QCOMPARE(rig.prompter.texts(), QStringList{"Another command is communicating with the controller. "
                                                   "Try again when it has finished."});
    }

    // The communication log: a burst comes into the view as one batch, only
    // the last rows are kept, and a paused log holds the new rows back until
    // it is resumed.
    void commLogBatches_data()
    {
        QTest::addColumn<int>("before");
        QTest::addColumn<bool>("paused");
        QTest::addColumn<int>("burst");
        QTest::newRow("one batch") << 0 << false << 50;
        QTest::newRow("oldest dropped") << CommLog::MaxRows - 10 << false << 20;
        QTest::newRow("held while paused") << 10 << true << 30;
        QTest::newRow("held beyond the bound") << 5 << true << CommLog::MaxRows + 5;
    }
    void commLogBatches()
    {
        QFETCH(int, before);
        QFETCH(bool, paused);
        QFETCH(int, burst);
        LinkRig rig;
        CommLog log(rig.link, rig.errors);
        const auto send = [&](int from, int count) {
            for (int i = from; i < from + count; ++i)
                emit rig.link.frameSent(QByteArray::number(i));
        };
        send(0, before);
        QTRY_COMPARE(log.rowCount(), before);
        log.setPaused(paused);
        QSignalSpy inserted(&log, &QAbstractItemModel::rowsInserted);
        QSignalSpy reset(&log, &QAbstractItemModel::modelReset);

        send(before, burst);
        QCOMPARE(log.rowCount(), before);
        QTest::qWait(2 * CommLog::BatchMs);
        QCOMPARE(log.heldBack(), paused ? qMin(burst, int(CommLog::MaxRows)) : 0);
        QCOMPARE(log.rowCount(), paused ? before : qMin(before + burst, int(CommLog::MaxRows)));
        log.setPaused(false);

        const int kept = qMin(before + burst, int(CommLog::MaxRows));
        QCOMPARE(log.rowCount(), kept);
        QCOMPARE(inserted.size() + reset.size(), 1);
        QCOMPARE(log.index(0, CommLog::Frame).data().toString(), QString::number(before + burst - kept));
        QCOMPARE(log.index(kept - 1, CommLog::Frame).data().toString(), QString::number(before + burst - 1));
    }

    // A request without an answer: its frame, then a row of its own, each
    // with its meaning, as the trace prints them.
    void commLogTellsATimeOut()
    {
        LinkRig rig;
        CommLog log(rig.link, rig.errors);

        rig.link.SendRecvCommand("0RA", 6, "");

        log.showHeld();
        QCOMPARE(log.rowCount(), 2);
        const QRegularExpression time(QStringLiteral("^\\+\\d+\\.\\d\\d\\d "), QRegularExpression::MultilineOption);
        QCOMPARE(log.allLines().remove(time), QStringLiteral("> 0RA\tread run status\n!\ttime-out: no reply within 100 ms\n"));
    }

    // Pulled during a request: said at once; while idle: when it cannot reopen.
    void lostDeviceIsOpenedAgain()
    {
        LinkRig rig;
        ProgramState::instance().gPortOccupy = true;
        rig.link.setTimeoutMs(5000);
        QTimer::singleShot(20, &rig.port, &FakeSerialPort::pull);
        QElapsedTimer clock;
        clock.start();

        QCOMPARE(rig.link.SendRecvCommand("0RA", 6, "").kind(), LinkOutcome::Kind::PortLost);

        QVERIFY(clock.elapsed() < 1000);
        QVERIFY(!rig.link.isPortOpen());
        QCOMPARE(rig.prompter.texts(), QStringList{LostText + "The port has been released; the next command opens it again."});
        rig.port.answer("0RA", "0RA1\r\n");
        QVERIFY(rig.link.SendRecvCommand("0RA", 6, "").ok());
        QCOMPARE(rig.port.opened.size(), 2);

        rig.port.pull();
        rig.port.setRefuseAll(true);
        QCOMPARE(rig.link.SendRecvCommand("0RA", 6, "").kind(), LinkOutcome::Kind::NotOpened);
        QCOMPARE(rig.prompter.lastText(), LostText + "Failed in opening of a communication port.");
    }
};

QTEST_GUILESS_MAIN(TestTransaction)
#include "tst_transaction.moc"
