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
Q_DECLARE_METATYPE(EntryOutcome)

char* toString(const EntryOutcome& o)
{
    return QTest::toString(QStringLiteral("text %1, background %2, VEL %3, caret %4")
                               .arg(o.text.value_or("(kept)"), QString::number(int(o.background)),
                                    o.txtVEL.value_or("(kept)"), QString::number(o.caret)));
}

namespace {
using P = PosiTable;
using E = EntryOutcome;
const OptText Unchanged = std::nullopt;
OptText text(const char* s) { return QString::fromLatin1(s); }

E shaded(Background background)
{
    E o;
    o.background = background;
    return o;
}
E withVel(E o, const char* vel)
{
    o.txtVEL = QString::fromLatin1(vel);
    return o;
}
E withCaret(E o, int caret)
{
    o.caret = caret;
    return o;
}

// A change of text in a box, or the focus leaving it; the gear box with
// speed choice 1.
E changeOrLeave(const QString& rule, const QString& typed)
{
    if (rule == u"division")
        return DivisionEntry::textChanged(typed);
    if (rule.startsWith(u"gear"))
        return GearEntry::textChanged(typed, QStringLiteral("1"), rule.endsWith(u"loading"), false);
    if (rule == u"timer")
        return TimerEntry::textChanged(typed);
    if (rule == u"current")
        return CurrentEntry::textChanged(typed).outcome;
    if (rule == u"leaving division")
        return DivisionEntry::leave(typed);
    if (rule == u"leaving gear")
        return GearEntry::leave(typed);
    return TimerEntry::leave(typed);
}
} // namespace

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
        const auto row = [](const char* name, const char* choice, const char* gear, bool eventsOff, bool suppress,
                            OptText onClick, OptText onChange) {
            QTest::newRow(name) << QString(choice) << QString(gear) << eventsOff << suppress << onClick << onChange;
        };
        row("30 at gear 1", "30", "1", false, false, text("9000"), text("9000"));
        row("1 at gear 100", "1", "100", false, false, text("3"), text("3"));
        row("37.5 to even 38", "1", "8", false, false, text("38"), text("38"));
        row("112.5 to even 112", "3", "8", false, false, text("112"), text("112"));
        row("gear 0", "5", "0", false, false, Unchanged, Unchanged);
        row("gear empty", "5", "", false, false, Unchanged, Unchanged);
        row("leading zero only on a change", "1", "05", false, false, text("60"), Unchanged);
        row("events off", "5", "1", true, false, Unchanged, Unchanged);
        row("loading after a read", "1", "5", false, true, text("60"), Unchanged);
        row("choice beyond 16 bits", "200", "1", false, false, Unchanged, Unchanged);
        row("no speed choice", "", "5", false, false, Unchanged, Unchanged);
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
        const auto row = [](const char* name, const char* vel, const char* gear, OptText choice) {
            QTest::newRow(name) << QString(vel) << QString(gear) << choice;
        };
        row("9000 at gear 1", "9000", "1", text("30"));
        row("0", "0", "1", text("1"));
        row("1.5 to even 2", "450", "1", text("2"));
        row("2.5 to even 2", "750", "1", text("2"));
        row("product beyond 16 bits", "9000", "100", text("30"));
        row("no speed value", "", "1", Unchanged);
        row("no gear", "9000", "", Unchanged);
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
        const auto row = [](const char* name, const char* box, const QString& before, QChar key, KeyAction action) {
            QTest::newRow(name) << QString(box) << before << key << action;
        };
        row("division: first zero", "division", "", QChar(u'0'), KeyAction::Accept);
        row("division: letter", "division", "1", QChar(u'a'), KeyAction::Refuse);
        row("division: minus", "division", "", QChar(u'-'), KeyAction::Refuse);
        row("division: after 100", "division", "100", QChar(u'0'), KeyAction::Refuse);
        row("division: four characters", "division", "1234", QChar(u'1'), KeyAction::Refuse);
        row("division: backspace at 100", "division", "100", BackspaceKey, KeyAction::Accept);
        row("division: enter at 100", "division", "100", EnterKey, KeyAction::EnterToWriteButton);
        row("timer: typing over all", "timer, all selected", "655", QChar(u'1'), KeyAction::Accept);
        row("timer: letter", "timer", "6", QChar(u'x'), KeyAction::Refuse);
        row("timer: backspace", "timer", "655", BackspaceKey, KeyAction::Accept);
        row("timer: enter", "timer", "655", EnterKey, KeyAction::Enter);
        row("current: second point", "current", "1.5", QChar(u'.'), KeyAction::Refuse);
        row("current: letter", "current", "1", QChar(u'a'), KeyAction::Refuse);
        row("current: 21 characters", "current", QString(21, u'1'), QChar(u'1'), KeyAction::Refuse);
        row("current: point at 21", "current", QString(21, u'1'), QChar(u'.'), KeyAction::Accept);
        row("current: enter", "current", "1.5", EnterKey, KeyAction::Enter);
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

    // Division needs at least 2 when left, gear at least 1; a gear above 100
    // is cleared, but VEL was taken from the typed text first.
    void changeAndLeave_data()
    {
        QTest::addColumn<QString>("rule");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<EntryOutcome>("outcome");
        const auto row = [](const char* name, const char* rule, const char* typed, const EntryOutcome& outcome) {
            QTest::newRow(name) << QString(rule) << QString(typed) << outcome;
        };
        row("division: 100 accepted", "division", "100", shaded(Background::Window));
        row("division: 101 cleared", "division", "101", E::clearedAndMarked());
        row("division: letters cleared", "division", "1x", E::cleared());
        row("division: zero kept while typing", "division", "0", shaded(Background::Window));
        row("gear: above 100", "gear", "101", withVel(E::clearedAndMarked(), "3"));
        row("gear: letters", "gear", "x", E::cleared());
        row("gear: loading", "gear, loading", "8", E());
        row("timer: 655 stays", "timer", "655", E());
        row("timer: letters cleared", "timer", "5a", E::cleared());
        row("timer: empty", "timer", "", E());
        row("current: point alone", "current", ".", withCaret(E::withText("0."), 2));
        row("current: 2.0 stays", "current", "2.0", E());
        row("current: 2.05 cleared", "current", "2.05", E::cleared());
        row("current: 15 cleared", "current", "15", E::cleared());
        row("leaving division: 0", "leaving division", "0", E::clearedAndMarked());
        row("leaving division: 01 is 1", "leaving division", "01", E::clearedAndMarked());
        row("leaving division: empty is 0", "leaving division", "", E::clearedAndMarked());
        row("leaving division: 2 kept", "leaving division", "2", E::withText("2"));
        row("leaving gear: 1 kept", "leaving gear", "1", E::withText("1"));
        row("leaving gear: 010 stripped", "leaving gear", "010", E::withText("10"));
        row("leaving gear: 0", "leaving gear", "0", E::clearedAndMarked());
        row("leaving gear: empty", "leaving gear", "", E::clearedAndMarked());
        row("leaving timer: letters", "leaving timer", "5a", E());
        row("leaving timer: empty", "leaving timer", "", E());
    }
    void changeAndLeave()
    {
        QFETCH(QString, rule);
        QFETCH(QString, typed);
        QTEST(changeOrLeave(rule, typed), "outcome");
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

    // A field that is empty, or no 16-bit number, leaves the table as it was.
    void torikomiRefuses_data()
    {
        QTest::addColumn<int>("field");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("message");
        const QString empty = QStringLiteral("No data in the list.\r\n\r\nInput data and try it again.");
        const QString wrong = QStringLiteral("An error occured while getting Value of Position Data.\r\n\r\nOperation is canceled.");
        QTest::newRow("VEL empty") << 0 << "" << empty;
        QTest::newRow("GEAR empty") << 3 << "" << empty;
        QTest::newRow("GEAR not a number") << 3 << "1x" << wrong;
        QTest::newRow("VEL beyond 16 bits") << 0 << "40000" << wrong;
    }
    void torikomiRefuses()
    {
        QFETCH(int, field);
        QFETCH(QString, value);
        QFETCH(QString, message);
        OpDataScreen screen = exampleScreen();
        QString* fields[] = {&screen.txtVEL, &screen.txtACC, &screen.txtDIVISION, &screen.txtGEAR};
        *fields[field] = value;
        ScriptedPrompter prompter;
        PosiTable table;
        QCOMPARE(OpDataTorikomi::PosiDataCheckAndTorikomi(screen, table, prompter), 1);
        QCOMPARE(prompter.texts(), QStringList{message});
        QCOMPARE(prompter.shown[0].icon, Prompter::Icon::Exclamation);
        QVERIFY(!table[P::VEL].isValid());
    }

    // The spares go out as they are; four digits are a 16-bit value, Spare2's
    // five a 32-bit one; a digit that is not hex refuses the whole reply.
    void recordText()
    {
        PosiTable table;
        const std::pair<P::Column, int> values[] = {{P::VEL, 120}, {P::ACC, 3}, {P::Spare1, 10}, {P::Spare2, 0xABCDE}, {P::DIR, 1}, {P::DIVISION, 100}, {P::GEAR, 100}};
        for (const auto& [column, value] : values)
            table[column] = value;
        QCOMPARE(OpDataRecord::WriteText(table), QStringLiteral("0100783AABCDE16464"));

        PosiTable read;
        read[P::Spare3] = QStringLiteral("kept");
        QVERIFY(OpDataRecord::parseReply(QStringLiteral("0RP01FFFF3FFFFFF06464\r\n"), read));
        QCOMPARE(numbers(read, {P::VEL, P::Spare1, P::Spare2, P::GEAR}), (QList<qint64>{-1, 15, 0xFFFFF, 100}));
        QCOMPARE(read[P::Spare3].toString(), QStringLiteral("kept"));
        QVERIFY(!OpDataRecord::parseReply(QStringLiteral("0RP012328100000010C0G\r\n"), read));
        QCOMPARE(read.number(P::VEL), -1);
    }
};

QTEST_APPLESS_MAIN(TestOpDataRules)
#include "tst_opdatarules.moc"
