#include "common/ProgramState.h"
#include "sim/SimOptions.h"

#include <QRegularExpression>
#include <QTest>

// ktr-sim's command line (the faults it sets are tried on the controller
// in the controller tests) and its hand-written help.
class TestSimOptions : public QObject {
    Q_OBJECT

private slots:
    void init() { ProgramState::instance().gMsgBase = 10000; }

    void frontAndRun()
    {
        QString error;
        const auto plain = SimOptions::parse({}, &error);
        QVERIFY(plain && plain->front == SimOptions::Front::Pty && !plain->pace && plain->timeScale == 1.0);
        const auto o = SimOptions::parse({"--device", "/dev/ttyUSB1", "--pace", "--state", "/tmp/s",
                                          "--time-scale=0.05", "--lang", "ja", "--late=150"}, &error);
        QVERIFY2(o, qPrintable(error));
        QCOMPARE(o->front, SimOptions::Front::Device);
        QCOMPARE(o->device, "/dev/ttyUSB1");
        QVERIFY(o->pace);
        QCOMPARE(o->stateFile, "/tmp/s");
        QCOMPARE(o->timeScale, 0.05);
        QVERIFY(o->faults.late.matches("RA") && o->faults.late.matches("WD"));
        QCOMPARE(o->faults.lateMs, 150);
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
        QTest::newRow("alarm 304") << QStringList{"--alarm", "304"} << "Invalid value for --alarm: 304";
        QTest::newRow("alarm when") << QStringList{"--alarm", "301@soon"} << "Invalid value for --alarm: 301@soon";
        QTest::newRow("error code short") << QStringList{"--error-reply", "RV:11"} << "Invalid value for --error-reply: RV:11";
        QTest::newRow("late negative") << QStringList{"--late", "-5"} << "Invalid value for --late: -5";
        QTest::newRow("bad command") << QStringList{"--silent", "READ"} << "Invalid value for --silent: READ";
        QTest::newRow("restart 0") << QStringList{"--restart-after", "0"} << "Invalid value for --restart-after: 0";
        QTest::newRow("language") << QStringList{"--lang", "fr"} << "Invalid value for --lang: fr";
        QTest::newRow("two fronts") << QStringList{"--pty", "--device", "/dev/ttyS0"} << "--pty and --device cannot be used together.";
    }
    void rejected()
    {
        QFETCH(QStringList, args);
        QString message;
        QVERIFY(!SimOptions::parse(args, &message));
        QTEST(message, "error");
    }

    void language()
    {
        QCOMPARE(SimOptions::language({"--pace", "--lang", "ja"}), 1);
        QCOMPARE(SimOptions::language({"--lang=en", "--pace"}), 2);
    }

    // An option added to the table without its help line is caught here.
    void everyAcceptedOptionHasItsHelpLine()
    {
        for (int msgBase : {0, 10000}) {
            ProgramState::instance().gMsgBase = msgBase;
            const QString help = SimOptions::usage();
            QVERIFY(!help.contains("%%"));
            for (const QString& name : SimOptions::optionNames()) {
                // At the start of an indented option line, alone or after the
                // other names of the same line ("  --stb, --stop").
                const QRegularExpression line(QStringLiteral("(^|\\n)  ([-a-z]+, )*%1[ ,]").arg(QRegularExpression::escape(name)));
                QVERIFY2(line.match(help).hasMatch(), qPrintable(name));
            }
        }
    }
};

QTEST_APPLESS_MAIN(TestSimOptions)
#include "tst_simoptions.moc"
