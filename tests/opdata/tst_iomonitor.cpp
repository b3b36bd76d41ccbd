#include "opdata/IoBits.h"
#include "opdata/IoMonitor.h"

#include "OpDataRig.h"

#include <QTest>

// A monitor on a scripted line; the mode switch and the first poll answered.
struct MonitorRig : OpDataRig {
    FakeIoView view;
    IoMonitor monitor{ctx, view};

    explicit MonitorRig(const char* inputs = "000", const char* outputs = "00", const char* modeReply = "0CM7")
    {
        answer("0CM7", modeReply);
        answer("0RI", QByteArray("0RI").append(inputs).constData());
        answer("0RO", QByteArray("0RO").append(outputs).constData());
    }
    ~MonitorRig() { monitor.timerInputOutput1.stop(); }
};

class TestIoMonitor : public QObject {
    Q_OBJECT

private slots:
    void lamps_data()
    {
        QTest::addColumn<QString>("inputs");
        QTest::addColumn<QString>("outputs");
        QTest::addColumn<QStringList>("lit");
        QTest::newRow("inputs 800") << "800" << "00" << QStringList{"imgInputStb"};
        QTest::newRow("inputs 200") << "200" << "00" << QStringList{"imgInputStop"};
        QTest::newRow("inputs A00") << "A00" << "00" << QStringList{"imgInputStb", "imgInputStop"};
        QTest::newRow("inputs 5FF") << "5FF" << "00" << QStringList{};
        QTest::newRow("outputs 43") << "000" << "43"
                                    << QStringList{"imgOutputAlm", "imgOutputOut1", "imgOutputOut2"};
        QTest::newRow("outputs 70") << "000" << "70"
                                    << QStringList{"imgOutputAlm", "imgOutputRdy", "imgOutputInp"};
        QTest::newRow("outputs 8C") << "000" << "8C" << QStringList{};
    }
    void lamps()
    {
        QFETCH(QString, inputs);
        QFETCH(QString, outputs);
        IoBits::InputTable in{};
        IoBits::OutputTable out{};
        IoBits::decode(inputs, in);
        IoBits::decode(outputs, out);
        QStringList on;
        for (IoLamp lamp : AllIoLamps)
            if (IoBits::lampOn(lamp, in, out))
                on << IoBits::objectName(lamp);
        QTEST(on, "lit");
    }

    // An output clicked once the first poll is in: its write is refused.
    void failedOutputWriteIsReported()
    {
        MonitorRig rig;
        rig.answer("0WO01", "0%%104");
        rig.answer("0RI", "0RI000");
        rig.answer("0RO", "0RO00");
        rig.monitor.start();
        QTRY_COMPARE(rig.port.frames.size(), 3);
        rig.monitor.outputClicked(IoLamp::OutputOut2);
        QTRY_COMPARE(rig.port.frames.size(), 6);

        QCOMPARE(rig.prompter.lastText(), QStringLiteral("Communication error occurs!\r\n\r\ntransmit data is wrong"));
        QVERIFY2(rig.monitor.mIoRunning, "the monitor goes on reading");
    }

    // However the monitor ends (the user, a refused mode switch, a refused
    // read), it ends stopped: lamps off, the commands back, no more polls.
    void monitorEndsStopped_data()
    {
        QTest::addColumn<bool>("userStops");
        QTest::addColumn<QByteArray>("modeReply");
        QTest::addColumn<QByteArray>("secondInputs");
        QTest::addColumn<QStringList>("frames");
        QTest::newRow("stopped by the user") << true << QByteArray("0CM7") << QByteArray()
                                             << QStringList{"0CM7", "0RI", "0RO", "0CM0"};
        QTest::newRow("mode switch refused") << false << QByteArray("0%%101") << QByteArray() << QStringList{"0CM7"};
        QTest::newRow("read refused") << false << QByteArray("0CM7") << QByteArray("0%%101")
                                      << QStringList{"0CM7", "0RI", "0RO", "0RI"};
    }
    void monitorEndsStopped()
    {
        QFETCH(bool, userStops);
        QFETCH(QByteArray, modeReply);
        QFETCH(QByteArray, secondInputs);
        MonitorRig rig("800", "70", modeReply.constData());
        rig.answer("0CM0", "0CM0");
        if (!secondInputs.isEmpty())
            rig.answer("0RI", secondInputs.constData());

        rig.monitor.start();
        if (userStops) {
            QTRY_COMPARE(rig.view.lit().size(), 4);
            rig.monitor.toggle();
        }
        QTRY_VERIFY(!rig.monitor.mIoRunning);
        QTest::qWait(3 * IoMonitor::PollIntervalMs);
        QTEST(rig.frames(), "frames");
        QVERIFY(rig.view.lit().isEmpty());
        QCOMPARE(rig.view.caption, QStringLiteral("Start Monitor"));
        QVERIFY(rig.view.othersEnabled);
        QCOMPARE(rig.lock.calls, (QStringList{"tabs off", "Menyu_Muko", "tabs on", "Menyu_Yuko"}));
        QVERIFY(!rig.monitor.timerInputOutput1.isActive());
        QVERIFY(!rig.monitor.mIoStopRequest);
        QVERIFY(!rig.monitor.mIoFirstPoll);
        QVERIFY(!rig.port.isOpen());
    }
};

QTEST_GUILESS_MAIN(TestIoMonitor)
#include "tst_iomonitor.moc"
