#include "common/MessageTable.h"
#include "common/ProgramState.h"

#include <QFile>
#include <QSet>
#include <QStringList>
#include <QTest>

namespace {

struct Text {
    int id;
    const char16_t* text;
};

// The English texts the program must show, exactly as users and the shipped
// files know them: odd spellings, missing blanks and leading blanks included.
const Text kEnglish[] = {
    {1, u"By which shall PC software be used between on-line and off-line?"},
    {2, u"Online"},
    {3, u"Offline"},
    {9, u"Invalid value in some parameters."},
    {16, u"Put device list file in the folder in which the program is saved in order to indicate device information correctly."},
    {17, u"Can not find information of selected device type."},
    {24, u"MS GOTHIC"},
    {25, u"File Name:"},
    {28, u"No standard parameter list file."},
    {29, u"Put standart parameter list file in the folder in which the program saved in order to indicate standard parameters correctly."},
    {35, u"Parameters"},
    {51, u"qmd"},
    {72, u"The information of the selected device was not found."},
    {104, u"Communication error occurs!"},
    {107, u"Error occured in Port Check."},
    {108, u"Communication error occurs!"},
    {120, u"erroreng.lst"},
    {148, u"(New)"},
    {149, u"(Old)"},
    {355, u"Save the editing data before reading data?"},
    {369, u"Save the editing data before reading data?"},
    {384, u"Communication error occurs!"},
    {419, u"."},
    {561, u"Input position No. by decimal(Using 1 to 63)"},
    {610, u"FILE"},
    {611, u"CONTROLLER"},
    {641, u"0. Drive-ON"},
    {655, u"0. Disable"},
    {656, u"1. Enable"},
    {657, u"0. OUT-OFF"},
    {658, u"1. OUT-ON"},
    {659, u"2. OUT2-ON"},
    {661, u"0. Disable"},
    {662, u"1. Enable"},
    {663, u"0. Disable"},
    {664, u"1. Enable"},
    {667, u"1. Inside"},
    {668, u"2. Outside"},
    {690, u"Logic A(1)"},
    {691, u"Logic B(0)"},
    {938, u"MOVE・EDIT"},
    {1524, u"Invalid value in some parameters."},
    {1801, u"Print Setting"},
    {1802, u"Select data to be printed."},
    {1804, u"Inside of Grid"},
    {1805, u"File"},
    {1807, u"Browse"},
    {1821, u"Parameter(xxxx.pmt)"},
    {1822, u"Position Data(xxxx.qmd)"},
    {1824, u"Invalid file name. Confirm file name and print it again."},
    {1826, u"Specify parameter file to be printed."},
    {1828, u"Specify Position Data file to be printed."},
    {2505, u"RS-232C"},
    {2507, u"Unit"},
    {2508, u"Language"},
    {3006, u"KTRdata.qmd"},
};

// The Japanese texts that are fixed: those users already know word for word,
// and the file names, extension and font that must not be translated.
const Text kJapanese[] = {
    {24, u"ＭＳ ゴシック"},
    {30, u"エラーリストのファイルがありません。"},
    {31, u"エラーを正しく表示させるためには、プログラムと同じフォルダにエラーリストファイルをおいてください。"},
    {32, u"該当するエラーNoがリストにありません"},
    {51, u"qmd"},
    {101, u"以下の項目を確認してください。"},
    {102, u" １．コントローラーの電源が入っていますか？"},
    {103, u" ２．通信ケーブルが接続されていますか？"},
    {104, u"エラーが発生しました！"},
    {105, u"通信データ長エラー！"},
    {106, u"通信データのデータ長に異常が検出されました"},
    {107, u"ﾎﾟｰﾄﾁｪｯｸでｴﾗｰが発生しました。"},
    {109, u"通信ﾎﾟｰﾄのｵｰﾌﾟﾝに失敗しました。"},
    {110, u"通信ポートNo.が正しくありません。"},
    {120, u"errorjpn.lst"},
    {419, u"です。"},
    {2505, u"通信ポート"},
    {2507, u"表示単位"},
    {2508, u"言語"},
    {3006, u"KTRdata.qmd"},
};

void addRows(const Text* begin, const Text* end)
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("expected");
    for (const Text* t = begin; t != end; ++t)
        QTest::addRow("%d", t->id) << t->id << QString::fromUtf16(t->text);
}

