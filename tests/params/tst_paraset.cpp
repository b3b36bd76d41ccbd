#include "ParaFixtures.h"

#include "common/ProgramState.h"
#include "common/RuntimeError.h"
#include "params/ParaBlockCodec.h"
#include "params/ParaCompare.h"
#include "params/ParaKeyFilter.h"
#include "params/ParaMemoryMap.h"
#include "params/ParaScreenTransfer.h"
#include "params/ParaValueCheck.h"
#include "params/SpCurrent.h"
#include "params/TakeCtParaImage.h"

#include <QTest>

#include <functional>

namespace {

using Change = std::function<void(ParaSet&)>;

ParaScreen shownSize28()
{
    ParaScreen screen;
    ParametaHyoji(Size28Set(), screen);
    return screen;
}

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

std::array<QString, 3> repliesWith(int block, int pos, const QString& digits)
{
    std::array<QString, 3> replies = Size28Replies();
    replies.at(size_t(block)).replace(pos - 1, digits.size(), digits);
    return replies;
}

} // namespace

Q_DECLARE_METATYPE(Change)
Q_DECLARE_METATYPE(ParaKeyResult)

// The parameter set: its entry and range rules, the page it is shown on, the
// blocks to and from the controller, and the verification report on them.
class TestParaSet : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        ProgramState::reset();
        ProgramState::instance().gMsgBase = 10000;
    }

    // The widest value of each field kind, and the motor code built from its pieces.
    void decodedEntries_data()
    {
        QTest::addColumn<int>("block");
        QTest::addColumn<int>("pos");
        QTest::addColumn<QString>("digits");
        QTest::addColumn<int>("entry");
        QTest::addColumn<QString>("value");
        QTest::newRow("OFFSET FFFF") << 0 << 5 << "FFFF" << 1 << "65535";
        QTest::newRow("ETC value 2 FFFFFF") << 2 << 19 << "FFFFFF" << 18 << "16777215";
        QTest::newRow("byte FF") << 2 << 35 << "FF" << 35 << "255";
        QTest::newRow("size 35, letter E, number 7") << 1 << 23 << "23450007" << MotorCodeEntry << "35E007";
        QTest::newRow("number beyond three digits") << 1 << 23 << "1C4C03E8" << MotorCodeEntry << "28LX";
    }
    void decodedEntries()
    {
        QFETCH(int, block);
        QFETCH(int, pos);
        QFETCH(QString, digits);
        QFETCH(int, entry);
        CtParaImage image;
        DecodeParaBlocks(repliesWith(block, pos, digits), image);
        QTEST(image[entry].toString(), "value");
    }

    // Block 1 bytes 9 to 13: size number, type letter, motor number and size
    // code. A value that does not fit its field is sent as "X" rather than cut.
    void encodedFields_data()
    {
        QTest::addColumn<Change>("change");
        QTest::addColumn<int>("block");
        QTest::addColumn<int>("pos");
        QTest::addColumn<QString>("expected");
        QTest::newRow("35") << Change([](ParaSet& s) { s.axis.sizeText = QStringLiteral("35"); }) << 1 << 18 << "234C006401";
        QTest::newRow("E35 sends 35 and E") << Change([](ParaSet& s) { s.axis.sizeText = QStringLiteral("E35"); }) << 1 << 18 << "2345006404";
        QTest::newRow("42 D") << Change([](ParaSet& s) { s.axis.sizeText = QStringLiteral("42"); s.axis.letter = QStringLiteral("D"); }) << 1 << 18 << "2A44006405";
        QTest::newRow("no letter") << Change([](ParaSet& s) { s.axis.letter.clear(); }) << 1 << 18 << "1C00006400";
        QTest::newRow("size 1e99") << Change([](ParaSet& s) { s.axis.sizeText = QStringLiteral("1e99"); }) << 1 << 18 << "X4C";
        QTest::newRow("OFFSET 70000") << Change([](ParaSet& s) { s.home.offset = 70000; }) << 0 << 0 << "X70";
        QTest::newRow("IN-P WID 999") << Change([](ParaSet& s) { s.etc.inpWid = 999; }) << 2 << 20 << "X05";
    }
    void encodedFields()
    {
        QFETCH(Change, change);
        QFETCH(int, block);
        QFETCH(int, pos);
        QFETCH(QString, expected);
        ParaSet set = Size28Set();
        change(set);
        QCOMPARE(EncodeParaBlocks(set).at(size_t(block)).mid(1 + pos, expected.size()), expected);
    }

    // Taking an image in also records, program-wide, how the device dialog
    // opens (types 0 and 1 offer the encoder box) and whether an encoder is fitted.
    void takingTheImageSetsTheSelectionState()
    {
        CtParaImage image;
        DecodeParaBlocks(Size28Replies(), image);
        image[13] = 1;
        ParaSet set;
        for (int type : {0, 1, 2}) {
            image[11] = type;
            TakeCtParaImage(image, set);
            QCOMPARE(ProgramState::instance().gDeviceDialogMode, type != 2);
        }
        QVERIFY(ProgramState::instance().gPgUse);
    }

    void spCurrentShown_data()
    {
        QTest::addColumn<QString>("raw");
        QTest::addColumn<QString>("shown");
        QTest::newRow("327, the largest") << "0147" << QStringLiteral("2.17");
        QTest::newRow("-300") << "FED4" << QStringLiteral("-2.-16");
        // Beyond raw 327 the 16-bit products overflow (1.5 A: see the read).
        QTest::newRow("328 overflows") << "0148" << QString();
    }
    void spCurrentShown()
    {
        QFETCH(QString, raw);
        QFETCH(QString, shown);
        try {
            QCOMPARE(SpCurrentFromBlock7(QString(12, u'0') + raw + QString(16, u'0')), shown);
        } catch (const RuntimeError& e) {
            QVERIFY(shown.isEmpty() && e.kind() == RuntimeError::Kind::Overflow);
        }
    }

    void spCurrentWritten_data()
    {
        QTest::addColumn<QString>("current");
        QTest::addColumn<QString>("digits");
        QTest::newRow("1.5 A: 2812.5 to even") << "1.5" << QStringLiteral("0AFC");
        QTest::newRow("0.0008 A: 1.5 to even") << "0.0008" << QStringLiteral("0002");
        QTest::newRow("not a number") << "1.2.3" << QString();
        QTest::newRow("negative") << "-1" << QString();
    }
    void spCurrentWritten()
    {
        QFETCH(QString, current);
        QFETCH(QString, digits);
        const QString block7 = QStringLiteral("0123456789AB") + QStringLiteral("FFFF") + QString(16, u'C');
        const std::optional<QString> written = SpCurrentToBlock7(block7, current);
        if (digits.isEmpty()) {
            QVERIFY(!written);
            return;
        }
        QVERIFY(written);
        QCOMPARE(*written, QStringLiteral("0123456789AB") + digits + QString(16, u'C'));
    }
    void reports_data()
    {
        QTest::addColumn<Change>("change");
        QTest::addColumn<QString>("report");
        const QString ng = QStringLiteral("Result of Verify - NG\r\n");
        QTest::newRow("only a reserved value") << Change([](ParaSet& s) { s.reserved[4] = 1; }) << ng;
        QTest::newRow("motor number only") << Change([](ParaSet& s) {
            s.axis.motorNumber = 7;
            s.axis.motorCode = QStringLiteral("28L007");
        }) << "Result of Verify - OK";
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
        QTest::newRow("Reserved5 replaces with its own value") << QList<int>{0, 0, 2, 0, 4, 9, 6} << "9Reserved5,Reserved6,";
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

    // Every range on both sides: just inside is accepted, just outside refused.
    // The fields are named by their entries in the file.
    void rangeLimits_data()
    {
        QTest::addColumn<Change>("change");
        QTest::addColumn<int>("expected");
        struct Limit {
            QList<int> entries;
            int low;
            int high;
        };
        const Limit limits[] = {
            {{1, 8}, 1, 65535},                  // OFFSET, PULSE
            {{2, 7}, 1, 255},                    // HOME byte, AXIS byte
            {{3, 4, 5}, 1, 60},                  // VEL, OFSVEL, HOME speed
            {{6, 17, 18}, 0, 262143},            // AXIS value, ETC values 1 and 2
            {{9, 13, 21, 24, 26, 27, 28}, 0, 1}, // AUTODRIVE, FUNCTION, ETC flag, AUTO HOME, EMG, ALM1 CLEAR, flag
            {{11}, 0, 4},                        // type
            {{39}, 0, 500},                      // motor number
            {{14}, 0, 65535},                    // ALM
            {{15}, 0, 3},                        // HOME OUT
            {{16}, 0, 2},                        // ETC selector
            {{22}, 0, 100},                      // ETC percent
            {{23, 25, 29, 35}, 0, 255},          // PG TIMER, LS TIMER, Reserved0, Reserved6
        };
        for (const Limit& l : limits) {
            for (int entry : l.entries) {
                for (int v : {l.low - 1, l.low, l.high, l.high + 1}) {
                    QTest::addRow("entry %d = %d", entry, v) << Change([entry, v](ParaSet& s) { SetParaEntry(s, entry, v); }) << int(v < l.low || v > l.high);
                }
            }
        }
        QTest::newRow("no motor code") << Change([](ParaSet& s) { s.axis.motorCode.clear(); }) << 1;
        QTest::newRow("no size") << Change([](ParaSet& s) { s.axis.sizeText.clear(); }) << 1;
        QTest::newRow("no letter") << Change([](ParaSet& s) { s.axis.letter.clear(); }) << 1;
        QTest::newRow("IN-P WID unchecked") << Change([](ParaSet& s) { s.etc.inpWid = 999; }) << 0;
        QTest::newRow("ETC byte unchecked") << Change([](ParaSet& s) { s.etc.etcByte = 300; }) << 0;
    }
    void rangeLimits()
    {
        QFETCH(Change, change);
        ParaSet set = Size28Set();
        QCOMPARE(ParametaValueCheck(set), 0);
        change(set);
        QTEST(ParametaValueCheck(set), "expected");
    }

    // The byte at block 1 position 19 takes its range from the AXIS byte.
    void dependentByteRange_data()
    {
        QTest::addColumn<int>("axisByte");
        QTest::addColumn<int>("dependent");
        QTest::addColumn<int>("expected");
        QTest::newRow("2: 50 allowed") << 2 << 50 << 0;
        QTest::newRow("2: 51 refused") << 2 << 51 << 1;
        QTest::newRow("6: 151 refused") << 6 << 151 << 1;
        QTest::newRow("7: 200 allowed") << 7 << 200 << 0;
        QTest::newRow("8: 201 refused") << 8 << 201 << 1;
        QTest::newRow("8: 0 refused") << 8 << 0 << 1;
        QTest::newRow("9: not checked") << 9 << 255 << 0;
    }
    void dependentByteRange()
    {
        QFETCH(int, axisByte);
        QFETCH(int, dependent);
        ParaSet set = Size28Set();
        set.axis.axisByte = qint16(axisByte);
        set.axis.dependentByte = qint16(dependent);
        QTEST(ParametaValueCheck(set), "expected");
    }

    void emptyBoxes()
    {
        ParaScreen screen = shownSize28();
        QCOMPARE(CheckParaInput(screen), 0);
        screen.txtLsSerchTimer = QStringLiteral("  ");
        QCOMPARE(CheckParaInput(screen), 1);
    }

    void keyFilter_data()
    {
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("key");
        QTest::addColumn<ParaKeyResult>("result");
        const auto A = ParaKeyResult::Accept;
        const auto D = ParaKeyResult::Discard;
        const auto E = ParaKeyResult::Enter;
        QTest::newRow("backspace at the limit") << "txtHomeVel" << QStringLiteral("60") << 8 << A;
        QTest::newRow("Enter") << "txtPgAlarm" << QStringLiteral("1") << 13 << E;
        QTest::newRow("Enter in a full box") << "txtPgAlarm" << QStringLiteral("12345") << 13 << D;
        QTest::newRow("OFFSET 5 digits") << "txtHomeOffset" << QStringLiteral("1234") << int('5') << A;
        QTest::newRow("OFFSET 6 digits") << "txtHomeOffset" << QStringLiteral("12345") << int('6') << D;
        QTest::newRow("IN-P WID 3 digits") << "txtInpLimit" << QStringLiteral("12") << int('3') << A;
        QTest::newRow("IN-P WID 4 digits") << "txtInpLimit" << QStringLiteral("123") << int('4') << D;
        QTest::newRow("PG TIMER 4 digits") << "txtPgCheckTimer" << QStringLiteral("255") << int('1') << D;
    }
    void keyFilter()
    {
        QFETCH(QString, box);
        QFETCH(QString, text);
        QFETCH(int, key);
        const std::optional<ParaBox> which = ParaBoxFromName(box);
        QVERIFY(which);
        QTEST(ParaKeyFilter(*which, text, false, key), "result");
    }

    void lostFocus_data()
    {
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("shown");
        QTest::newRow("OFFSET 000 empties") << "txtHomeOffset" << QStringLiteral("000") << "";
        QTest::newRow("IN-P WID empty becomes 0") << "txtInpLimit" << QString() << "0";
        QTest::newRow("PG TIMER 010") << "txtPgCheckTimer" << QStringLiteral("010") << "10";
    }
    void lostFocus()
    {
        QFETCH(QString, box);
        QFETCH(QString, text);
        QFETCH(QString, shown);
        QCOMPARE(ParaLostFocus(*ParaBoxFromName(box), text), shown);
    }

    // Values the page cannot offer are shown as they are: a size outside the
    // list keeps the current box, a list value outside its list selects nothing.
    void valuesOutsideTheListsAreShownAsTheyAre()
    {
        ParaSet set = Size28Set();
        set.axis.sizeText = QStringLiteral("E35");
        set.etc.homeOut = 4;
        set.axis.autoDrive = 2;
        set.special.emgLogic = -1;
        set.special.alm1Clear = 1;
        ParaScreen screen;
        screen.txtDenryu = QStringLiteral("0.7");
        ParametaHyoji(set, screen);
        QCOMPARE((QStringList{screen.comboActSize, screen.txtDenryu}), (QStringList{"E35", "0.7"}));
        QCOMPARE((QList<int>{screen.comboHomeOut, screen.comboAxisAutoDrv, screen.optEmgLogic, screen.optAlarmAutoClear}),
                 (QList<int>{-1, -1, -1, 1}));
    }

    void takingTheScreenIn()
    {
        ParaScreen screen = shownSize28();
        screen.txtHomeVel = QStringLiteral(" 61 ");
        screen.comboActSize = QStringLiteral("SP");
        screen.comboPgFunc = 1;
        screen.optEmgLogic = 1;
        ParaSet set = Size28Set();
        set.axis.motorNumber = 7;
        QCOMPARE(TorikomiParametaValue(screen, set), 0);
        QCOMPARE((QVariantList{set.home.vel, set.axis.sizeText, set.axis.motorCode, set.pg.function, set.special.emgLogic}),
                 (QVariantList{61, "20", "20L007", 1, 1}));
    }

    // Text pasted past the key filter is refused as an invalid value.
    void unreadableBoxIsRefused_data()
    {
        QTest::addColumn<QString>("alm");
        QTest::addColumn<QString>("vel");
        QTest::newRow("letters") << "abc" << QStringLiteral("10");
        QTest::newRow("too large for its field") << "1000" << QStringLiteral("99999");
    }
    void unreadableBoxIsRefused()
    {
        QFETCH(QString, alm);
        QFETCH(QString, vel);
        ParaScreen screen = shownSize28();
        screen.txtPgAlarm = alm;
        screen.txtHomeVel = vel;
        screen.txtHomeOffset = QStringLiteral("31");
        ParaSet set = Size28Set();
        QCOMPARE(TorikomiParametaValue(screen, set), 1);
        QCOMPARE(Fields(set), Fields(Size28Set()));
    }
};

QTEST_APPLESS_MAIN(TestParaSet)
#include "tst_paraset.moc"
