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

    void velOnSpeedClick_data()
    {
        QTest::addColumn<QString>("choice");
        QTest::addColumn<QString>("gear");
        QTest::addColumn<bool>("eventsOff");
        QTest::addColumn<OptText>("vel");
        QTest::newRow("30 at gear 1") << "30" << "1" << false << text("9000");
        QTest::newRow("1 at gear 100") << "1" << "100" << false << text("3");
        QTest::newRow("37.5 to even 38") << "1" << "8" << false << text("38");
        QTest::newRow("112.5 to even 112") << "3" << "8" << false << text("112");
        QTest::newRow("gear 0") << "5" << "0" << false << Unchanged;
        QTest::newRow("gear empty") << "5" << "" << false << Unchanged;
        QTest::newRow("events off") << "5" << "1" << true << Unchanged;
        // Only the change path looks at a leading zero.
        QTest::newRow("gear 05 on a click") << "1" << "05" << false << text("60");
        QTest::newRow("choice beyond 16 bits") << "200" << "1" << false << Unchanged;
    }
    void velOnSpeedClick()
    {
        QFETCH(QString, choice);
        QFETCH(QString, gear);
        QFETCH(bool, eventsOff);
        QTEST(VelocityRules::VelOnSpeedClick(choice, gear, eventsOff), "vel");
    }

    void velOnGearChange_data()
    {
        QTest::addColumn<QString>("choice");
        QTest::addColumn<QString>("gear");
        QTest::addColumn<bool>("eventsOff");
        QTest::addColumn<bool>("suppress");
        QTest::addColumn<OptText>("vel");
        QTest::newRow("30 at gear 1") << "30" << "1" << false << false << text("9000");
        QTest::newRow("gear 5") << "2" << "5" << false << false << text("120");
        QTest::newRow("leading zero") << "1" << "05" << false << false << Unchanged;
        QTest::newRow("gear 0") << "1" << "0" << false << false << Unchanged;
        QTest::newRow("gear empty") << "1" << "" << false << false << Unchanged;
        QTest::newRow("no speed choice") << "" << "5" << false << false << Unchanged;
        QTest::newRow("loading after a read") << "1" << "5" << false << true << Unchanged;
        QTest::newRow("events off") << "1" << "5" << true << false << Unchanged;
    }
    void velOnGearChange()
    {
        QFETCH(QString, choice);
        QFETCH(QString, gear);
        QFETCH(bool, eventsOff);
        QFETCH(bool, suppress);
        QTEST(VelocityRules::VelOnGearChange(choice, gear, eventsOff, suppress), "vel");
    }

    void speedChoiceFromVel_data()
    {
        QTest::addColumn<QString>("vel");
        QTest::addColumn<QString>("gear");
        QTest::addColumn<OptText>("choice");
        QTest::newRow("9000 at gear 1") << "9000" << "1" << text("30");
        QTest::newRow("3 at gear 100") << "3" << "100" << text("1");
        QTest::newRow("0") << "0" << "1" << text("1");
        QTest::newRow("q above 30") << "9000" << "2" << text("30");
        QTest::newRow("38 at gear 8") << "38" << "8" << text("1");
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

    void divisionKeys_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QChar>("key");
        QTest::addColumn<KeyAction>("action");
        QTest::newRow("first zero") << "" << QChar(u'0') << KeyAction::Accept;
        QTest::newRow("digit") << "9" << QChar(u'9') << KeyAction::Accept;
        QTest::newRow("letter") << "1" << QChar(u'a') << KeyAction::Refuse;
        QTest::newRow("minus") << "" << QChar(u'-') << KeyAction::Refuse;
        QTest::newRow("after 100") << "100" << QChar(u'0') << KeyAction::Refuse;
        QTest::newRow("four characters") << "1234" << QChar(u'1') << KeyAction::Refuse;
        QTest::newRow("backspace at 100") << "100" << BackspaceKey << KeyAction::Accept;
        QTest::newRow("enter") << "12" << EnterKey << KeyAction::EnterToWriteButton;
        QTest::newRow("enter at 100") << "100" << EnterKey << KeyAction::EnterToWriteButton;
    }
    void divisionKeys()
    {
        QFETCH(QString, before);
        QFETCH(QChar, key);
        QFETCH(KeyAction, action);
        QCOMPARE(DivisionEntry::keyPress(before, key), action);
        // The gear field filters alike, but Enter does not go on to the write button.
        const KeyAction gear = action == KeyAction::EnterToWriteButton ? KeyAction::Enter : action;
        QCOMPARE(GearEntry::keyPress(before, key), gear);
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
        QTest::newRow("typed") << "8" << false << Unchanged << Background::Window << text("38");
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
        QTest::newRow("division 12") << false << "12" << text("12") << Background::Unchanged;
        QTest::newRow("division 007 stripped") << false << "007" << text("7") << Background::Unchanged;
        QTest::newRow("division 0 cleared") << false << "0" << text("") << Background::Marker;
        QTest::newRow("division 000 cleared") << false << "000" << text("") << Background::Marker;
        QTest::newRow("division 1 cleared") << false << "1" << text("") << Background::Marker;
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

    void timerKeys_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<bool>("allSelected");
        QTest::addColumn<QChar>("key");
        QTest::addColumn<KeyAction>("action");
        QTest::newRow("third digit") << "65" << false << QChar(u'5') << KeyAction::Accept;
        QTest::newRow("fourth digit") << "655" << false << QChar(u'1') << KeyAction::Refuse;
        QTest::newRow("typing over all") << "655" << true << QChar(u'1') << KeyAction::Accept;
        QTest::newRow("letter") << "6" << false << QChar(u'x') << KeyAction::Refuse;
        QTest::newRow("backspace") << "655" << false << BackspaceKey << KeyAction::Accept;
        QTest::newRow("enter") << "655" << false << EnterKey << KeyAction::Enter;
    }
    void timerKeys()
    {
        QFETCH(QString, before);
        QFETCH(bool, allSelected);
        QFETCH(QChar, key);
        QTEST(TimerEntry::keyPress(before, allSelected, key), "action");
    }

    void timerChangeAndLeave_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<OptText>("afterChange");
        QTest::addColumn<OptText>("afterLeave");
        QTest::newRow("655 stays") << "655" << Unchanged << Unchanged;
        QTest::newRow("656 cleared") << "656" << text("") << Unchanged;
        QTest::newRow("letters cleared") << "5a" << text("") << Unchanged;
        QTest::newRow("000 becomes 0") << "000" << Unchanged << text("0");
        QTest::newRow("empty") << "" << Unchanged << Unchanged;
    }
    void timerChangeAndLeave()
    {
        QFETCH(QString, typed);
        QTEST(TimerEntry::textChanged(typed).text, "afterChange");
        QTEST(TimerEntry::leave(typed).text, "afterLeave");
    }

    void currentKeys_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QChar>("key");
        QTest::addColumn<KeyAction>("action");
        QTest::newRow("first point") << "1" << QChar(u'.') << KeyAction::Accept;
        QTest::newRow("second point") << "1.5" << QChar(u'.') << KeyAction::Refuse;
        QTest::newRow("digit") << "1." << QChar(u'5') << KeyAction::Accept;
        QTest::newRow("letter") << "1" << QChar(u'a') << KeyAction::Refuse;
        QTest::newRow("21 characters") << QString(21, u'1') << QChar(u'1') << KeyAction::Refuse;
        QTest::newRow("point at 21 characters") << QString(21, u'1') << QChar(u'.') << KeyAction::Accept;
        QTest::newRow("enter") << "1.5" << EnterKey << KeyAction::Enter;
    }
    void currentKeys()
    {
        QFETCH(QString, before);
        QFETCH(QChar, key);
        QTEST(CurrentEntry::keyPress(before, key), "action");
    }

    void currentChange_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<OptText>("after");
        QTest::addColumn<int>("caret");
        QTest::addColumn<bool>("hasPoint");
        QTest::newRow("point alone") << "." << text("0.") << 2 << true;
        QTest::newRow("2.0 stays") << "2.0" << Unchanged << -1 << true;
        QTest::newRow("2.05 cleared") << "2.05" << text("") << -1 << false;
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

    void writeText()
    {
        PosiTable table;
        ScriptedPrompter prompter;
        QCOMPARE(OpDataTorikomi::PosiDataTorikomi(exampleScreen(), table, prompter), 0);
        QCOMPARE(OpDataRecord::WriteText(table), QStringLiteral("012328100000000C01"));

        // The spares go out as they are.
        const std::pair<P::Column, int> values[] = {{P::VEL, 120}, {P::ACC, 3}, {P::Spare1, 10}, {P::Spare2, 0xABCDE},
                                                    {P::DIR, 1}, {P::DIVISION, 100}, {P::GEAR, 100}};
        for (const auto& [column, value] : values)
            table[column] = value;
        QCOMPARE(OpDataRecord::WriteText(table), QStringLiteral("010078" "3" "A" "ABCDE" "1" "64" "64"));
    }

    void parseReadReply()
    {
        PosiTable read;
        read[P::Spare3] = QStringLiteral("kept");
        QVERIFY(OpDataRecord::parseReply(QStringLiteral("0RP01" "2328" "1" "0" "00000" "1" "0C" "01" "\r\n"), read));
        QCOMPARE(numbers(read, {P::VEL, P::ACC, P::Spare1, P::Spare2, P::DIR, P::DIVISION, P::GEAR}),
                 (QList<qint64>{9000, 1, 0, 0, 1, 12, 1}));
        QCOMPARE(read[P::Spare3].toString(), QStringLiteral("kept"));

        // Four digits are a 16-bit value; Spare2's five digits a 32-bit one.
        QVERIFY(OpDataRecord::parseReply(QStringLiteral("0RP01" "FFFF" "3" "F" "FFFFF" "0" "64" "64" "\r\n"), read));
        QCOMPARE(numbers(read, {P::VEL, P::Spare1, P::Spare2, P::GEAR}), (QList<qint64>{-1, 15, 0xFFFFF, 100}));

        // A digit that is not hex refuses the whole reply.
        QVERIFY(!OpDataRecord::parseReply(QStringLiteral("0RP01" "2328" "1" "0" "00000" "1" "0C" "0G" "\r\n"), read));
        QCOMPARE(read.number(P::VEL), -1);
    }
};

QTEST_APPLESS_MAIN(TestOpDataRules)
#include "tst_opdatarules.moc"
