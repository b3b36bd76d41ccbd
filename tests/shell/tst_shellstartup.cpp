#include "common/LanguageStartup.h"
#include "common/ProgramState.h"
#include "common/Settings.h"
#include "common/StartupSettings.h"
#include "common/VersionText.h"
#include "shell/StartupOptions.h"
#include "support/TempSettings.h"

#include <QLocale>
#include <QtTest>

// Start-up decisions: language, stored preferences, version text, options.
class TestShellStartup : public QObject {
    Q_OBJECT

private slots:
    void init() { ProgramState::reset(); }

    void languageDecision_data()
    {
        QTest::addColumn<QString>("country");
        QTest::addColumn<int>("stored");
        QTest::addColumn<bool>("foreignOs");
        QTest::addColumn<int>("language");
        QTest::addColumn<int>("msgBase");
        QTest::newRow("Japan, Japanese stored") << "Japan" << 1 << false << 1 << 0;
        QTest::newRow("Japan, English stored") << "Japan" << 2 << false << 2 << 10000;
        QTest::newRow("Japan, 0 stored") << "Japan" << 0 << false << 0 << 10000;
        QTest::newRow("Germany, Japanese stored") << "Germany" << 1 << true << 2 << 10000;
        QTest::newRow("no country (C locale)") << "Default" << 1 << true << 2 << 10000;
        QTest::newRow("lower case is another name") << "japan" << 1 << true << 2 << 10000;
        QTest::newRow("Japan as the system names it") << QLocale::territoryToString(QLocale::Japan) << 1 << false << 1 << 0;
    }
    void languageDecision()
    {
        QFETCH(QString, country);
        QFETCH(int, stored);
        int reads = 0;
        const LanguageDecision d = LanguageStartup::decide(country, [&] {
            ++reads;
            return qint16(stored);
        });
        QTEST(d.foreignOs, "foreignOs");
        QTEST(int(d.language), "language");
        QTEST(int(d.msgBase), "msgBase");
        // A forced English run does not even look at the stored choice.
        QCOMPARE(reads, d.foreignOs ? 0 : 1);
    }

    // Stored preferences: port number, port occupy, round-up and mm display.
    void startupSettings_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QList<int>>("loaded");
        QTest::newRow("fresh installation") << ""
                                            << "" << QList<int>{1, 1, 1, 1};
        QTest::newRow("port 5") << "PortNo"
                                << "5" << QList<int>{5, 1, 1, 1};
        QTest::newRow("occupy 0") << "PortOccupy"
                                  << "0" << QList<int>{1, 0, 1, 1};
        QTest::newRow("occupy 2") << "PortOccupy"
                                  << "2" << QList<int>{1, 1, 1, 1};
        QTest::newRow("round-up 0") << "MmRoundUp"
                                    << "0" << QList<int>{1, 1, 0, 1};
        QTest::newRow("mm display 0") << "DispMmUnit"
                                      << "0" << QList<int>{1, 1, 1, 0};
    }
    void startupSettings()
    {
        QFETCH(QString, key);
        QFETCH(QString, stored);
        TempSettings temp;
        if (!key.isEmpty())
            Settings::writeText(key, stored);
        ProgramState& s = ProgramState::instance();
        s.gPortNo = 9;
        s.gPortOccupy = s.gMmRoundUp = s.gDispMmUnit = false;
        StartupSettings::load(s);
        QTEST((QList<int>{s.gPortNo, s.gPortOccupy, s.gMmRoundUp, s.gDispMmUnit}), "loaded");
    }

    void versionText()
    {
        QCOMPARE(VersionText(0, 9, 6), "Version 0.96");
        QCOMPARE(VersionText(1, 2, 34), "Version 1.234");
    }

    void options_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<bool>("simulator");
        QTest::addColumn<QString>("port");
        QTest::addColumn<QString>("screenshots");
        QTest::newRow("nothing") << QStringList{"ktr-w5"} << false << ""
                                 << "";
        QTest::newRow("port") << QStringList{"ktr-w5", "--port", "/dev/ttyUSB0"} << false << "/dev/ttyUSB0"
                              << "";
        QTest::newRow("port=") << QStringList{"ktr-w5", "--port=COM3", "--simulator"} << true << "COM3"
                               << "";
        QTest::newRow("screenshots (Qt's own options already taken out)")
            << QStringList{"ktr-w5", "--screenshot=/tmp/s"} << false << ""
            << "/tmp/s";
    }
    void options()
    {
        QFETCH(QStringList, args);
        const StartupOptions o = StartupOptions::parse(args);
        QTEST(o.simulator, "simulator");
        QTEST(o.portName, "port");
        QTEST(o.screenshotDir, "screenshots");
    }
};

QTEST_APPLESS_MAIN(TestShellStartup)
#include "tst_shellstartup.moc"
