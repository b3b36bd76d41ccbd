#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "shell/LanguageStartup.h"
#include "shell/Settings.h"
#include "shell/StartupOptions.h"
#include "shell/StartupSettings.h"
#include "shell/VersionText.h"
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
        QTest::newRow("Japan, 3 stored") << "Japan" << 3 << false << 3 << 10000;
        QTest::newRow("Germany, Japanese stored") << "Germany" << 1 << true << 2 << 10000;
        QTest::newRow("United States, English stored") << "United States" << 2 << true << 2 << 10000;
        QTest::newRow("no country (C locale)") << "Default" << 1 << true << 2 << 10000;
        QTest::newRow("lower case is another name") << "japan" << 1 << true << 2 << 10000;
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

    void japanIsNamedAsTheSystemNamesIt()
    {
        const LanguageDecision d = LanguageStartup::decide(
            QLocale::territoryToString(QLocale::Japan), [] { return qint16(1); });
        QVERIFY(!d.foreignOs);
        QCOMPARE(d.msgBase, 0);
    }

    void startupSettings_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("stored");   // empty: nothing stored
        QTest::addColumn<int>("portNo");
        QTest::addColumn<bool>("occupy");
        QTest::addColumn<bool>("roundUp");
        QTest::addColumn<bool>("mmUnit");

        QTest::newRow("fresh installation") << "" << "" << 1 << true << true << true;
        QTest::newRow("port 5") << "PortNo" << "5" << 5 << true << true << true;
        QTest::newRow("occupy 0") << "PortOccupy" << "0" << 1 << false << true << true;
        QTest::newRow("occupy negative") << "PortOccupy" << "-1" << 1 << false << true << true;
        QTest::newRow("occupy 2") << "PortOccupy" << "2" << 1 << true << true << true;
        QTest::newRow("round-up 0") << "MmRoundUp" << "0" << 1 << true << false << true;
        QTest::newRow("mm display 0") << "DispMmUnit" << "0" << 1 << true << true << false;
        QTest::newRow("mm display 7") << "DispMmUnit" << "7" << 1 << true << true << true;
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

        QTEST(int(s.gPortNo), "portNo");
        QTEST(s.gPortOccupy, "occupy");
        QTEST(s.gMmRoundUp, "roundUp");
        QTEST(s.gDispMmUnit, "mmUnit");
    }

    void versionText_data()
    {
        QTest::addColumn<int>("major");
        QTest::addColumn<int>("minor");
        QTest::addColumn<int>("revision");
        QTest::addColumn<QString>("text");

        QTest::newRow("0.9.6") << 0 << 9 << 6 << "Version 0.96";
        QTest::newRow("1.2.34") << 1 << 2 << 34 << "Version 1.234";
        QTest::newRow("1.0.0") << 1 << 0 << 0 << "Version 1.00";
        QTest::newRow("2.10.5") << 2 << 10 << 5 << "Version 2.105";
    }
    void versionText()
    {
        QFETCH(int, major);
        QFETCH(int, minor);
        QFETCH(int, revision);
        QTEST(VersionText(major, minor, revision), "text");
    }

    void options_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<bool>("simulator");
        QTest::addColumn<QString>("port");
        QTest::addColumn<QString>("screenshots");

        QTest::newRow("nothing") << QStringList{"ktr-w5"} << false << "" << "";
        QTest::newRow("simulator") << QStringList{"ktr-w5", "--simulator"} << true << "" << "";
        QTest::newRow("port") << QStringList{"ktr-w5", "--port", "/dev/ttyUSB0"}
                              << false << "/dev/ttyUSB0" << "";
        QTest::newRow("port=") << QStringList{"ktr-w5", "--port=COM3", "--simulator"}
                               << true << "COM3" << "";
        QTest::newRow("port without name") << QStringList{"ktr-w5", "--port"} << false << "" << "";
        QTest::newRow("screenshots and Qt's own") << QStringList{"ktr-w5", "-platform", "offscreen",
                                                                 "--screenshot", "/tmp/s"}
                                                  << false << "" << "/tmp/s";
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
