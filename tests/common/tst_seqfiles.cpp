#include "common/AtomicFile.h"
#include "common/RuntimeError.h"
#include "common/SeqReader.h"
#include "common/SeqWriter.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "support/FileSizeLimit.h"

class TestSeqFiles : public QObject {
    Q_OBJECT

private slots:
    void readsItems_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QStringList>("items");
        QTest::newRow("quoted and bare")
            << QByteArray("\"QM-KTR\",\"PRM\"\r\n6\r\n") << QStringList{"QM-KTR", "PRM", "6"};
        QTest::newRow("comma inside quotes")
            << QByteArray("\"a,b\",c\r\n") << QStringList{"a,b", "c"};
        QTest::newRow("blanks around bare items dropped")
            << QByteArray("  12 ,  x y  \n") << QStringList{"12", "x y"};
        QTest::newRow("blanks inside quotes kept")
            << QByteArray("\" 1.Power \"\n") << QStringList{" 1.Power "};
        QTest::newRow("empty quoted item")
            << QByteArray("0,\"\",\"9000\"\r\n") << QStringList{"0", "", "9000"};
        QTest::newRow("empty bare item between commas")
            << QByteArray("1,,2\r\n") << QStringList{"1", "", "2"};
        QTest::newRow("empty item before a line end")
            << QByteArray("\"28\",,\r\n\"35\",\n") << QStringList{"28", "", "", "35", ""};
        QTest::newRow("blank lines between items skipped")
            << QByteArray("1\r\n\r\n2\r\n") << QStringList{"1", "2"};
        QTest::newRow("LF and CR line ends")
            << QByteArray("a\nb\rc") << QStringList{"a", "b", "c"};
        QTest::newRow("text after closing quote dropped")
            << QByteArray("\"ab\"cd,e\n") << QStringList{"ab", "e"};
        QTest::newRow("unterminated quote runs to the end")
            << QByteArray("\"abc") << QStringList{"abc"};
        QTest::newRow("Japanese text")
            << QByteArray("\"通信エラー\",1\n") << QStringList{"通信エラー", "1"};
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

    void numbers()
    {
        SeqReader reader("12, \"34\",\"\", 2.5,abc\r\n");
        QCOMPARE(reader.readNumber(), 12.0);
        QCOMPARE(reader.readNumber(), 34.0);
        QCOMPARE(reader.readNumber(), 0.0);
        QCOMPARE(reader.readNumber(), 2.5);
        try {
            reader.readNumber();
            QFAIL("a text was read as a number");
        } catch (const RuntimeError& e) {
            QCOMPARE(e.kind(), RuntimeError::Kind::TypeMismatch);
        }
    }

    void shortFileIsAnError()
    {
        SeqReader reader("\"QM-KTR\"\r\n");
        reader.readText();
        try {
            reader.readText();
            QFAIL("read past the end");
        } catch (const RuntimeError& e) {
            QCOMPARE(e.kind(), RuntimeError::Kind::InputPastEnd);
        }
    }

    void fileErrors()
    {
        QTemporaryDir dir;
        try {
            SeqReader::fromFile(dir.filePath("missing.lst"));
            QFAIL("missing file read");
        } catch (const RuntimeError& e) {
            QCOMPARE(e.kind(), RuntimeError::Kind::FileNotFound);
        }
        QFile big(dir.filePath("big.lst"));
        QVERIFY(big.open(QIODevice::WriteOnly));
        big.write(QByteArray(SeqReader::MaxFileSize + 1, 'x'));
        big.close();
        try {
            SeqReader::fromFile(big.fileName());
            QFAIL("oversized file read");
        } catch (const RuntimeError& e) {
            QCOMPARE(e.kind(), RuntimeError::Kind::FileTooLarge);
        }
    }

    void writerFormat()
    {
        SeqWriter w;
        w.text("QM-B4").text("Position").endLine();
        w.text("").text("NEW").endLine();
        w.number(0).text("9000").endLine();
        w.number(262143).number(2.5).endLine();
        QCOMPARE(w.bytes(), QByteArray("\"QM-B4\",\"Position\"\r\n\"\",\"NEW\"\r\n0,\"9000\"\r\n262143,2.5\r\n"));
    }

    void writerRoundTrip()
    {
        SeqWriter w;
        w.text("a,b").number(-7).endLine().text("").endLine();
        SeqReader r(w.bytes());
        QCOMPARE(r.readText(), QString("a,b"));
        QCOMPARE(r.readNumber(), -7.0);
        QCOMPARE(r.readText(), QString());
        QVERIFY(r.atEnd());
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
};

QTEST_APPLESS_MAIN(TestSeqFiles)
#include "tst_seqfiles.moc"
