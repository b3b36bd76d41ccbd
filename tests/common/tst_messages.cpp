#include "common/MessageTable.h"
#include "common/ProgramState.h"

#include <QFile>
#include <QSet>
#include <QTest>

namespace {

// Filter texts are "label|pattern|label|pattern": the labels are translated,
// the patterns are what the file dialog matches and must stay the same.
QStringList patterns(const QString& filter)
{
    const QStringList parts = filter.split(u'|');
    QStringList out;
    for (qsizetype i = 1; i < parts.size(); i += 2)
        out << parts[i];
    return out;
}

} // namespace

class TestMessages : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { ProgramState::reset(); }

    // Texts users and the shipped files know word for word, odd spellings,
    // leading blanks and half-width kana included, and names never translated.
    void fixedTexts_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("expected");
        QTest::newRow("en 29") << 10029 << "Put standart parameter list file in the folder in which the program saved in order "
                                           "to indicate standard parameters correctly.";
        QTest::newRow("en 107") << 10107 << "Error occured in Port Check.";
        QTest::newRow("en 120") << 10120 << "erroreng.lst";
        QTest::newRow("en 938") << 10938 << "MOVE・EDIT";
        QTest::newRow("ja 24") << 24 << "ＭＳ ゴシック";
        QTest::newRow("ja 102") << 102 << " １．コントローラーの電源が入っていますか？";
        QTest::newRow("ja 107") << 107 << "ﾎﾟｰﾄﾁｪｯｸでｴﾗｰが発生しました。";
        QTest::newRow("ja 120") << 120 << "errorjpn.lst";
        QTest::newRow("ja 3006") << 3006 << "KTRdata.qmd";
    }
    void fixedTexts()
    {
        QFETCH(int, id);
        QTEST(MessageTable::instance().text(id), "expected");
    }

    // A row appended with a stray tab, a missing field or a reused id would be
    // dropped or would silently replace another text.
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
            seen.insert(id);
        }
        QVERIFY(seen.size() > 100);
    }

    void everyIdInBothLanguages()
    {
        const MessageTable& table = MessageTable::instance();
        for (int id : table.ids()) {
            const int other = id < MessageTable::EnglishBase ? id + MessageTable::EnglishBase : id - MessageTable::EnglishBase;
            QVERIFY2(!table.text(id).isEmpty() && !table.text(other).isEmpty(), qPrintable(QString::number(id)));
        }
    }

    void filterPatternsAgree()
    {
        const MessageTable& table = MessageTable::instance();
        for (const auto& [id, expected] : {std::pair{351, QStringList{"*.qmd", "*.*"}}, {1827, {"*.pmt", "*.*"}}}) {
            QCOMPARE(patterns(table.text(id)), expected);
            QCOMPARE(patterns(table.text(MessageTable::EnglishBase + id)), expected);
        }
    }

    void msgLinesFollowTheLanguage_data()
    {
        QTest::addColumn<int>("base");
        QTest::addColumn<QString>("expected");
        QTest::newRow("English") << 10000
            << "Communication timeout error!\r\n\r\nCheck the followings;\r\n 1.Power ON for controller?";
        QTest::newRow("Japanese") << 0
            << "通信タイムアウトエラー！\r\n\r\n以下の項目を確認してください。\r\n １．コントローラーの電源が入っていますか？";
    }
    void msgLinesFollowTheLanguage()
    {
        QFETCH(int, base);
        ProgramState::instance().gMsgBase = base;
        QTEST(MsgLines({100, 0, 101, 102}), "expected");
    }

    void fromTsv_data()
    {
        QTest::addColumn<QByteArray>("tsv");
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("expected");
        QTest::addColumn<int>("count");
        QTest::newRow("line break escape") << QByteArray("5\ta\\nb\ten") << 5 << "a\nb" << 2;
        QTest::newRow("tab escape") << QByteArray("5\tja\tx\\ty") << 10005 << "x\ty" << 2;
        QTest::newRow("escaped backslash") << QByteArray("5\tC:\\\\n\ten") << 5 << "C:\\n" << 2;
        QTest::newRow("unknown escape kept") << QByteArray("5\ta\\qb\ten") << 5 << "a\\qb" << 2;
        QTest::newRow("trailing backslash kept") << QByteArray("5\ta\\\ten") << 5 << "a\\" << 2;
        QTest::newRow("CR LF, blanks kept") << QByteArray("5\tja\t en \r\n6\tj6\te6\r\n") << 10005 << " en " << 4;
        QTest::newRow("blank lines skipped") << QByteArray("\n\n5\tja\ten\n\n") << 5 << "ja" << 2;
        QTest::newRow("comment skipped") << QByteArray("#5\tja\ten\n6\tj6\te6") << 5 << QString() << 2;
        QTest::newRow("id not a number") << QByteArray("x5\tja\ten\n6\tj6\te6") << 5 << QString() << 2;
        QTest::newRow("missing English field") << QByteArray("5\tja\n6\tj6\te6") << 5 << QString() << 2;
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

QTEST_APPLESS_MAIN(TestMessages)
#include "tst_messages.moc"
