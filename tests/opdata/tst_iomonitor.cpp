#include "opdata/IoBits.h"
#include "opdata/IoMonitor.h"

#include "OpDataRig.h"

#include <QTest>

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
        OpDataRig rig;
        FakeIoView view;
        IoMonitor monitor(rig.ctx, view);
        rig.answer("0CM7", "0CM7");
        rig.answer("0RI", "0RI800");
        rig.answer("0RO", "0RO43");

        monitor.toggle();
        QCOMPARE(view.caption, QStringLiteral("Stop Monitor"));
        QVERIFY(!view.othersEnabled);
        QCOMPARE(rig.lock.calls, (QStringList{"tabs off", "Menyu_Muko"}));
        QVERIFY(monitor.timerInputOutput1.isActive());
        QCOMPARE(monitor.timerInputOutput1.interval(), IoMonitor::PollIntervalMs);

        QTRY_COMPARE(view.lit(), (QStringList{"imgInputStb", "imgOutputAlm", "imgOutputOut1", "imgOutputOut2"}));
        QCOMPARE(rig.frames().mid(0, 3), (QStringList{"0CM7", "0RI", "0RO"}));
        QVERIFY(monitor.mIoFirstPoll);
        QVERIFY(!monitor.mIoReading);
        monitor.timerInputOutput1.stop();
    }

    void outputClickWrittenOnNextTick()
    {
        OpDataRig rig;
        FakeIoView view;
        IoMonitor monitor(rig.ctx, view);
        rig.answer("0CM7", "0CM7");
        rig.answer("0RI", "0RI000");
        rig.answer("0RO", "0RO00");
        rig.answer("0WO02", "0WO02");
        rig.answer("0RI", "0RI000");
        rig.answer("0RO", "0RO02");

        monitor.start();
        QTRY_COMPARE(rig.port.frames.size(), 3);
        monitor.outputClicked(IoLamp::OutputOut1);
        QVERIFY(monitor.mIoWritePending);

        QTRY_COMPARE(rig.port.frames.size(), 6);
        QCOMPARE(rig.frames().mid(3), (QStringList{"0WO02", "0RI", "0RO"}));
        QVERIFY(!monitor.mIoWritePending);
        QVERIFY(!monitor.OutputToggle[2][2]);
        QCOMPARE(view.lit(), QStringList{"imgOutputOut1"});
        monitor.timerInputOutput1.stop();
    }

    void failedOutputWriteIsReported()
    {
        OpDataRig rig;
        FakeIoView view;
        IoMonitor monitor(rig.ctx, view);
        rig.answer("0CM7", "0CM7");
        rig.answer("0RI", "0RI000");
        rig.answer("0RO", "0RO00");
        rig.answer("0WO01", "0%%104");
        rig.answer("0RI", "0RI000");
        rig.answer("0RO", "0RO00");

        monitor.start();
        QTRY_COMPARE(rig.port.frames.size(), 3);
        monitor.outputClicked(IoLamp::OutputOut2);
        QTRY_COMPARE(rig.port.frames.size(), 6);

        QCOMPARE(rig.prompter.lastText(), QStringLiteral("Communication error occurs!\r\n\r\ntransmit data is wrong"));
        QVERIFY2(monitor.mIoRunning, "the monitor goes on reading");
        monitor.timerInputOutput1.stop();
    }

    void stopLeavesMonitorMode()
    {
        OpDataRig rig;
        FakeIoView view;
        IoMonitor monitor(rig.ctx, view);
        rig.answer("0CM7", "0CM7");
        rig.answer("0RI", "0RI800");
        rig.answer("0RO", "0RO70");
        rig.answer("0CM0", "0CM0");

        monitor.toggle();
        QTRY_COMPARE(view.lit().size(), 4);
        monitor.toggle();
        QCOMPARE(view.caption, QStringLiteral("Start Monitor"));
        QVERIFY(view.othersEnabled);
        QCOMPARE(rig.lock.calls, (QStringList{"tabs off", "Menyu_Muko", "tabs on", "Menyu_Yuko"}));

        QTRY_VERIFY(!monitor.mIoRunning);
        QCOMPARE(rig.frames(), (QStringList{"0CM7", "0RI", "0RO", "0CM0"}));
        QVERIFY(view.lit().isEmpty());
        QCOMPARE(view.lamps.size(), 7);
        QVERIFY(!monitor.timerInputOutput1.isActive());
        QVERIFY(!monitor.mIoStopRequest);
        QVERIFY(!monitor.mIoFirstPoll);
        QVERIFY(!rig.port.isOpen());
    }

    void failedModeSwitchStops()
    {
        OpDataRig rig;
        FakeIoView view;
        IoMonitor monitor(rig.ctx, view);
        rig.answer("0CM7", "0%%101");

        monitor.start();
        QTRY_VERIFY(!monitor.mIoRunning);
        QCOMPARE(rig.frames(), QStringList{"0CM7"});
        QCOMPARE(view.caption, QStringLiteral("Start Monitor"));
        QVERIFY(view.othersEnabled);
        QVERIFY(!monitor.timerInputOutput1.isActive());
        QVERIFY(!monitor.mIoStopRequest);
        QTest::qWait(3 * IoMonitor::PollIntervalMs);
        QCOMPARE(rig.port.frames.size(), 1);
    }

    void failedReadStops()
    {
        OpDataRig rig;
        FakeIoView view;
        IoMonitor monitor(rig.ctx, view);
        rig.answer("0CM7", "0CM7");
        rig.answer("0RI", "0RI800");
        rig.answer("0RO", "0RO70");
        rig.answer("0RI", "0%%101");

        monitor.start();
        QTRY_COMPARE(view.lit().size(), 4);
        QTRY_VERIFY(!monitor.mIoRunning);
        QCOMPARE(rig.frames(), (QStringList{"0CM7", "0RI", "0RO", "0RI"}));
        QVERIFY(view.lit().isEmpty());
        QCOMPARE(view.caption, QStringLiteral("Start Monitor"));
        QVERIFY(!monitor.timerInputOutput1.isActive());
        QVERIFY(!rig.port.isOpen());
    }
};

QTEST_GUILESS_MAIN(TestIoMonitor)
#include "tst_iomonitor.moc"
