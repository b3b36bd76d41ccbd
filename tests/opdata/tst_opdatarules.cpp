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
        QTest::newRow("30 at gear 1") << "30"
                                      << "1" << false << false << text("9000") << text("9000");
        QTest::newRow("1 at gear 100") << "1"
                                       << "100" << false << false << text("3") << text("3");
        QTest::newRow("37.5 to even 38") << "1"
                                         << "8" << false << false << text("38") << text("38");
        QTest::newRow("112.5 to even 112") << "3"
                                           << "8" << false << false << text("112") << text("112");
        QTest::newRow("gear 0") << "5"
                                << "0" << false << false << Unchanged << Unchanged;
        QTest::newRow("gear empty") << "5"
                                    << "" << false << false << Unchanged << Unchanged;
        QTest::newRow("leading zero only on a change") << "1"
                                                       << "05" << false << false << text("60") << Unchanged;
        QTest::newRow("events off") << "5"
                                    << "1" << true << false << Unchanged << Unchanged;
        QTest::newRow("loading after a read") << "1"
                                              << "5" << false << true << text("60") << Unchanged;
        QTest::newRow("choice beyond 16 bits") << "200"
                                               << "1" << false << false << Unchanged << Unchanged;
        QTest::newRow("no speed choice") << ""
                                         << "5" << false << false << Unchanged << Unchanged;
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
        QTest::newRow("9000 at gear 1") << "9000"
                                        << "1" << text("30");
        QTest::newRow("0") << "0"
                           << "1" << text("1");
        QTest::newRow("1.5 to even 2") << "450"
                                       << "1" << text("2");
        QTest::newRow("2.5 to even 2") << "750"
                                       << "1" << text("2");
        QTest::newRow("product beyond 16 bits") << "9000"
                                                << "100" << text("30");
        QTest::newRow("no speed value") << ""
                                        << "1" << Unchanged;
        QTest::newRow("no gear") << "9000"
                                 << "" << Unchanged;
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
        QTest::newRow("division: first zero") << "division"
                                              << "" << QChar(u'0') << KeyAction::Accept;
        QTest::newRow("division: letter") << "division"
                                          << "1" << QChar(u'a') << KeyAction::Refuse;
        QTest::newRow("division: minus") << "division"
                                         << "" << QChar(u'-') << KeyAction::Refuse;
        QTest::newRow("division: after 100") << "division"
                                             << "100" << QChar(u'0') << KeyAction::Refuse;
        QTest::newRow("division: four characters") << "division"
                                                   << "1234" << QChar(u'1') << KeyAction::Refuse;
        QTest::newRow("division: backspace at 100") << "division"
                                                    << "100" << BackspaceKey << KeyAction::Accept;
        QTest::newRow("division: enter at 100") << "division"
                                                << "100" << EnterKey << KeyAction::EnterToWriteButton;
        QTest::newRow("timer: typing over all") << "timer, all selected"
                                                << "655" << QChar(u'1') << KeyAction::Accept;
        QTest::newRow("timer: letter") << "timer"
                                       << "6" << QChar(u'x') << KeyAction::Refuse;
        QTest::newRow("timer: backspace") << "timer"
                                          << "655" << BackspaceKey << KeyAction::Accept;
        QTest::newRow("timer: enter") << "timer"
                                      << "655" << EnterKey << KeyAction::Enter;
        QTest::newRow("current: second point") << "current"
                                               << "1.5" << QChar(u'.') << KeyAction::Refuse;
        QTest::newRow("current: letter") << "current"
                                         << "1" << QChar(u'a') << KeyAction::Refuse;
        QTest::newRow("current: 21 characters") << "current" << QString(21, u'1') << QChar(u'1') << KeyAction::Refuse;
        QTest::newRow("current: point at 21") << "current" << QString(21, u'1') << QChar(u'.') << KeyAction::Accept;
        QTest::newRow("current: enter") << "current"
                                        << "1.5" << EnterKey << KeyAction::Enter;
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
        QTest::newRow("division: 100 accepted") << "division"
                                                << "100" << shaded(Background::Window);
        QTest::newRow("division: 101 cleared") << "division"
                                               << "101" << E::clearedAndMarked();
        QTest::newRow("division: letters cleared") << "division"
                                                   << "1x" << E::cleared();
        QTest::newRow("division: zero kept while typing") << "division"
                                                          << "0" << shaded(Background::Window);
        QTest::newRow("gear: above 100") << "gear"
                                         << "101" << withVel(E::clearedAndMarked(), "3");
        QTest::newRow("gear: letters") << "gear"
                                       << "x" << E::cleared();
        QTest::newRow("gear: loading") << "gear, loading"
                                       << "8" << E();
        QTest::newRow("timer: 655 stays") << "timer"
                                          << "655" << E();
        QTest::newRow("timer: letters cleared") << "timer"
                                                << "5a" << E::cleared();
        QTest::newRow("timer: empty") << "timer"
                                      << "" << E();
        QTest::newRow("current: point alone") << "current"
                                              << "." << withCaret(E::withText("0."), 2);
        QTest::newRow("current: 2.0 stays") << "current"
                                            << "2.0" << E();
        QTest::newRow("current: 2.05 cleared") << "current"
                                               << "2.05" << E::cleared();
        QTest::newRow("current: 15 cleared") << "current"
                                             << "15" << E::cleared();
        QTest::newRow("leaving division: 0") << "leaving division"
                                             << "0" << E::clearedAndMarked();
        QTest::newRow("leaving division: 01 is 1") << "leaving division"
                                                   << "01" << E::clearedAndMarked();
        QTest::newRow("leaving division: empty is 0") << "leaving division"
                                                      << "" << E::clearedAndMarked();
        QTest::newRow("leaving division: 2 kept") << "leaving division"
                                                  << "2" << E::withText("2");
        QTest::newRow("leaving gear: 1 kept") << "leaving gear"
                                              << "1" << E::withText("1");
        QTest::newRow("leaving gear: 010 stripped") << "leaving gear"
                                                    << "010" << E::withText("10");
        QTest::newRow("leaving gear: 0") << "leaving gear"
                                         << "0" << E::clearedAndMarked();
        QTest::newRow("leaving gear: empty") << "leaving gear"
                                             << "" << E::clearedAndMarked();
        QTest::newRow("leaving timer: letters") << "leaving timer"
                                                << "5a" << E();
        QTest::newRow("leaving timer: empty") << "leaving timer"
                                              << "" << E();
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
        QTest::newRow("ACC empty") << 1 << "" << empty;
        QTest::newRow("DIVISION empty") << 2 << "" << empty;
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
        QCOMPARE(OpDataRecord::WriteText(table), QStringLiteral("010078"
                                                                "3"
                                                                "A"
                                                                "ABCDE"
                                                                "1"
                                                                "64"
                                                                "64"));

        PosiTable read;
        read[P::Spare3] = QStringLiteral("kept");
        QVERIFY(OpDataRecord::parseReply(QStringLiteral("0RP01"
                                                        "FFFF"
                                                        "3"
                                                        "F"
                                                        "FFFFF"
                                                        "0"
                                                        "64"
                                                        "64"
                                                        "\r\n"),
                                         read));
        QCOMPARE(numbers(read, {P::VEL, P::Spare1, P::Spare2, P::GEAR}), (QList<qint64>{-1, 15, 0xFFFFF, 100}));
        QCOMPARE(read[P::Spare3].toString(), QStringLiteral("kept"));
        QVERIFY(!OpDataRecord::parseReply(QStringLiteral("0RP01"
                                                         "2328"
                                                         "1"
                                                         "0"
                                                         "00000"
                                                         "1"
                                                         "0C"
                                                         "0G"
                                                         "\r\n"),
                                          read));
        QCOMPARE(read.number(P::VEL), -1);
    }
};

QTEST_APPLESS_MAIN(TestOpDataRules)
#include "tst_opdatarules.moc"
