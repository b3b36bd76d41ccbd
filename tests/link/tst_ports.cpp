#include "LinkRig.h"

#include "common/Settings.h"
#include "link/LineSettings.h"
#include "link/PortNaming.h"

#include <QTest>

class TestPorts : public QObject {
    Q_OBJECT

private slots:
    void lineSettings()
    {
        const auto line = LineSettings::parse(QStringLiteral("9600,N,8,1"));
        QVERIFY(line && line->baudRate == 9600 && line->parity == QSerialPort::NoParity
                && line->dataBits == QSerialPort::Data8 && line->stopBits == QSerialPort::OneStop);
        for (const char* text : {"9600,X,8,1", "9600,N,9,1", "9600,N,8", "fast,N,8,1"})
            QVERIFY2(!LineSettings::parse(QLatin1String(text)), text);
    }

    void portNumbering_data()
    {
        QTest::addColumn<QStringList>("locations");
        QTest::addColumn<QStringList>("ordered");
        QTest::newRow("USB adapters, modems, on-board ports, others")
            << QStringList{"/dev/ttyS0", "/dev/rfcomm0", "/dev/ttyACM0", "/dev/ttyUSB1", "/dev/ttyUSB0"}
            << QStringList{"/dev/ttyUSB0", "/dev/ttyUSB1", "/dev/ttyACM0", "/dev/ttyS0", "/dev/rfcomm0"};
        QTest::newRow("numbers compare as numbers")
            << QStringList{"/dev/ttyUSB10", "/dev/ttyUSB2", "/dev/ttyS11", "/dev/ttyS3"}
            << QStringList{"/dev/ttyUSB2", "/dev/ttyUSB10", "/dev/ttyS3", "/dev/ttyS11"};
        QTest::newRow("a name that only starts like a group")
            << QStringList{"/dev/ttySAC0", "/dev/ttyS1"}
            << QStringList{"/dev/ttyS1", "/dev/ttySAC0"};
    }
    void portNumbering()
    {
        QFETCH(QStringList, locations);
        QFETCH(QStringList, ordered);
        QCOMPARE(PortNaming::ordered(locations), ordered);
        for (int n = 1; n <= ordered.size(); ++n)
            QCOMPARE(PortNaming::deviceFor(n, locations), ordered[n - 1]);
        QVERIFY(PortNaming::deviceFor(0, locations).isEmpty());
        QVERIFY(PortNaming::deviceFor(int(ordered.size()) + 1, locations).isEmpty());
    }

    // A number outside 1..9 is read again from the setting, and the value
    // read is used as it stands.
    void openRereadsPortNumber_data()
    {
        QTest::addColumn<int>("inMemory");
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("device");
        QTest::addColumn<int>("portNoAfter");
        QTest::newRow("in range") << 5 << "3"
                                  << "port5" << 5;
        QTest::newRow("0 is read again") << 0 << "3"
                                         << "port3" << 3;
        QTest::newRow("10 is read again") << 10 << "4"
                                          << "port4" << 4;
        QTest::newRow("a stored 10 is used") << 10 << "10"
                                             << "port10" << 10;
        QTest::newRow("nothing stored gives 1") << -1 << ""
                                                << "port1" << 1;
    }
    void openRereadsPortNumber()
    {
        QFETCH(int, inMemory);
        QFETCH(QString, stored);
        QFETCH(QString, device);
        LinkRig rig;
        if (!stored.isEmpty())
            Settings::writeText(Setting::PortNo, stored);
        ProgramState::instance().gPortNo = qint16(inMemory);

        QCOMPARE(rig.link.OpenCommPort(), 0);

        QCOMPARE(rig.port.opened, QStringList{device});
        QTEST(int(ProgramState::instance().gPortNo), "portNoAfter");
        QCOMPARE(rig.port.lastSettings, QStringLiteral("9600,N,8,1"));
    }

    void scanTriesEveryPortInOrder()
    {
        LinkRig rig;
        QStringList all;
        for (int n = 1; n <= 32; ++n) {
            all << QStringLiteral("port%1").arg(n);
            if (n != 2 && n != 7)
                rig.port.refuse(all.last());
        }
        ProgramState::instance().gPortOccupy = true;
        ProgramState::instance().gPortNo = 2;
        QCOMPARE(rig.link.OpenCommPort(), 0);
        rig.port.openAttempts.clear();

        rig.link.ScanPorts();

        QCOMPARE(rig.port.openAttempts, all);
        for (int n = 0; n <= 33; ++n)
            QCOMPARE(rig.link.portAvailable(n), n == 2 || n == 7);
        QVERIFY(!rig.link.isPortOpen());
        QVERIFY(rig.prompter.shown.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestPorts)
#include "tst_ports.moc"
