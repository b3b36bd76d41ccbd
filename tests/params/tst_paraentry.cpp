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

    void rangeLimits_data()
    {
        QTest::addColumn<Change>("change");
        QTest::addColumn<int>("expected");
        auto row = [](const char* name, Change c, int expected) { QTest::newRow(name) << c << expected; };
        row("OFFSET 1", [](ParaSet& s) { s.home.offset = 1; }, 0);
        row("OFFSET 0", [](ParaSet& s) { s.home.offset = 0; }, 1);
        row("OFFSET 65535", [](ParaSet& s) { s.home.offset = 65535; }, 0);
        row("OFFSET 65536", [](ParaSet& s) { s.home.offset = 65536; }, 1);
        row("HOME byte 0", [](ParaSet& s) { s.home.homeByte = 0; }, 1);
        row("HOME byte 255", [](ParaSet& s) { s.home.homeByte = 255; }, 0);
        row("HOME byte 256", [](ParaSet& s) { s.home.homeByte = 256; }, 1);
        row("VEL 0", [](ParaSet& s) { s.home.vel = 0; }, 1);
        row("VEL 60", [](ParaSet& s) { s.home.vel = 60; }, 0);
        row("VEL 61", [](ParaSet& s) { s.home.vel = 61; }, 1);
        row("OFSVEL 0", [](ParaSet& s) { s.home.ofsVel = 0; }, 1);
        row("OFSVEL 61", [](ParaSet& s) { s.home.ofsVel = 61; }, 1);
        row("HOME speed 0", [](ParaSet& s) { s.home.homeSpeed = 0; }, 1);
        row("HOME speed 60", [](ParaSet& s) { s.home.homeSpeed = 60; }, 0);
        row("HOME speed 61", [](ParaSet& s) { s.home.homeSpeed = 61; }, 1);
        row("AXIS value -1", [](ParaSet& s) { s.axis.axisValue = -1; }, 1);
        row("AXIS value 0", [](ParaSet& s) { s.axis.axisValue = 0; }, 0);
        row("AXIS value 262143", [](ParaSet& s) { s.axis.axisValue = 262143; }, 0);
        row("AXIS value 262144", [](ParaSet& s) { s.axis.axisValue = 262144; }, 1);
        row("AXIS byte 0", [](ParaSet& s) { s.axis.axisByte = 0; }, 1);
        row("AXIS byte 255", [](ParaSet& s) { s.axis.axisByte = 255; }, 0);
        row("AXIS byte 256", [](ParaSet& s) { s.axis.axisByte = 256; }, 1);
        row("PULSE 0", [](ParaSet& s) { s.axis.pulse = 0; }, 1);
        row("PULSE 65535", [](ParaSet& s) { s.axis.pulse = 65535; }, 0);
        row("PULSE 65536", [](ParaSet& s) { s.axis.pulse = 65536; }, 1);
        row("AUTODRIVE -1", [](ParaSet& s) { s.axis.autoDrive = -1; }, 1);
        row("AUTODRIVE 1", [](ParaSet& s) { s.axis.autoDrive = 1; }, 0);
        row("AUTODRIVE 2", [](ParaSet& s) { s.axis.autoDrive = 2; }, 1);
        row("type -1", [](ParaSet& s) { s.axis.actType = -1; }, 1);
        row("type 4", [](ParaSet& s) { s.axis.actType = 4; }, 0);
        row("type 5", [](ParaSet& s) { s.axis.actType = 5; }, 1);
        row("motor number -1", [](ParaSet& s) { s.axis.motorNumber = -1; }, 1);
        row("motor number 500", [](ParaSet& s) { s.axis.motorNumber = 500; }, 0);
        row("motor number 501", [](ParaSet& s) { s.axis.motorNumber = 501; }, 1);
        row("no motor code", [](ParaSet& s) { s.axis.motorCode.clear(); }, 1);
        row("no size", [](ParaSet& s) { s.axis.sizeText.clear(); }, 1);
        row("no letter", [](ParaSet& s) { s.axis.letter.clear(); }, 1);
        row("FUNCTION 1", [](ParaSet& s) { s.pg.function = 1; }, 0);
        row("FUNCTION 2", [](ParaSet& s) { s.pg.function = 2; }, 1);
        row("FUNCTION -1", [](ParaSet& s) { s.pg.function = -1; }, 1);
        row("ALM 0", [](ParaSet& s) { s.pg.alm = 0; }, 0);
        row("ALM -1", [](ParaSet& s) { s.pg.alm = -1; }, 1);
        row("ALM 65535", [](ParaSet& s) { s.pg.alm = 65535; }, 0);
        row("ALM 65536", [](ParaSet& s) { s.pg.alm = 65536; }, 1);
        row("HOME OUT 3", [](ParaSet& s) { s.etc.homeOut = 3; }, 0);
        row("HOME OUT 4", [](ParaSet& s) { s.etc.homeOut = 4; }, 1);
        row("HOME OUT -1", [](ParaSet& s) { s.etc.homeOut = -1; }, 1);
        row("ETC flag 0", [](ParaSet& s) { s.etc.flag = 0; }, 0);
        row("ETC flag 2", [](ParaSet& s) { s.etc.flag = 2; }, 1);
        row("ETC percent 100", [](ParaSet& s) { s.etc.percent = 100; }, 0);
        row("ETC percent 101", [](ParaSet& s) { s.etc.percent = 101; }, 1);
        row("ETC percent -1", [](ParaSet& s) { s.etc.percent = -1; }, 1);
        row("ETC selector 0", [](ParaSet& s) { s.etc.selector = 0; }, 0);
        row("ETC selector 3", [](ParaSet& s) { s.etc.selector = 3; }, 1);
        row("ETC value 1 262143", [](ParaSet& s) { s.etc.value1 = 262143; }, 0);
        row("ETC value 1 262144", [](ParaSet& s) { s.etc.value1 = 262144; }, 1);
        row("ETC value 2 -1", [](ParaSet& s) { s.etc.value2 = -1; }, 1);
        row("ETC value 2 262144", [](ParaSet& s) { s.etc.value2 = 262144; }, 1);
        row("IN-P WID unchecked", [](ParaSet& s) { s.etc.inpWid = 999; }, 0);
        row("ETC byte unchecked", [](ParaSet& s) { s.etc.etcByte = 300; }, 0);
        row("PG TIMER 255", [](ParaSet& s) { s.special.pgTimer = 255; }, 0);
        row("PG TIMER 256", [](ParaSet& s) { s.special.pgTimer = 256; }, 1);
        row("PG TIMER -1", [](ParaSet& s) { s.special.pgTimer = -1; }, 1);
        row("LS TIMER 0", [](ParaSet& s) { s.special.lsTimer = 0; }, 0);
        row("LS TIMER 256", [](ParaSet& s) { s.special.lsTimer = 256; }, 1);
        row("AUTO HOME 2", [](ParaSet& s) { s.special.autoHome = 2; }, 1);
        row("EMG LOGIC 1", [](ParaSet& s) { s.special.emgLogic = 1; }, 0);
        row("EMG LOGIC 2", [](ParaSet& s) { s.special.emgLogic = 2; }, 1);
        row("ALM1 CLEAR -1", [](ParaSet& s) { s.special.alm1Clear = -1; }, 1);
        row("SPECIAL flag 2", [](ParaSet& s) { s.special.flag = 2; }, 1);
        row("Reserved0 255", [](ParaSet& s) { s.reserved[0] = 255; }, 0);
        row("Reserved3 256", [](ParaSet& s) { s.reserved[3] = 256; }, 1);
        row("Reserved6 -1", [](ParaSet& s) { s.reserved[6] = -1; }, 1);
    }
    void rangeLimits()
    {
        QFETCH(Change, change);
        QFETCH(int, expected);
        ParaSet set = Size28Set();
        QCOMPARE(ParametaValueCheck(set), 0);
        change(set);
        QCOMPARE(ParametaValueCheck(set), expected);
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
        QFETCH(int, expected);
        ParaSet set = Size28Set();
        set.axis.axisByte = qint16(axisByte);
        set.axis.dependentByte = qint16(dependent);
        QCOMPARE(ParametaValueCheck(set), expected);
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
        QTest::newRow("digit") << "txtHomeVel" << "0" << false << int('0') << A;
        QTest::newRow("third digit of VEL") << "txtHomeVel" << "00" << false << int('7') << D;
        QTest::newRow("over a selected text") << "txtHomeVel" << "00" << true << int('7') << A;
        QTest::newRow("backspace at the limit") << "txtHomeVel" << "60" << false << 8 << A;
        QTest::newRow("letter") << "txtPgAlarm" << "1" << false << int('a') << D;
        QTest::newRow("point") << "txtPgAlarm" << "1" << false << int('.') << D;
        QTest::newRow("Enter") << "txtPgAlarm" << "1" << false << 13 << E;
        QTest::newRow("Enter in an empty box") << "txtPgAlarm" << "" << true << 13 << E;
        QTest::newRow("Enter in a full box") << "txtPgAlarm" << "12345" << false << 13 << D;
        QTest::newRow("OFFSET 5 digits") << "txtHomeOffset" << "1234" << false << int('5') << A;
        QTest::newRow("OFFSET 6 digits") << "txtHomeOffset" << "12345" << false << int('6') << D;
        QTest::newRow("PULSE 6 digits") << "txtAxisPulse" << "12345" << false << int('6') << D;
        QTest::newRow("OFSVEL 3 digits") << "txtHomeOfsVel" << "12" << false << int('3') << D;
        QTest::newRow("IN-P WID 3 digits") << "txtInpLimit" << "12" << false << int('3') << A;
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
        QFETCH(ParaKeyResult, result);
        const std::optional<ParaBox> which = ParaBoxFromName(box);
        QVERIFY(which);
        QCOMPARE(ParaKeyFilter(*which, text, allSelected, key), result);
    }

    void notAParameterBox()
    {
        QVERIFY(!ParaBoxFromName(QStringLiteral("txtVEL")));
        QVERIFY(!ParaBoxFromName(QStringLiteral("comboActSize")));
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
        QFETCH(QString, shownSize);
        QFETCH(QString, current);
        ParaSet set = Size28Set();
        set.axis.sizeText = size;
        ParaScreen screen;
        screen.txtDenryu = QStringLiteral("0.7");
        ParametaHyoji(set, screen);
        QCOMPARE(screen.comboActSize, shownSize);
        QCOMPARE(screen.txtDenryu, current);
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
        QFETCH(bool, stillTicked);
        QFETCH(bool, enabled);
        ScriptedPrompter prompter;
        prompter.script({answer});
        ParaScreen screen;
        screen.specialControlsEnabled = !ticked;
        screen.chkTokuParaChange = ticked;
        chkTokuParaChange_Click(screen, prompter);
        QCOMPARE(screen.chkTokuParaChange, stillTicked);
        QCOMPARE(screen.specialControlsEnabled, enabled);
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
