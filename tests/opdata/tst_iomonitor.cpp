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

    // Starts polling and clicks an output lamp once the first poll is in; the
    // write is answered with `writeReply`, the next poll with `outputs`.
    bool startAndClick(IoLamp lamp, const char* write, const char* writeReply, const char* outputs)
    {
        answer(write, writeReply);
        answer("0RI", "0RI000");
        answer("0RO", QByteArray("0RO").append(outputs).constData());
        monitor.start();
        if (!QTest::qWaitFor([this] { return port.frames.size() == 3; }))
            return false;
        monitor.outputClicked(lamp);
        return true;
    }
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

    void startShowsLamps()
    {
        MonitorRig rig("800", "43");

        rig.monitor.toggle();
        QCOMPARE(rig.view.caption, QStringLiteral("Stop Monitor"));
        QVERIFY(!rig.view.othersEnabled);
        QCOMPARE(rig.lock.calls, (QStringList{"tabs off", "Menyu_Muko"}));
        QVERIFY(rig.monitor.timerInputOutput1.isActive());
        QCOMPARE(rig.monitor.timerInputOutput1.interval(), IoMonitor::PollIntervalMs);

        QTRY_COMPARE(rig.view.lit(), (QStringList{"imgInputStb", "imgOutputAlm", "imgOutputOut1", "imgOutputOut2"}));
        QCOMPARE(rig.frames().mid(0, 3), (QStringList{"0CM7", "0RI", "0RO"}));
        QVERIFY(rig.monitor.mIoFirstPoll);
        QVERIFY(!rig.monitor.mIoReading);
    }

    void outputClickWrittenOnNextTick()
    {
        MonitorRig rig;
        QVERIFY(rig.startAndClick(IoLamp::OutputOut1, "0WO02", "0WO02", "02"));
        QVERIFY(rig.monitor.mIoWritePending);

        QTRY_COMPARE(rig.port.frames.size(), 6);
        QCOMPARE(rig.frames().mid(3), (QStringList{"0WO02", "0RI", "0RO"}));
        QVERIFY(!rig.monitor.mIoWritePending);
        QVERIFY(!rig.monitor.OutputToggle[2][2]);
        QCOMPARE(rig.view.lit(), QStringList{"imgOutputOut1"});
    }

    void failedOutputWriteIsReported()
    {
        MonitorRig rig;
        QVERIFY(rig.startAndClick(IoLamp::OutputOut2, "0WO01", "0%%104", "00"));
        QTRY_COMPARE(rig.port.frames.size(), 6);

        QCOMPARE(rig.prompter.lastText(), QStringLiteral("Communication error occurs!\r\n\r\ntransmit data is wrong"));
        QVERIFY2(rig.monitor.mIoRunning, "the monitor goes on reading");
    }

    void stopLeavesMonitorMode()
    {
        MonitorRig rig("800", "70");
        rig.answer("0CM0", "0CM0");

        rig.monitor.toggle();
        QTRY_COMPARE(rig.view.lit().size(), 4);
        rig.monitor.toggle();
        QCOMPARE(rig.view.caption, QStringLiteral("Start Monitor"));
        QVERIFY(rig.view.othersEnabled);
        QCOMPARE(rig.lock.calls, (QStringList{"tabs off", "Menyu_Muko", "tabs on", "Menyu_Yuko"}));

        QTRY_VERIFY(!rig.monitor.mIoRunning);
        QCOMPARE(rig.frames(), (QStringList{"0CM7", "0RI", "0RO", "0CM0"}));
        QVERIFY(rig.view.lit().isEmpty());
        QCOMPARE(rig.view.lamps.size(), 7);
        QVERIFY(!rig.monitor.timerInputOutput1.isActive());
        QVERIFY(!rig.monitor.mIoStopRequest);
        QVERIFY(!rig.monitor.mIoFirstPoll);
        QVERIFY(!rig.port.isOpen());
    }

    void failedModeSwitchStops()
    {
        MonitorRig rig("000", "00", "0%%101");

        rig.monitor.start();
        QTRY_VERIFY(!rig.monitor.mIoRunning);
        QCOMPARE(rig.frames(), QStringList{"0CM7"});
        QCOMPARE(rig.view.caption, QStringLiteral("Start Monitor"));
        QVERIFY(rig.view.othersEnabled);
        QVERIFY(!rig.monitor.timerInputOutput1.isActive());
        QVERIFY(!rig.monitor.mIoStopRequest);
        QTest::qWait(3 * IoMonitor::PollIntervalMs);
        QCOMPARE(rig.port.frames.size(), 1);
    }

    void failedReadStops()
    {
        MonitorRig rig("800", "70");
        rig.answer("0RI", "0%%101");

        rig.monitor.start();
        QTRY_COMPARE(rig.view.lit().size(), 4);
        QTRY_VERIFY(!rig.monitor.mIoRunning);
        QCOMPARE(rig.frames(), (QStringList{"0CM7", "0RI", "0RO", "0RI"}));
        QVERIFY(rig.view.lit().isEmpty());
        QCOMPARE(rig.view.caption, QStringLiteral("Start Monitor"));
        QVERIFY(!rig.monitor.timerInputOutput1.isActive());
        QVERIFY(!rig.port.isOpen());
    }
};

QTEST_GUILESS_MAIN(TestIoMonitor)
#include "tst_iomonitor.moc"
