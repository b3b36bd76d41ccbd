#include "ParaFixtures.h"

#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "params/ParaKeyFilter.h"
#include "params/ParaScreen.h"
#include "params/ParaScreenTransfer.h"
#include "params/ParaValueCheck.h"

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

} // namespace

Q_DECLARE_METATYPE(Change)
Q_DECLARE_METATYPE(ParaKeyResult)

class TestParaEntry : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        ProgramState::reset();
        ProgramState::instance().gMsgBase = 10000;
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
            {{1, 8}, 1, 65535},                      // OFFSET, PULSE
            {{2, 7}, 1, 255},                        // HOME byte, AXIS byte
            {{3, 4, 5}, 1, 60},                      // VEL, OFSVEL, HOME speed
            {{6, 17, 18}, 0, 262143},                // AXIS value, ETC values 1 and 2
            {{9, 13, 21, 24, 26, 27, 28}, 0, 1},     // AUTODRIVE, FUNCTION, ETC flag, AUTO HOME, EMG, ALM1 CLEAR, flag
            {{11}, 0, 4},                            // type
            {{39}, 0, 500},                          // motor number
            {{14}, 0, 65535},                        // ALM
            {{15}, 0, 3},                            // HOME OUT
            {{16}, 0, 2},                            // ETC selector
            {{22}, 0, 100},                          // ETC percent
            {{23, 25, 29, 35}, 0, 255},              // PG TIMER, LS TIMER, Reserved0, Reserved6
        };
        for (const Limit& l : limits) {
            for (int entry : l.entries) {
                for (int v : {l.low - 1, l.low, l.high, l.high + 1}) {
                    QTest::addRow("entry %d = %d", entry, v)
                        << Change([entry, v](ParaSet& s) { SetParaEntry(s, entry, v); }) << int(v < l.low || v > l.high);
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
        QCOMPARE(CheckParaInput(shownSize28()), 0);
        for (QString ParaScreen::*box : {&ParaScreen::txtHomeOffset, &ParaScreen::txtHomeVel,
                                          &ParaScreen::txtHomeOfsVel, &ParaScreen::txtAxisPulse,
                                          &ParaScreen::txtPgAlarm, &ParaScreen::txtInpLimit,
                                          &ParaScreen::txtPgCheckTimer, &ParaScreen::txtLsSerchTimer}) {
            ParaScreen screen = shownSize28();
            screen.*box = QString();
            QCOMPARE(CheckParaInput(screen), 1);
            screen.*box = QStringLiteral("  ");
            QCOMPARE(CheckParaInput(screen), 1);
        }
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
        QTest::newRow("backspace at the limit") << "txtHomeVel" << "60" << 8 << A;
        QTest::newRow("Enter") << "txtPgAlarm" << "1" << 13 << E;
        QTest::newRow("Enter in a full box") << "txtPgAlarm" << "12345" << 13 << D;
        QTest::newRow("OFFSET 5 digits") << "txtHomeOffset" << "1234" << int('5') << A;
        QTest::newRow("OFFSET 6 digits") << "txtHomeOffset" << "12345" << int('6') << D;
        QTest::newRow("IN-P WID 3 digits") << "txtInpLimit" << "12" << int('3') << A;
        QTest::newRow("IN-P WID 4 digits") << "txtInpLimit" << "123" << int('4') << D;
        QTest::newRow("PG TIMER 4 digits") << "txtPgCheckTimer" << "255" << int('1') << D;
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
        QTest::newRow("OFFSET 000 empties") << "txtHomeOffset" << "000" << "";
        QTest::newRow("IN-P WID empty becomes 0") << "txtInpLimit" << "" << "0";
        QTest::newRow("PG TIMER 010") << "txtPgCheckTimer" << "010" << "10";
    }
    void lostFocus()
    {
        QFETCH(QString, box);
        QFETCH(QString, text);
        QFETCH(QString, shown);
        QCOMPARE(ParaLostFocus(*ParaBoxFromName(box), text), shown);
        QCOMPARE(ProgramState::instance().gChkText, shown);
    }

    void currentFollowsTheSize_data()
    {
        QTest::addColumn<QString>("size");
        QTest::addColumn<QString>("shownSize");
        QTest::addColumn<QString>("current");
        QTest::newRow("42") << "42" << "42" << "1.2";
        QTest::newRow("20 shown as SP keeps the box") << "20" << "SP" << "0.7";
        QTest::newRow("E35 keeps the box") << "E35" << "E35" << "0.7";
    }
    void currentFollowsTheSize()
    {
        QFETCH(QString, size);
        ParaSet set = Size28Set();
        set.axis.sizeText = size;
        ParaScreen screen;
        screen.txtDenryu = QStringLiteral("0.7");
        ParametaHyoji(set, screen);
        QTEST(screen.comboActSize, "shownSize");
        QTEST(screen.txtDenryu, "current");
    }

    void listValueOutsideItsListShowsNoSelection()
    {
        ParaSet set = Size28Set();
        set.etc.homeOut = 4;
        set.axis.autoDrive = 2;
        set.special.emgLogic = -1;
        set.special.alm1Clear = 1;
        ParaScreen screen;
        ParametaHyoji(set, screen);
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
        // VEL 61 passes the entry and is refused by the range check.
        QCOMPARE(ParametaValueCheck(set), 1);
    }

    void unchangedScreenGivesTheSameSet()
    {
        ParaSet set = Size28Set();
        QCOMPARE(TorikomiParametaValue(shownSize28(), set), 0);
        QCOMPARE(Fields(set), Fields(Size28Set()));
    }

    // Text pasted past the key filter is refused as an invalid value.
    void unreadableBoxIsRefused_data()
    {
        QTest::addColumn<QString>("alm");
        QTest::addColumn<QString>("vel");
        QTest::newRow("letters") << "abc" << "10";
        QTest::newRow("digits then letters") << "12ab" << "10";
        QTest::newRow("too large for its field") << "1000" << "99999";
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

QTEST_APPLESS_MAIN(TestParaEntry)
#include "tst_paraentry.moc"
