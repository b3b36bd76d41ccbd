#include "LinkRig.h"

#include "common/DataFiles.h"
#include "common/MessageTable.h"

#include <QSet>
#include <QTest>

namespace {

QByteArray listOf(int count, int pairs)
{
    QByteArray content = QByteArray::number(count) + "\r\n";
    for (int i = 1; i <= pairs; ++i)
        content += "\"K" + QByteArray::number(i) + "\",\"text " + QByteArray::number(i) + "\"\r\n";
    return content;
}

} // namespace

class TestErrorList : public QObject {
    Q_OBJECT

private slots:
    void reading_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("read");
        QTest::addColumn<int>("entries");
        QTest::newRow("count then pairs")
            << QByteArray("2\r\n\"11\",\"Unknown, really.\"\r\n03,Homing refused\r\n") << true << 2;
        QTest::newRow("pairs on one line") << QByteArray("2,\"11\",\"a\",\"12\",\"b\"") << true << 2;
        QTest::newRow("empty list") << QByteArray("0\r\n") << true << 0;
        QTest::newRow("forty entries") << listOf(40, 40) << true << 40;
        QTest::newRow("forty-one entries") << listOf(41, 41) << false << 0;
        QTest::newRow("file ends early") << listOf(3, 2) << false << 0;
        QTest::newRow("count not a number") << QByteArray("many\r\n\"11\",\"a\"\r\n") << false << 0;
    }
    void reading()
    {
        QFETCH(QByteArray, content);
        QFETCH(bool, read);
        QFETCH(int, entries);
        LinkRig rig;
        QCOMPARE(rig.loadErrors(content), read);
        QCOMPARE(rig.errors.missing(), !read);
        QCOMPARE(int(rig.errors.entries().size()), entries);
    }

    void keysAreText()
    {
        LinkRig rig;
        QVERIFY(rig.loadErrors("3\r\n\"03\",\"first\"\r\n3,\"second\"\r\n\"03\",\"third\"\r\n"));
        QCOMPARE(rig.errors.find(QStringLiteral("03"))->text, QStringLiteral("first"));
        QCOMPARE(rig.errors.find(QStringLiteral("3"))->text, QStringLiteral("second"));
        QVERIFY(!rig.errors.find(QStringLiteral("003")));
    }

    // Without the list beside the program, messages 30 and 31 say so.
    void startUpWithoutAList()
    {
        LinkRig rig;
        DataFiles::setProgramFolder(rig.dir.path());
        const int result = rig.errors.Get_ErrorList(rig.prompter);
        DataFiles::setProgramFolder({});
        QCOMPARE(result, 1);
        QVERIFY(rig.errors.missing());
        QCOMPARE(rig.prompter.texts(), QStringList{MsgLines({30, 31})});
    }

    // Start-up reads the shipped list of the language, which names every
    // code the controller sends, once.
    void shippedLists_data()
    {
        QTest::addColumn<int>("msgBase");
        QTest::addColumn<QString>("unknownCommand");
        QTest::newRow("Japanese") << 0 << "101: 未定義のコマンドです。";
        QTest::newRow("English") << 10000 << "101: Unknown command.";
    }
    void shippedLists()
    {
        QFETCH(int, msgBase);
        LinkRig rig;
        ProgramState::instance().gMsgBase = msgBase;
        QCOMPARE(rig.errors.Get_ErrorList(rig.prompter), 0);
        QTEST(rig.errors.find(QStringLiteral("11")).value_or(ErrorList::Entry{}).text, "unknownCommand");

        QSet<QString> keys;
        for (const ErrorList::Entry& entry : rig.errors.entries()) {
            QVERIFY2(!keys.contains(entry.key), qPrintable(entry.key));
            QVERIFY(!entry.text.trimmed().isEmpty());
            keys.insert(entry.key);
        }
        for (const char* code : {"101", "102", "103", "104", "201", "0B3", "301", "302", "303"}) {
            const LinkOutcome::Error error = rig.link.ErrorCheck(QStringLiteral("0%%") + QLatin1String(code));
            QVERIFY2(error.found, code);
            QVERIFY2(error.text.contains(QLatin1String(code)), code);
        }
    }
};

QTEST_GUILESS_MAIN(TestErrorList)
#include "tst_errorlist.moc"
