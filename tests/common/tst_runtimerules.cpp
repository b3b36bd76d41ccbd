#include "common/NumberText.h"
#include "common/Pad.h"
#include "common/RuntimeError.h"
#include "common/StripLeadingZeros.h"

#include <QTest>

class TestRuntimeRules : public QObject {
    Q_OBJECT

private slots:
    void leadingNumber_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("expected");
        QTest::newRow("digits then letters") << "12abc" << 12.0;
        QTest::newRow("letters only") << "abc" << 0.0;
        QTest::newRow("empty") << "" << 0.0;
        QTest::newRow("hex prefix") << "&H1C" << 28.0;
        QTest::newRow("hex lower case") << "&hff" << 255.0;
        QTest::newRow("hex stops at non-digit") << "&H1G" << 1.0;
        QTest::newRow("octal") << "&O17" << 15.0;
        QTest::newRow("blanks ignored anywhere") << " 1 2" << 12.0;
        QTest::newRow("decimal") << "2.05x" << 2.05;
        QTest::newRow("leading point") << ".5" << 0.5;
        QTest::newRow("negative") << "-3A" << -3.0;
        QTest::newRow("exponent") << "1e3" << 1000.0;
        QTest::newRow("dangling exponent") << "7e" << 7.0;
        QTest::newRow("second point ends") << "1.2.3" << 1.2;
        QTest::newRow("digit of another script ends") << QString::fromUtf8("1\u0663") << 1.0;
    }
    void leadingNumber()
    {
        QFETCH(QString, text);
        QTEST(LeadingNumber(text), "expected");
    }

    void roundToInt16_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("expected");
        QTest::addColumn<bool>("overflows");
        QTest::newRow("half down to even") << 2.5 << 2 << false;
        QTest::newRow("half up to even") << 3.5 << 4 << false;
        QTest::newRow("37.5 gives 38") << 37.5 << 38 << false;
        QTest::newRow("negative half") << -2.5 << -2 << false;
        QTest::newRow("below half") << 2.49 << 2 << false;
        QTest::newRow("largest") << 32767.0 << 32767 << false;
        QTest::newRow("smallest") << -32768.0 << -32768 << false;
        QTest::newRow("rounds to smallest") << -32768.5 << -32768 << false;
        QTest::newRow("rounds above largest") << 32767.5 << 0 << true;
        QTest::newRow("above largest") << 32768.0 << 0 << true;
        QTest::newRow("below smallest") << -32769.0 << 0 << true;
    }
    void roundToInt16()
    {
        QFETCH(double, value);
        QFETCH(bool, overflows);
        if (overflows) {
            QVERIFY_THROWS_EXCEPTION(RuntimeError, RoundToInt16(value));
            return;
        }
        QTEST(int(RoundToInt16(value)), "expected");
    }

    void strictTextConversion()
    {
        QCOMPARE(TextToInt16(" 12 "), qint16(12));
        QCOMPARE(TextToInt16("&H10"), qint16(16));
        QCOMPARE(TextToInt32("262143"), qint32(262143));
        for (const char* bad : {"", "12abc", "abc", "1 2", "&H"}) {
            try {
                TextToInt16(bad);
                QFAIL(bad);
            } catch (const RuntimeError& e) {
                QCOMPARE(e.kind(), RuntimeError::Kind::TypeMismatch);
            }
        }
        try {
            TextToInt16("40000");
            QFAIL("no overflow");
        } catch (const RuntimeError& e) {
            QCOMPARE(e.kind(), RuntimeError::Kind::Overflow);
        }
    }

    void pad_data()
    {
        QTest::addColumn<bool>("hex");
        QTest::addColumn<qint64>("value");
        QTest::addColumn<int>("width");
        QTest::addColumn<QString>("expected");
        QTest::newRow("hex padded") << true << qint64(10) << 2 << "0A";
        QTest::newRow("hex upper case") << true << qint64(0xabc) << 4 << "0ABC";
        QTest::newRow("hex exact width") << true << qint64(255) << 2 << "FF";
        QTest::newRow("hex too wide") << true << qint64(300) << 2 << "X";
        QTest::newRow("hex 256 as position") << true << qint64(256) << 2 << "X";
        QTest::newRow("hex zero") << true << qint64(0) << 5 << "00000";
        QTest::newRow("hex negative") << true << qint64(-1) << 4 << "X";
        QTest::newRow("dec padded") << false << qint64(7) << 3 << "007";
        QTest::newRow("dec too wide") << false << qint64(1000) << 3 << "X";
    }
    void pad()
    {
        QFETCH(bool, hex);
        QFETCH(qint64, value);
        QFETCH(int, width);
        QTEST(hex ? HexPad(value, width) : DecPad(value, width), "expected");
    }

    void stripLeadingZeros_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");
        QTest::newRow("all zeros") << "0000" << "0";
        QTest::newRow("empty") << "" << "0";
        QTest::newRow("leading zeros") << "007" << "7";
        QTest::newRow("inner zero kept") << "1005" << "1005";
        QTest::newRow("plain") << "42" << "42";
    }
    void stripLeadingZeros()
    {
        QFETCH(QString, text);
        StripLeadingZeros(text);
        QTEST(text, "expected");
    }
};

QTEST_APPLESS_MAIN(TestRuntimeRules)
#include "tst_runtimerules.moc"
