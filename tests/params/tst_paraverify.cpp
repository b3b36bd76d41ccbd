#include "ParaFixtures.h"

#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "params/ParaBlockCodec.h"
#include "params/ParaCompare.h"
#include "params/ParaFile.h"

#include "support/ScriptedPrompter.h"

#include <QTemporaryDir>
#include <QTest>

#include <functional>

namespace {

using Change = std::function<void(ParaSet&)>;

CtParaImage size28Image()
{
    CtParaImage image;
    DecodeParaBlocks(Size28Replies(), image);
    return image;
}

QString reportFor(const ParaSet& set)
{
    ParaCompareLines lines;
    const int result = MakeParaCompareList(size28Image(), set, lines);
    return ParaVerifyReport(result, lines);
}

} // namespace

Q_DECLARE_METATYPE(Change)

class TestParaVerify : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        ProgramState::reset();
        ProgramState::instance().gMsgBase = 10000;
    }

    void reports_data()
    {
        QTest::addColumn<Change>("change");
        QTest::addColumn<QString>("report");
        const QString ng = QStringLiteral("Result of Verify - NG\r\n");
        QTest::newRow("equal") << Change([](ParaSet&) {}) << "Result of Verify - OK";
        QTest::newRow("VEL and ALM") << Change([](ParaSet& s) {
            s.home.vel = 11;
            s.pg.alm = 999;
        }) << ng + "<HOME Parameter> :VEL,\r\n<PG Parameter> :ALM,\r\n";
        QTest::newRow("only a reserved value") << Change([](ParaSet& s) { s.reserved[4] = 1; }) << ng;
        QTest::newRow("motor number only") << Change([](ParaSet& s) {
            s.axis.motorNumber = 7;
            s.axis.motorCode = QStringLiteral("28L007");
        }) << "Result of Verify - OK";
        QTest::newRow("size") << Change([](ParaSet& s) { s.axis.motorCode = QStringLiteral("35L100"); })
                              << ng + "<AXIS Parameter> :MOTOR\r\n";
        QTest::newRow("unnamed fields are not compared") << Change([](ParaSet& s) {
            s.home.homeByte = 1;
            s.axis.axisValue = 1;
            s.etc.percent = 99;
            s.special.flag = 1;
        }) << "Result of Verify - OK";
        QTest::newRow("every named field") << Change([](ParaSet& s) {
            s.home = {.offset = 1, .homeByte = 30, .vel = 1, .ofsVel = 1, .homeSpeed = 10};
            s.axis.pulse = 1;
            s.axis.autoDrive = 1;
            s.axis.motorCode = QStringLiteral("42D100");
            s.pg = {.function = 1, .alm = 1};
            s.etc.homeOut = 1;
            s.etc.inpWid = 1;
            s.special = {.pgTimer = 1, .autoHome = 1, .lsTimer = 1, .emgLogic = 1, .alm1Clear = 1, .flag = 0};
        }) << ng + "<HOME Parameter> :OFFSET,VEL,OFSVEL,\r\n"
                   "<AXIS Parameter> :PULSE,AUTODRIVE,MOTOR\r\n"
                   "<PG Parameter> :FUNCTION,ALM,\r\n"
                   "<Etc Parameter> :HOME OUT,IN-P WID,\r\n"
                   "<SP Parameter> :PG TIMER,AUTO HOME,LS TIMER,EMG LOGIC,ALM1 CLEAR,\r\n";
    }
    void reports()
    {
        QFETCH(Change, change);
        ParaSet set = Size28Set();
        change(set);
        QTEST(reportFor(set), "report");
    }

    // A difference in Reserved2, 3 or 5 replaces the line by Reserved5's
    // value and the name; the others append.
    void reservedLine_data()
    {
        QTest::addColumn<QList<int>>("reserved");
        QTest::addColumn<QString>("line");
        QTest::newRow("Reserved0 and 1") << QList<int>{1, 1, 0, 0, 0, 0, 0} << "Reserved0,Reserved1,";
        QTest::newRow("Reserved2 replaces") << QList<int>{1, 0, 2, 0, 0, 0, 0} << "0Reserved2,";
        QTest::newRow("then Reserved4 appends") << QList<int>{0, 0, 2, 0, 4, 0, 0} << "0Reserved2,Reserved4,";
        QTest::newRow("Reserved5 replaces with its own value")
            << QList<int>{0, 0, 2, 0, 4, 9, 6} << "9Reserved5,Reserved6,";
        QTest::newRow("Reserved3 after 1") << QList<int>{0, 1, 0, 3, 0, 0, 0} << "0Reserved3,";
    }
    void reservedLine()
    {
        QFETCH(QList<int>, reserved);
        ParaSet set = Size28Set();
        for (int i = 0; i < 7; ++i)
            set.reserved[size_t(i)] = qint16(reserved[i]);
        ParaCompareLines lines;
        QCOMPARE(MakeParaCompareList(size28Image(), set, lines), 1);
        QTEST(lines[5], "line");
        QCOMPARE(lines[6], QString());
    }

    // An image loaded from a file (numbers as read from text) compares
    // equal to the set that was saved.
    void fileImageComparesEqual()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("v.pmt"));
        ParaSet set = Size28Set();
        QCOMPARE(SaveParaFile(path, set), 0);
        ScriptedPrompter prompter;
        CtParaImage image;
        QCOMPARE(LoadParaFile(path, image, prompter), 0);
        ParaCompareLines lines;
        QCOMPARE(MakeParaCompareList(image, set, lines), 0);
    }

    // Entries a partial file left empty are differences, not zeros.
    void emptyEntriesDiffer()
    {
        CtParaImage image = size28Image();
        image[14] = QString();
        ParaSet set = Size28Set();
        set.pg.alm = 0;
        ParaCompareLines lines;
        QCOMPARE(MakeParaCompareList(image, set, lines), 1);
        QCOMPARE(lines[2], QStringLiteral("ALM,"));
    }

    void japaneseReport()
    {
        ProgramState::instance().gMsgBase = 0;
        ParaSet set = Size28Set();
        set.home.vel = 11;
        QCOMPARE(reportFor(set), QStringLiteral("照合結果 - NG\r\n<原点復帰パラメータ> :VEL,\r\n"));
    }
};

QTEST_APPLESS_MAIN(TestParaVerify)
#include "tst_paraverify.moc"
