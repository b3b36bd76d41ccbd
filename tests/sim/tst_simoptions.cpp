#include "common/ProgramState.h"
#include "sim/SimOptions.h"

#include <QTest>

class TestSimOptions : public QObject {
    Q_OBJECT

private slots:
    void init() { ProgramState::instance().gMsgBase = 10000; }
    void defaults()
    {
        QString error;
        const auto o = SimOptions::parse({}, &error);
        QVERIFY(o);
        QCOMPARE(o->front, SimOptions::Front::Pty);
        QVERIFY(!o->pace);
        QCOMPARE(o->timeScale, 1.0);
        QVERIFY(o->stateFile.isEmpty());
        QVERIFY(o->faults.silence.isNone() && o->faults.late.isNone());
        QVERIFY(o->faults.alarmCode.isEmpty());
        QCOMPARE(o->faults.restartAfter, 0);
    }

    void frontAndRun()
    {
        QString error;
        const auto o = SimOptions::parse({"--device", "/dev/ttyUSB1", "--pace", "--state", "/tmp/s",
                                          "--time-scale", "0.05", "--lang", "ja"}, &error);
        QVERIFY2(o, qPrintable(error));
        QCOMPARE(o->front, SimOptions::Front::Device);
        QCOMPARE(o->device, QStringLiteral("/dev/ttyUSB1"));
        QVERIFY(o->pace);
        QCOMPARE(o->stateFile, QStringLiteral("/tmp/s"));
        QCOMPARE(o->timeScale, 0.05);
    }

    void faults()
    {
        QString error;
        const auto o = SimOptions::parse({"--silent", "RA,RD", "--late", "200:RV", "--extra-char", "all",
                                          "--wrong-echo", "0RP", "--split-crlf", "CM",
                                          "--error-reply", "MP:0B3", "--garbage", "RO",
                                          "--alarm", "302@move", "--stb", "--stop",
                                          "--restart-after", "5"}, &error);
        QVERIFY2(o, qPrintable(error));
        const SimFaults& f = o->faults;
        QVERIFY(f.silence.matches("RA") && f.silence.matches("RD") && !f.silence.matches("RV"));
        QVERIFY(f.late.matches("RV") && !f.late.matches("RA"));
        QCOMPARE(f.lateMs, 200);
        QVERIFY(f.extraChar.matches("WO"));
        QVERIFY(f.wrongEcho.matches("RP") && !f.wrongEcho.matches("RA"));
        QVERIFY(f.splitCrLf.matches("CM"));
        QVERIFY(f.errorReply.matches("MP"));
        QCOMPARE(f.errorCode, QByteArray("0B3"));
        QVERIFY(f.garbage.matches("RO"));
        QCOMPARE(f.alarmCode, QByteArray("302"));
        QVERIFY(f.alarmOnMove);
        QVERIFY(f.stbInput && f.stopInput);
        QCOMPARE(f.restartAfter, 5);
    }

    void valueAfterEqualsSign()
    {
        QString error;
        const auto o = SimOptions::parse({"--late=150", "--alarm=303@250", "--time-scale=2"}, &error);
        QVERIFY2(o, qPrintable(error));
        QVERIFY(o->faults.late.matches("RA") && o->faults.late.matches("WD"));
        QCOMPARE(o->faults.lateMs, 150);
        QCOMPARE(o->faults.alarmCode, QByteArray("303"));
        QCOMPARE(o->faults.alarmAfterMs, 250);
        QVERIFY(!o->faults.alarmOnMove);
        QCOMPARE(o->timeScale, 2.0);
    }

    void rejected_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<QString>("error");

        QTest::newRow("unknown") << QStringList{"--fast"} << "Unknown option: --fast";
        QTest::newRow("stray word") << QStringList{"pty"} << "Unknown option: pty";
        QTest::newRow("flag with value") << QStringList{"--pace=1"} << "Unknown option: --pace=1";
        QTest::newRow("missing value") << QStringList{"--state"} << "The option --state needs a value.";
        QTest::newRow("time scale 0") << QStringList{"--time-scale", "0"} << "Invalid value for --time-scale: 0";
        QTest::newRow("time scale text") << QStringList{"--time-scale", "fast"} << "Invalid value for --time-scale: fast";
        QTest::newRow("alarm 304") << QStringList{"--alarm", "304"} << "Invalid value for --alarm: 304";
        QTest::newRow("alarm when") << QStringList{"--alarm", "301@soon"} << "Invalid value for --alarm: 301@soon";
        QTest::newRow("error code short") << QStringList{"--error-reply", "RV:11"} << "Invalid value for --error-reply: RV:11";
        QTest::newRow("error without code") << QStringList{"--error-reply", "RV"} << "Invalid value for --error-reply: RV";
        QTest::newRow("late negative") << QStringList{"--late", "-5"} << "Invalid value for --late: -5";
        QTest::newRow("late bad command") << QStringList{"--late", "50:R"} << "Invalid value for --late: 50:R";
        QTest::newRow("silent bad command") << QStringList{"--silent", "READ"} << "Invalid value for --silent: READ";
        QTest::newRow("restart 0") << QStringList{"--restart-after", "0"} << "Invalid value for --restart-after: 0";
        QTest::newRow("language") << QStringList{"--lang", "fr"} << "Invalid value for --lang: fr";
        QTest::newRow("two fronts") << QStringList{"--pty", "--device", "/dev/ttyS0"}
                                    << "--pty and --device cannot be used together.";
    }
    void rejected()
    {
        QFETCH(QStringList, args);

        QString message;
        QVERIFY(!SimOptions::parse(args, &message));
        QTEST(message, "error");
    }

    void language_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("language");

        QTest::newRow("ja") << QStringList{"--pace", "--lang", "ja"} << 1;
        QTest::newRow("en") << QStringList{"--lang", "en", "--pace"} << 2;
        QTest::newRow("en after equals sign") << QStringList{"--lang=en"} << 2;
        QTest::newRow("ja after equals sign") << QStringList{"--lang=ja"} << 1;
    }
    void language()
    {
        QFETCH(QStringList, args);
        QFETCH(int, language);
        QCOMPARE(int(SimOptions::language(args)), language);
    }
};

QTEST_APPLESS_MAIN(TestSimOptions)
#include "tst_simoptions.moc"
