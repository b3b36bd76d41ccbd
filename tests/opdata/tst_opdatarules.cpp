#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "opdata/CurrentEntry.h"
#include "opdata/DivisionEntry.h"
#include "opdata/GearEntry.h"
#include "opdata/OpDataRecord.h"
#include "opdata/OpDataTorikomi.h"
#include "opdata/PosiTable.h"
#include "opdata/TimerEntry.h"
#include "opdata/VelocityRules.h"

#include "OpDataFakes.h"
#include "support/ScriptedPrompter.h"

#include <QTest>

using OptText = std::optional<QString>;
Q_DECLARE_METATYPE(OptText)
Q_DECLARE_METATYPE(KeyAction)
Q_DECLARE_METATYPE(Background)

namespace {
using P = PosiTable;
const OptText Unchanged = std::nullopt;
OptText text(const char* s) { return QString::fromLatin1(s); }
}

class TestOpDataRules : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        ProgramState::reset();
        ProgramState::instance().gMsgBase = MessageTable::EnglishBase;
    }

    // VEL from the speed choice and the gear, after a click in the speed list
    // and after a change of the gear.
    void velFromSpeedAndGear_data()
    {
        QTest::addColumn<QString>("choice");
        QTest::addColumn<QString>("gear");
        QTest::addColumn<bool>("eventsOff");
        QTest::addColumn<bool>("suppress");
        QTest::addColumn<OptText>("onClick");
        QTest::addColumn<OptText>("onChange");
        QTest::newRow("30 at gear 1") << "30" << "1" << false << false << text("9000") << text("9000");
        QTest::newRow("1 at gear 100") << "1" << "100" << false << false << text("3") << text("3");
        QTest::newRow("37.5 to even 38") << "1" << "8" << false << false << text("38") << text("38");
        QTest::newRow("112.5 to even 112") << "3" << "8" << false << false << text("112") << text("112");
        QTest::newRow("gear 0") << "5" << "0" << false << false << Unchanged << Unchanged;
        QTest::newRow("gear empty") << "5" << "" << false << false << Unchanged << Unchanged;
        QTest::newRow("leading zero only on a change") << "1" << "05" << false << false << text("60") << Unchanged;
        QTest::newRow("events off") << "5" << "1" << true << false << Unchanged << Unchanged;
        QTest::newRow("loading after a read") << "1" << "5" << false << true << text("60") << Unchanged;
        QTest::newRow("choice beyond 16 bits") << "200" << "1" << false << false << Unchanged << Unchanged;
        QTest::newRow("no speed choice") << "" << "5" << false << false << Unchanged << Unchanged;
    }
    void velFromSpeedAndGear()
    {
        QFETCH(QString, choice);
        QFETCH(QString, gear);
        QFETCH(bool, eventsOff);
        QFETCH(bool, suppress);
        QTEST(VelocityRules::VelOnSpeedClick(choice, gear, eventsOff), "onClick");
        QTEST(VelocityRules::VelOnGearChange(choice, gear, eventsOff, suppress), "onChange");
    }

    void speedChoiceFromVel_data()
    {
        QTest::addColumn<QString>("vel");
        QTest::addColumn<QString>("gear");
        QTest::addColumn<OptText>("choice");
        QTest::newRow("9000 at gear 1") << "9000" << "1" << text("30");
        QTest::newRow("0") << "0" << "1" << text("1");
        QTest::newRow("1.5 to even 2") << "450" << "1" << text("2");
        QTest::newRow("2.5 to even 2") << "750" << "1" << text("2");
        QTest::newRow("product beyond 16 bits") << "9000" << "100" << text("30");
        QTest::newRow("no speed value") << "" << "1" << Unchanged;
        QTest::newRow("no gear") << "9000" << "" << Unchanged;
    }
    void speedChoiceFromVel()
    {
        QFETCH(QString, vel);
        QFETCH(QString, gear);
        QTEST(VelocityRules::SpeedChoiceFromVel(vel, gear), "choice");
    }

    // The keys each box lets through. The gear box filters as the division
    // box does, but there Enter does not go on to the write button.
    void keys_data()
    {
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QChar>("key");
        QTest::addColumn<KeyAction>("action");
        QTest::newRow("division: first zero") << "division" << "" << QChar(u'0') << KeyAction::Accept;
        QTest::newRow("division: letter") << "division" << "1" << QChar(u'a') << KeyAction::Refuse;
        QTest::newRow("division: minus") << "division" << "" << QChar(u'-') << KeyAction::Refuse;
        QTest::newRow("division: after 100") << "division" << "100" << QChar(u'0') << KeyAction::Refuse;
        QTest::newRow("division: four characters") << "division" << "1234" << QChar(u'1') << KeyAction::Refuse;
        QTest::newRow("division: backspace at 100") << "division" << "100" << BackspaceKey << KeyAction::Accept;
        QTest::newRow("division: enter at 100") << "division" << "100" << EnterKey << KeyAction::EnterToWriteButton;
        QTest::newRow("timer: typing over all") << "timer, all selected" << "655" << QChar(u'1') << KeyAction::Accept;
        QTest::newRow("timer: letter") << "timer" << "6" << QChar(u'x') << KeyAction::Refuse;
        QTest::newRow("timer: backspace") << "timer" << "655" << BackspaceKey << KeyAction::Accept;
        QTest::newRow("timer: enter") << "timer" << "655" << EnterKey << KeyAction::Enter;
        QTest::newRow("current: letter") << "current" << "1" << QChar(u'a') << KeyAction::Refuse;
        QTest::newRow("current: 21 characters") << "current" << QString(21, u'1') << QChar(u'1') << KeyAction::Refuse;
        QTest::newRow("current: point at 21") << "current" << QString(21, u'1') << QChar(u'.') << KeyAction::Accept;
        QTest::newRow("current: enter") << "current" << "1.5" << EnterKey << KeyAction::Enter;
    }
    void keys()
    {
        QFETCH(QString, box);
        QFETCH(QString, before);
        QFETCH(QChar, key);
        QFETCH(KeyAction, action);
        if (box == u"division") {
            QCOMPARE(DivisionEntry::keyPress(before, key), action);
            QCOMPARE(GearEntry::keyPress(before, key), action == KeyAction::EnterToWriteButton ? KeyAction::Enter : action);
        } else if (box == u"current") {
            QCOMPARE(CurrentEntry::keyPress(before, key), action);
        } else {
            QCOMPARE(TimerEntry::keyPress(before, box.endsWith(u"selected"), key), action);
        }
    }

    void divisionChange_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<OptText>("after");
        QTest::addColumn<Background>("background");
        QTest::newRow("100 accepted") << "100" << Unchanged << Background::Window;
        QTest::newRow("101 cleared") << "101" << text("") << Background::Marker;
        QTest::newRow("letters cleared") << "1x" << text("") << Background::Unchanged;
        QTest::newRow("zero kept while typing") << "0" << Unchanged << Background::Window;
    }
    void divisionChange()
    {
        QFETCH(QString, typed);
        QFETCH(Background, background);
        const EntryOutcome o = DivisionEntry::textChanged(typed);
        QTEST(o.text, "after");
        QCOMPARE(o.background, background);
    }

    void gearChange_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("eventsOff");
        QTest::addColumn<OptText>("after");
        QTest::addColumn<Background>("background");
        QTest::addColumn<OptText>("vel");
        // Cleared and marked; the speed value was taken from the typed text first.
        QTest::newRow("above 100") << "101" << false << text("") << Background::Marker << text("3");
        QTest::newRow("loading") << "8" << true << Unchanged << Background::Unchanged << Unchanged;
        QTest::newRow("letters") << "x" << false << text("") << Background::Unchanged << Unchanged;
    }
    void gearChange()
    {
        QFETCH(QString, typed);
        QFETCH(bool, eventsOff);
        const EntryOutcome o = GearEntry::textChanged(typed, QStringLiteral("1"), eventsOff, false);
        QTEST(o.text, "after");
        QTEST(o.background, "background");
        QTEST(o.txtVEL, "vel");
    }

    // Leaving the box: division needs at least 2, gear at least 1.
    void leave_data()
    {
        QTest::addColumn<bool>("gear");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<OptText>("after");
        QTest::addColumn<Background>("background");
        QTest::newRow("division 0 cleared") << false << "0" << text("") << Background::Marker;
        QTest::newRow("division 01 is 1, cleared") << false << "01" << text("") << Background::Marker;
        QTest::newRow("division empty is 0, cleared") << false << "" << text("") << Background::Marker;
        QTest::newRow("division 2 kept") << false << "2" << text("2") << Background::Unchanged;
        QTest::newRow("gear 1 kept") << true << "1" << text("1") << Background::Unchanged;
        QTest::newRow("gear 010 stripped") << true << "010" << text("10") << Background::Unchanged;
        QTest::newRow("gear 0 cleared") << true << "0" << text("") << Background::Marker;
        QTest::newRow("gear empty cleared") << true << "" << text("") << Background::Marker;
    }
    void leave()
    {
        QFETCH(bool, gear);
        QFETCH(QString, typed);
        const EntryOutcome o = gear ? GearEntry::leave(typed) : DivisionEntry::leave(typed);
        QTEST(o.text, "after");
        QTEST(o.background, "background");
    }

    void timerChangeAndLeave_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<OptText>("afterChange");
        QTest::addColumn<OptText>("afterLeave");
        QTest::newRow("letters cleared") << "5a" << text("") << Unchanged;
        QTest::newRow("empty") << "" << Unchanged << Unchanged;
    }
    void timerChangeAndLeave()
    {
        QFETCH(QString, typed);
        QTEST(TimerEntry::textChanged(typed).text, "afterChange");
        QTEST(TimerEntry::leave(typed).text, "afterLeave");
    }

    void currentChange_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<OptText>("after");
        QTest::addColumn<int>("caret");
        QTest::addColumn<bool>("hasPoint");
        QTest::newRow("point alone") << "." << text("0.") << 2 << true;
        QTest::newRow("2.0 stays") << "2.0" << Unchanged << -1 << true;
        QTest::newRow("15 cleared") << "15" << text("") << -1 << false;
        QTest::newRow("1 stays") << "1" << Unchanged << -1 << false;
    }
    void currentChange()
    {
        QFETCH(QString, typed);
        QFETCH(int, caret);
        const CurrentEntry::Change c = CurrentEntry::textChanged(typed);
        QTEST(c.outcome.text, "after");
        QCOMPARE(c.outcome.caret, caret);
        QTEST(c.mHasDecimalPoint, "hasPoint");
    }

    void torikomiTakesRow0()
    {
        ScriptedPrompter prompter;
        PosiTable table;
        table[P::Spare2] = 77;
        OpDataScreen screen = exampleScreen();
        screen.optCW = false;
        screen.txtGEAR = QStringLiteral(" 4 ");

        QCOMPARE(OpDataTorikomi::PosiDataCheckAndTorikomi(screen, table, prompter), 0);
        QCOMPARE(numbers(table, {P::VEL, P::ACC, P::DIVISION, P::GEAR, P::DIR, P::Spare2}),
                 (QList<qint64>{9000, 1, 12, 4, 1, 77}));
        QVERIFY(!table[P::Spare1].isValid());
        QVERIFY(prompter.shown.isEmpty());
    }

    void torikomiRefusesUnconvertible()
    {
        ScriptedPrompter prompter;
        PosiTable table;
        OpDataScreen screen = exampleScreen();
        screen.txtGEAR = QStringLiteral("1x");

        QCOMPARE(OpDataTorikomi::PosiDataCheckAndTorikomi(screen, table, prompter), 1);
        QCOMPARE(prompter.texts(), QStringList{QStringLiteral(
            "An error occured while getting Value of Position Data.\r\n\r\nOperation is canceled.")});
        QVERIFY(!table[P::VEL].isValid());

        screen.txtGEAR = QStringLiteral("1");
        screen.txtVEL = QStringLiteral("40000");
        QCOMPARE(OpDataTorikomi::PosiDataTorikomi(screen, table, prompter), 1);
        QVERIFY(!table[P::VEL].isValid());
    }

    void checkRefusesEmptyField_data()
    {
        QTest::addColumn<int>("field");
        QTest::newRow("VEL") << 0;
        QTest::newRow("ACC") << 1;
        QTest::newRow("DIVISION") << 2;
        QTest::newRow("GEAR") << 3;
    }
    void checkRefusesEmptyField()
    {
        QFETCH(int, field);
        OpDataScreen screen = exampleScreen();
        QString* fields[] = {&screen.txtVEL, &screen.txtACC, &screen.txtDIVISION, &screen.txtGEAR};
        fields[field]->clear();
        ScriptedPrompter prompter;
        PosiTable table;

        QCOMPARE(OpDataTorikomi::PosiDataCheckAndTorikomi(screen, table, prompter), 1);
        QCOMPARE(prompter.shown.size(), 1);
        QCOMPARE(prompter.shown[0].text, QStringLiteral("No data in the list.\r\n\r\nInput data and try it again."));
        QCOMPARE(prompter.shown[0].icon, Prompter::Icon::Exclamation);
        QVERIFY(!table[P::VEL].isValid());
    }

    // The spares go out as they are; four digits are a 16-bit value, Spare2's
    // five a 32-bit one; a digit that is not hex refuses the whole reply.
    void recordText()
    {
        PosiTable table;
        const std::pair<P::Column, int> values[] = {{P::VEL, 120}, {P::ACC, 3}, {P::Spare1, 10}, {P::Spare2, 0xABCDE},
                                                    {P::DIR, 1}, {P::DIVISION, 100}, {P::GEAR, 100}};
        for (const auto& [column, value] : values)
            table[column] = value;
        QCOMPARE(OpDataRecord::WriteText(table), QStringLiteral("010078" "3" "A" "ABCDE" "1" "64" "64"));

        PosiTable read;
        read[P::Spare3] = QStringLiteral("kept");
        QVERIFY(OpDataRecord::parseReply(QStringLiteral("0RP01" "FFFF" "3" "F" "FFFFF" "0" "64" "64" "\r\n"), read));
        QCOMPARE(numbers(read, {P::VEL, P::Spare1, P::Spare2, P::GEAR}), (QList<qint64>{-1, 15, 0xFFFFF, 100}));
        QCOMPARE(read[P::Spare3].toString(), QStringLiteral("kept"));
        QVERIFY(!OpDataRecord::parseReply(QStringLiteral("0RP01" "2328" "1" "0" "00000" "1" "0C" "0G" "\r\n"), read));
        QCOMPARE(read.number(P::VEL), -1);
    }
};

QTEST_APPLESS_MAIN(TestOpDataRules)
#include "tst_opdatarules.moc"
