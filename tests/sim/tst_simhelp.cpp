#include "common/ProgramState.h"
#include "sim/SimOptions.h"

#include <QRegularExpression>
#include <QTest>

// The help of ktr-sim is written by hand, the options are a table: an option
// added to the table without its help line is caught here.
class TestSimHelp : public QObject {
    Q_OBJECT

private slots:
    void everyAcceptedOptionHasItsLine_data()
    {
        QTest::addColumn<int>("msgBase");
        QTest::newRow("Japanese") << 0;
        QTest::newRow("English") << 10000;
    }
    void everyAcceptedOptionHasItsLine()
    {
        QFETCH(int, msgBase);
        ProgramState::instance().gMsgBase = msgBase;
        const QString help = SimOptions::usage();
        QVERIFY(!help.contains(QLatin1String("%%")));
        for (const QString& name : SimOptions::optionNames()) {
            // At the start of an indented option line, alone or after the
            // other names of the same line ("  --stb, --stop").
            const QRegularExpression line(QStringLiteral("(^|\\n)  ([-a-z]+, )*%1[ ,]")
                                              .arg(QRegularExpression::escape(name)));
            QVERIFY2(line.match(help).hasMatch(), qPrintable(name));
        }
    }
};

QTEST_APPLESS_MAIN(TestSimHelp)
#include "tst_simhelp.moc"
