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
        QTest::newRow("Japan, English stored") << "Japan" << 2 << false << 2 << 10000;
        QTest::newRow("Germany, Japanese stored") << "Germany" << 1 << true << 2 << 10000;
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
        QTest::addColumn<const IntSetting*>("key");
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QList<int>>("loaded");
        QTest::newRow("fresh installation") << static_cast<const IntSetting*>(nullptr) << "" << QList<int>{1, 1, 1, 1};
        QTest::newRow("port 5") << &Setting::PortNo << "5" << QList<int>{5, 1, 1, 1};
        QTest::newRow("occupy 0") << &Setting::PortOccupy << "0" << QList<int>{1, 0, 1, 1};
        QTest::newRow("occupy 2") << &Setting::PortOccupy << "2" << QList<int>{1, 1, 1, 1};
        QTest::newRow("round-up 0") << &Setting::MmRoundUp << "0" << QList<int>{1, 1, 0, 1};
        QTest::newRow("mm display 0") << &Setting::DispMmUnit << "0" << QList<int>{1, 1, 1, 0};
    }
    void startupSettings()
    {
        QFETCH(const IntSetting*, key);
        QFETCH(QString, stored);
        TempSettings temp;
        if (key)
            Settings::writeText(*key, stored);
        ProgramState& s = ProgramState::instance();
        s.gPortNo = 9;
        s.gPortOccupy = s.gMmRoundUp = s.gDispMmUnit = false;
        StartupSettings::load(s);
        QTEST((QList<int>{s.gPortNo, s.gPortOccupy, s.gMmRoundUp, s.gDispMmUnit}), "loaded");
    }

    void versionText()
    {
        QCOMPARE(VersionText(1, 2, 34), "Version 1.234");
    }

    void options()
    {
        const StartupOptions o =
            StartupOptions::parse({"ktr-w5", "--port", "/dev/ttyUSB0", "--simulator", "--screenshot=/tmp/s"});
        QVERIFY(o.simulator && o.errorMessage == 0);
        QCOMPARE(o.portName, "/dev/ttyUSB0");
        QCOMPARE(o.screenshotDir, "/tmp/s");
        QVERIFY(!StartupOptions::parse({"ktr-w5"}).simulator);
    }
};

QTEST_APPLESS_MAIN(TestShellStartup)
#include "tst_shellstartup.moc"
