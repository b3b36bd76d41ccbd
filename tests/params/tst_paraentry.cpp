#include "ParaFixtures.h"

#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "params/ParaKeyFilter.h"
#include "params/ParaScreen.h"
#include "params/ParaScreenTransfer.h"
#include "params/ParaValueCheck.h"
#include "params/TokuParaChange.h"

#include "support/ScriptedPrompter.h"

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
Q_DECLARE_METATYPE(Prompter::Answer)

class TestParaEntry : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        ProgramState::reset();
        ProgramState::instance().gMsgBase = 10000;
    }

    // Every range on both sides: just inside is accepted, just outside refused.
    void rangeLimits_data()
    {
        QTest::addColumn<Change>("change");
        QTest::addColumn<int>("expected");
        using Set = void (*)(ParaSet&, int);
        struct Limit {
            const char* name;
            Set set;
            int low;
            int high;
        };
        const Limit limits[] = {
            {"OFFSET", [](ParaSet& s, int v) { s.home.offset = v; }, 1, 65535},
            {"HOME byte", [](ParaSet& s, int v) { s.home.homeByte = qint16(v); }, 1, 255},
            {"VEL", [](ParaSet& s, int v) { s.home.vel = qint16(v); }, 1, 60},
            {"OFSVEL", [](ParaSet& s, int v) { s.home.ofsVel = qint16(v); }, 1, 60},
            {"HOME speed", [](ParaSet& s, int v) { s.home.homeSpeed = qint16(v); }, 1, 60},
            {"AXIS value", [](ParaSet& s, int v) { s.axis.axisValue = v; }, 0, 262143},
            {"AXIS byte", [](ParaSet& s, int v) { s.axis.axisByte = qint16(v); }, 1, 255},
            {"PULSE", [](ParaSet& s, int v) { s.axis.pulse = v; }, 1, 65535},
            {"AUTODRIVE", [](ParaSet& s, int v) { s.axis.autoDrive = qint16(v); }, 0, 1},
            {"type", [](ParaSet& s, int v) { s.axis.actType = qint16(v); }, 0, 4},
            {"motor number", [](ParaSet& s, int v) { s.axis.motorNumber = qint16(v); }, 0, 500},
            {"FUNCTION", [](ParaSet& s, int v) { s.pg.function = qint16(v); }, 0, 1},
            {"ALM", [](ParaSet& s, int v) { s.pg.alm = v; }, 0, 65535},
            {"HOME OUT", [](ParaSet& s, int v) { s.etc.homeOut = qint16(v); }, 0, 3},
            {"ETC flag", [](ParaSet& s, int v) { s.etc.flag = qint16(v); }, 0, 1},
            {"ETC percent", [](ParaSet& s, int v) { s.etc.percent = qint16(v); }, 0, 100},
            {"ETC selector", [](ParaSet& s, int v) { s.etc.selector = qint16(v); }, 0, 2},
            {"ETC value 1", [](ParaSet& s, int v) { s.etc.value1 = v; }, 0, 262143},
            {"ETC value 2", [](ParaSet& s, int v) { s.etc.value2 = v; }, 0, 262143},
            {"PG TIMER", [](ParaSet& s, int v) { s.special.pgTimer = qint16(v); }, 0, 255},
            {"AUTO HOME", [](ParaSet& s, int v) { s.special.autoHome = qint16(v); }, 0, 1},
            {"LS TIMER", [](ParaSet& s, int v) { s.special.lsTimer = qint16(v); }, 0, 255},
            {"EMG LOGIC", [](ParaSet& s, int v) { s.special.emgLogic = qint16(v); }, 0, 1},
            {"ALM1 CLEAR", [](ParaSet& s, int v) { s.special.alm1Clear = qint16(v); }, 0, 1},
            {"SPECIAL flag", [](ParaSet& s, int v) { s.special.flag = qint16(v); }, 0, 1},
            {"Reserved0", [](ParaSet& s, int v) { s.reserved[0] = qint16(v); }, 0, 255},
            {"Reserved6", [](ParaSet& s, int v) { s.reserved[6] = qint16(v); }, 0, 255},
        };
        for (const Limit& l : limits) {
            const Set set = l.set;
            for (int v : {l.low - 1, l.low, l.high, l.high + 1}) {
                const int expected = v < l.low || v > l.high ? 1 : 0;
                QTest::addRow("%s %d", l.name, v) << Change([set, v](ParaSet& s) { set(s, v); }) << expected;
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
        QTest::newRow("2: 0 refused") << 2 << 0 << 1;
        QTest::newRow("3: 150 allowed") << 3 << 150 << 0;
        QTest::newRow("6: 151 refused") << 6 << 151 << 1;
        QTest::newRow("7: 200 allowed") << 7 << 200 << 0;
        QTest::newRow("8: 201 refused") << 8 << 201 << 1;
        QTest::newRow("8: 0 refused") << 8 << 0 << 1;
        QTest::newRow("9: not checked") << 9 << 255 << 0;
        QTest::newRow("9: 0 not checked") << 9 << 0 << 0;
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
        QTest::addColumn<bool>("allSelected");
        QTest::addColumn<int>("key");
        QTest::addColumn<ParaKeyResult>("result");
        const auto A = ParaKeyResult::Accept;
        const auto D = ParaKeyResult::Discard;
        const auto E = ParaKeyResult::Enter;
        QTest::newRow("third digit of VEL") << "txtHomeVel" << "00" << false << int('7') << D;
        QTest::newRow("over a selected text") << "txtHomeVel" << "00" << true << int('7') << A;
        QTest::newRow("backspace at the limit") << "txtHomeVel" << "60" << false << 8 << A;
        QTest::newRow("letter") << "txtPgAlarm" << "1" << false << int('a') << D;
        QTest::newRow("point") << "txtPgAlarm" << "1" << false << int('.') << D;
        QTest::newRow("Enter") << "txtPgAlarm" << "1" << false << 13 << E;
        QTest::newRow("Enter in an empty box") << "txtPgAlarm" << "" << true << 13 << E;
        QTest::newRow("Enter in a full box") << "txtPgAlarm" << "12345" << false << 13 << D;
        QTest::newRow("OFFSET 6 digits") << "txtHomeOffset" << "12345" << false << int('6') << D;
        QTest::newRow("PULSE 6 digits") << "txtAxisPulse" << "12345" << false << int('6') << D;
        QTest::newRow("OFSVEL 3 digits") << "txtHomeOfsVel" << "12" << false << int('3') << D;
        QTest::newRow("IN-P WID 4 digits") << "txtInpLimit" << "123" << false << int('4') << D;
        QTest::newRow("PG TIMER 4 digits") << "txtPgCheckTimer" << "255" << false << int('1') << D;
        QTest::newRow("LS TIMER 4 digits") << "txtLsSerchTimer" << "255" << false << int('1') << D;
    }
    void keyFilter()
    {
        QFETCH(QString, box);
        QFETCH(QString, text);
        QFETCH(bool, allSelected);
        QFETCH(int, key);
        const std::optional<ParaBox> which = ParaBoxFromName(box);
        QVERIFY(which);
        QTEST(ParaKeyFilter(*which, text, allSelected, key), "result");
    }

    void lostFocus_data()
    {
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("shown");
        QTest::newRow("VEL 00 empties") << "txtHomeVel" << "00" << "";
        QTest::newRow("OFSVEL 0 empties") << "txtHomeOfsVel" << "0" << "";
        QTest::newRow("OFFSET 000 empties") << "txtHomeOffset" << "000" << "";
        QTest::newRow("OFFSET empty stays empty") << "txtHomeOffset" << "" << "";
        QTest::newRow("VEL 07") << "txtHomeVel" << "07" << "7";
        QTest::newRow("ALM 0000 keeps 0") << "txtPgAlarm" << "0000" << "0";
        QTest::newRow("PULSE 0 keeps 0") << "txtAxisPulse" << "0" << "0";
        QTest::newRow("IN-P WID empty becomes 0") << "txtInpLimit" << "" << "0";
        QTest::newRow("PG TIMER 010") << "txtPgCheckTimer" << "010" << "10";
        QTest::newRow("LS TIMER 100") << "txtLsSerchTimer" << "100" << "100";
    }
    void lostFocus()
    {
        QFETCH(QString, box);
        QFETCH(QString, text);
        QFETCH(QString, shown);
        QCOMPARE(ParaLostFocus(*ParaBoxFromName(box), text), shown);
        QCOMPARE(ProgramState::instance().gChkText, shown);
    }

    void shownSet()
    {
        const ParaScreen s = shownSize28();
        const QStringList boxes{s.txtHomeOffset, s.txtHomeVel, s.txtHomeOfsVel, s.txtAxisPulse,
                                s.txtPgAlarm, s.txtInpLimit, s.txtPgCheckTimer, s.txtLsSerchTimer};
        QCOMPARE(boxes, (QStringList{"30", "10", "10", "400", "1000", "10", "10", "10"}));
        const QList<int> lists{s.comboAxisAutoDrv, s.comboPgFunc, s.comboHomeOut, s.comboAutoHome,
                               s.optEmgLogic, s.optAlarmAutoClear};
        QCOMPARE(lists, (QList<int>{0, 0, 0, 0, 0, 0}));
        QCOMPARE(s.comboActSize, QStringLiteral("28"));
        QCOMPARE(s.txtDenryu, QStringLiteral("1.5"));
    }

    void currentFollowsTheSize_data()
    {
        QTest::addColumn<QString>("size");
        QTest::addColumn<QString>("shownSize");
        QTest::addColumn<QString>("current");
        QTest::newRow("28") << "28" << "28" << "1.5";
        QTest::newRow("35") << "35" << "35" << "1.6";
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
        ParaScreen screen;
        ParametaHyoji(set, screen);
        QCOMPARE(screen.comboHomeOut, -1);
        QCOMPARE(screen.comboAxisAutoDrv, -1);
        QCOMPARE(screen.optEmgLogic, -1);
        set.etc.homeOut = 3;
        ParametaHyoji(set, screen);
        QCOMPARE(screen.comboHomeOut, 3);
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
        QCOMPARE(set.home.vel, qint16(61));
        QCOMPARE(set.axis.sizeText, QStringLiteral("20"));
        QCOMPARE(set.axis.motorCode, QStringLiteral("20L007"));
        QCOMPARE(set.pg.function, qint16(1));
        QCOMPARE(set.special.emgLogic, qint16(1));
        QCOMPARE(set.etc.selector, qint16(2));
        // VEL 61 passes the entry and is refused by the range check.
        QCOMPARE(ParametaValueCheck(set), 1);
    }

    void unchangedScreenGivesTheSameSet()
    {
        ParaSet set = Size28Set();
        QCOMPARE(TorikomiParametaValue(shownSize28(), set), 0);
        QVERIFY(SameSet(set, Size28Set()));
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
        QVERIFY(SameSet(set, Size28Set()));
    }

    void unlockingTheSpecialGroup_data()
    {
        QTest::addColumn<bool>("ticked");
        QTest::addColumn<Prompter::Answer>("answer");
        QTest::addColumn<bool>("asked");
        QTest::addColumn<bool>("stillTicked");
        QTest::addColumn<bool>("enabled");
        QTest::newRow("tick, Yes") << true << Prompter::Answer::Yes << true << true << true;
        QTest::newRow("tick, No") << true << Prompter::Answer::No << true << false << false;
        QTest::newRow("clear") << false << Prompter::Answer::Yes << false << false << false;
    }
    void unlockingTheSpecialGroup()
    {
        QFETCH(bool, ticked);
        QFETCH(Prompter::Answer, answer);
        QFETCH(bool, asked);
        ScriptedPrompter prompter;
        prompter.script({answer});
        ParaScreen screen;
        screen.specialControlsEnabled = !ticked;
        screen.chkTokuParaChange = ticked;
        chkTokuParaChange_Click(screen, prompter);
        QTEST(screen.chkTokuParaChange, "stillTicked");
        QTEST(screen.specialControlsEnabled, "enabled");
        QCOMPARE(prompter.shown.size(), asked ? 1 : 0);
        if (asked) {
            QCOMPARE(prompter.shown[0].text, QStringLiteral(
                "Don't change SP Parameter on ordinary use.\r\nDo you change value of SP Parameter."));
            QCOMPARE(prompter.shown[0].buttons, Prompter::Buttons::YesNo);
            QCOMPARE(prompter.shown[0].icon, Prompter::Icon::Exclamation);
        }
    }
};

QTEST_APPLESS_MAIN(TestParaEntry)
#include "tst_paraentry.moc"