QByteArray embeddedTable()
{
    QFile file(QStringLiteral(":/messages.tsv"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

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

    void englishText_data() { addRows(std::begin(kEnglish), std::end(kEnglish)); }
    void englishText()
    {
        QFETCH(int, id);
        QTEST(MessageTable::instance().text(MessageTable::EnglishBase + id), "expected");
    }

    void japaneseText_data() { addRows(std::begin(kJapanese), std::end(kJapanese)); }
    void japaneseText()
    {
        QFETCH(int, id);
        QTEST(MessageTable::instance().text(id), "expected");
    }

    // A row appended with a stray tab, a missing field or a reused id would be
    // dropped or would silently replace another text.
    void everyRowIsWellFormed()
    {
        const QByteArray tsv = embeddedTable();
        QVERIFY(!tsv.isEmpty());
        QSet<int> seen;
        int lineNo = 0;
        for (const QByteArray& line : tsv.split('\n')) {
            ++lineNo;
            if (line.isEmpty() || line.startsWith('#'))
                continue;
            const QList<QByteArray> fields = line.split('\t');
            const QByteArray where = "line " + QByteArray::number(lineNo) + ": " + line;
            QVERIFY2(fields.size() == 3, where.constData());
            bool ok = false;
            const int id = fields[0].toInt(&ok);
            QVERIFY2(ok && id > 0 && id < MessageTable::EnglishBase, where.constData());
            QVERIFY2(!seen.contains(id), where.constData());
            seen.insert(id);
        }
    }

    void everyIdInBothLanguages()
    {
        const MessageTable& table = MessageTable::instance();
        QVERIFY(table.contains(1));
        for (int id : table.ids()) {
            const bool japanese = id < MessageTable::EnglishBase;
            const int other = japanese ? id + MessageTable::EnglishBase : id - MessageTable::EnglishBase;
            QVERIFY2(!table.text(id).isEmpty(), qPrintable(QString::number(id)));
            QVERIFY2(!table.text(other).isEmpty(),
                     qPrintable(QStringLiteral("%1 has no counterpart %2").arg(id).arg(other)));
        }
    }

    void filterPatternsAgree_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("operation data") << 351 << QStringList{"*.qmd", "*.*"};
        QTest::newRow("parameters") << 1827 << QStringList{"*.pmt", "*.*"};
    }
    void filterPatternsAgree()
    {
        QFETCH(int, id);
        QFETCH(QStringList, expected);
        const MessageTable& table = MessageTable::instance();
        QCOMPARE(patterns(table.text(id)), expected);
        QCOMPARE(patterns(table.text(MessageTable::EnglishBase + id)), expected);
    }

    void msgFollowsLanguage_data()
    {
        QTest::addColumn<int>("base");
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("expected");
        QTest::newRow("Japanese port") << 0 << 109 << QStringLiteral("通信ﾎﾟｰﾄのｵｰﾌﾟﾝに失敗しました。");
        QTest::newRow("English port") << 10000 << 109 << QStringLiteral("Failed in opening of a communication port.");
        QTest::newRow("Japanese error list") << 0 << 120 << QStringLiteral("errorjpn.lst");
        QTest::newRow("English error list") << 10000 << 120 << QStringLiteral("erroreng.lst");
    }
    void msgFollowsLanguage()
    {
        QFETCH(int, base);
        QFETCH(int, id);
        ProgramState::instance().gMsgBase = base;
        QTEST(Msg(id), "expected");
    }

    void msgLinesJoinWithCrLf_data()
    {
        QTest::addColumn<int>("base");
        QTest::addColumn<QString>("expected");
        QTest::newRow("English") << 10000
            << QStringLiteral("Communication timeout error!\r\n\r\nCheck the followings;\r\n 1.Power ON for controller?");
        QTest::newRow("Japanese") << 0
            << QStringLiteral("通信タイムアウトエラー！\r\n\r\n以下の項目を確認してください。\r\n １．コントローラーの電源が入っていますか？");
    }
    void msgLinesJoinWithCrLf()
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
        QTest::newRow("line break escape") << QByteArray("5\ta\\nb\ten") << 5 << QStringLiteral("a\nb") << 2;
        QTest::newRow("tab escape") << QByteArray("5\tja\tx\\ty") << 10005 << QStringLiteral("x\ty") << 2;
        QTest::newRow("escaped backslash") << QByteArray("5\tC:\\\\n\ten") << 5 << QStringLiteral("C:\\n") << 2;
        QTest::newRow("unknown escape kept") << QByteArray("5\ta\\qb\ten") << 5 << QStringLiteral("a\\qb") << 2;
        QTest::newRow("trailing backslash kept") << QByteArray("5\ta\\\ten") << 5 << QStringLiteral("a\\") << 2;
        QTest::newRow("CR LF line ends") << QByteArray("5\tja\ten\r\n6\tj6\te6\r\n") << 10005 << QStringLiteral("en") << 4;
        QTest::newRow("blanks kept") << QByteArray("102\t x \t 1.Power ON ") << 10102 << QStringLiteral(" 1.Power ON ") << 2;
        QTest::newRow("half-width katakana")
            << QByteArray("109\t通信ﾎﾟｰﾄ\ten") << 109 << QStringLiteral("通信ﾎﾟｰﾄ") << 2;
        QTest::newRow("blank lines skipped") << QByteArray("\n\n5\tja\ten\n\n") << 5 << QStringLiteral("ja") << 2;
        QTest::newRow("comment skipped") << QByteArray("# 5\tja\ten\n6\tj6\te6") << 5 << QString() << 2;
        QTest::newRow("comment without blank") << QByteArray("#5\tja\ten") << 5 << QString() << 0;
        QTest::newRow("id not a number") << QByteArray("x5\tja\ten\n6\tj6\te6") << 5 << QString() << 2;
        QTest::newRow("empty id") << QByteArray("\tja\ten") << 0 << QString() << 0;
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
