#include "common/AtomicFile.h"
#include "common/MessageTable.h"
#include "common/NumberText.h"
#include "common/Pad.h"
#include "common/ProgramState.h"
#include "common/RuntimeError.h"
#include "common/SeqReader.h"

#include "support/FileSizeLimit.h"

#include <QFile>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <optional>

namespace {

// The kind of RuntimeError the call raised, if any.
std::optional<RuntimeError::Kind> raised(const std::function<void()>& call)
{
    try {
        call();
    } catch (const RuntimeError& e) {
        return e.kind();
    }
    return std::nullopt;
}

} // namespace

// The runtime's number and text rules, the item files built on them, and the message table.
class TestRuntimeRules : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { ProgramState::reset(); }

    void leadingNumber_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("expected");
        QTest::newRow("empty") << "" << 0.0;
        QTest::newRow("hex stops at non-digit") << "&h1G" << 1.0;
        QTest::newRow("octal") << "&O17" << 15.0;
        QTest::newRow("blanks ignored anywhere") << " 1 2" << 12.0;
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

    // Halves go to even; a result outside 16 bits (no value here) overflows.
    void roundToInt16_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QVariant>("expected");
        QTest::newRow("half down to even") << 2.5 << QVariant(2);
        QTest::newRow("half up to even") << 3.5 << QVariant(4);
        QTest::newRow("rounds to smallest") << -32768.5 << QVariant(-32768);
        QTest::newRow("rounds above largest") << 32767.5 << QVariant();
        QTest::newRow("below smallest") << -32769.0 << QVariant();
    }
    void roundToInt16()
    {
        QFETCH(double, value);
        QFETCH(QVariant, expected);
        if (!expected.isValid())
            QCOMPARE(raised([&] { RoundToInt16(value); }), RuntimeError::Kind::Overflow);
        else
            QCOMPARE(int(RoundToInt16(value)), expected.toInt());
    }

    void strictTextConversion()
    {
        QCOMPARE(TextToInt16(" 12 "), qint16(12));
        QCOMPARE(TextToInt16("&H10"), qint16(16));
        QCOMPARE(TextToInt32("262143"), qint32(262143));
        for (const char* bad : {"", "12abc", "1 2", "&H"})
            QCOMPARE(raised([&] { TextToInt16(bad); }), RuntimeError::Kind::TypeMismatch);
        QCOMPARE(raised([] { TextToInt16("40000"); }), RuntimeError::Kind::Overflow);
    }

    void pad_data()
    {
        QTest::addColumn<bool>("hex");
        QTest::addColumn<qint64>("value");
        QTest::addColumn<int>("width");
        QTest::addColumn<QString>("expected");
        QTest::newRow("hex too wide") << true << qint64(256) << 2 << "X";
        QTest::newRow("hex negative") << true << qint64(-1) << 4 << "X";
        QTest::newRow("dec padded") << false << qint64(7) << 3 << "007";
    }
    void pad()
    {
        QFETCH(bool, hex);
        QFETCH(qint64, value);
        QFETCH(int, width);
        QTEST(hex ? HexPad(value, width) : DecPad(value, width), "expected");
    }

    void readsItems_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QStringList>("items");
        QTest::newRow("comma inside quotes") << QByteArray("\"a,b\",c\r\n") << QStringList{"a,b", "c"};
        QTest::newRow("blanks around bare items dropped") << QByteArray("  12 ,  x y  \n") << QStringList{"12", "x y"};
        QTest::newRow("blanks inside quotes kept") << QByteArray("\" 1.Power \"\n") << QStringList{" 1.Power "};
        QTest::newRow("empty items") << QByteArray("0,\"\",,\r\n\"35\",\n") << QStringList{"0", "", "", "", "35", ""};
        QTest::newRow("blank lines skipped") << QByteArray("1\r\n\r\n2\r\n") << QStringList{"1", "2"};
        QTest::newRow("LF and CR line ends") << QByteArray("a\nb\rc") << QStringList{"a", "b", "c"};
        QTest::newRow("text after closing quote dropped") << QByteArray("\"ab\"cd,e\n") << QStringList{"ab", "e"};
        QTest::newRow("unterminated quote runs to the end") << QByteArray("\"abc") << QStringList{"abc"};
    }
    void readsItems()
    {
        QFETCH(QByteArray, content);
        QFETCH(QStringList, items);
        SeqReader reader(content);
        for (const QString& expected : items)
            QCOMPARE(reader.readText(), expected);
        QVERIFY(reader.atEnd());
    }

    void readerErrors()
    {
        SeqReader reader("12, \"34\",\"\", 2.5,abc\r\n");
        for (double expected : {12.0, 34.0, 0.0, 2.5})
            QCOMPARE(reader.readNumber(), expected);
        QCOMPARE(raised([&] { reader.readNumber(); }), RuntimeError::Kind::TypeMismatch);
        QCOMPARE(raised([&] { reader.readText(); }), RuntimeError::Kind::InputPastEnd);
    }

    // The write is made to fail by a file size limit, which holds for
    // every user (directory permissions do not stop root).
    void atomicWriteKeepsOldFileOnFailure()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath("data.qmd");
        QVERIFY(AtomicFile::write(path, "old"));
        FileSizeLimit limit(4);
        QString error;
        QVERIFY(!AtomicFile::write(path, "new content", &error));
        QVERIFY(!error.isEmpty());
        QFile f(path);
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.readAll(), QByteArray("old"));
    }

    // A row appended with a stray tab, a missing or empty field or a reused id
    // would be dropped, show nothing or silently replace another text.
    void everyRowIsWellFormed()
    {
        QFile file(":/messages.tsv");
        QVERIFY(file.open(QIODevice::ReadOnly));
        QSet<int> seen;
        for (const QByteArray& line : file.readAll().split('\n')) {
            if (line.isEmpty() || line.startsWith('#'))
                continue;
            const QList<QByteArray> fields = line.split('\t');
            const int id = fields[0].toInt();
            QVERIFY2(fields.size() == 3 && id > 0 && id < MessageTable::EnglishBase && !seen.contains(id), line.constData());
            QVERIFY2(!MessageTable::instance().text(id).isEmpty() && !MessageTable::instance().text(id + MessageTable::EnglishBase).isEmpty(), line.constData());
            seen.insert(id);
        }
        QVERIFY(seen.size() > 100);
    }

    void fromTsv_data()
    {
        QTest::addColumn<QByteArray>("tsv");
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("expected");
        QTest::addColumn<int>("count");
        QTest::newRow("line break escape") << QByteArray("5\ta\\nb\ten") << 5 << "a\nb" << 2;
        QTest::newRow("tab escape") << QByteArray("5\tja\tx\\ty") << 10005 << "x\ty" << 2;
        QTest::newRow("escaped backslash") << QByteArray("5\tC:\\\\n\ten") << 5 << "C:\\n"
                                           << 2;
        QTest::newRow("unknown escape kept") << QByteArray("5\ta\\qb\ten") << 5 << "a\\qb" << 2;
        QTest::newRow("trailing backslash kept") << QByteArray("5\ta\\\ten") << 5 << "a\\" << 2;
        QTest::newRow("CR LF, blanks kept") << QByteArray("5\tja\t en \r\n6\tj6\te6\r\n") << 10005 << " en " << 4;
        QTest::newRow("blank lines skipped") << QByteArray("\n\n5\tja\ten\n\n") << 5 << "ja" << 2;
        QTest::newRow("id not a number") << QByteArray("x5\tja\ten\n6\tj6\te6") << 5 << QString() << 2;
        QTest::newRow("empty Japanese field") << QByteArray("5\t\ten") << 5 << QString() << 1;
    }
    void fromTsv()
    {
        QFETCH(QByteArray, tsv);
        QFETCH(int, id);
        QFETCH(QString, expected);
        const MessageTable table = MessageTable::fromTsv(tsv);
        QCOMPARE(table.contains(id), !expected.isNull());
        QCOMPARE(table.text(id), expected);
        QTEST(int(table.ids().size()), "count");
    }
};

QTEST_APPLESS_MAIN(TestRuntimeRules)
#include "tst_runtimerules.moc"
