#include "cli/JournalCommand.h"

#include "cli/CliSession.h"
#include "cli/CommandArguments.h"
#include "cli/CommandRegistry.h"
#include "cli/ExitStatus.h"
#include "common/MessageTable.h"
#include "record/Journal.h"
#include "record/JournalQuery.h"
#include "record/JournalText.h"

#include <QJsonDocument>

#include <optional>

namespace {

constexpr int Usage = 5610;
constexpr int Detail = 5611;
constexpr int DamagedLines = 5612;
constexpr int InvalidValue = 4814;

const QString Since = QStringLiteral("--since");
const QString Until = QStringLiteral("--until");
const QString Port = QStringLiteral("--port");
const QString Json = QStringLiteral("--json");

enum class DayEnd {
    Start,
    End,
};

// An ISO date takes in the whole day (from its start for --since, to its
// end for --until); a date and time without an offset is local time.
std::optional<QDateTime> dateArgument(QString text, DayEnd end)
{
    const QDate day = QDate::fromString(text, Qt::ISODate);
    if (day.isValid())
        return end == DayEnd::Start ? day.startOfDay() : day.endOfDay();
    const QDateTime time = QDateTime::fromString(text.replace(u' ', u'T'), Qt::ISODateWithMs);
    return time.isValid() ? std::optional(time) : std::nullopt;
}

int takeDate(CliSession& session, const CommandArguments& parsed, const QString& option, DayEnd end,
             QDateTime& into)
{
    if (!parsed.has(option))
        return ExitDone;
    const auto time = dateArgument(parsed.value(option), end);
    if (!time)
        return session.usageError(Msg(InvalidValue).arg(option, parsed.value(option)));
    into = *time;
    return ExitDone;
}

void printJson(QTextStream& out, const QList<JournalEntry>& entries)
{
    for (const JournalEntry& entry : entries)
        out << QString::fromUtf8(entry.toLine());
}

int journal(CliSession& session, const QStringList& args)
{
    CommandArguments parsed({Since, Until, Port}, {Json}, 0);
    if (const int bad = parsed.parse(session, args))
        return bad;
    JournalQuery query;
    query.port = parsed.value(Port);
    query.frames = parsed.has(Json);
    if (const int bad = takeDate(session, parsed, Since, DayEnd::Start, query.since))
        return bad;
    if (const int bad = takeDate(session, parsed, Until, DayEnd::End, query.until))
        return bad;

    const JournalListing listing = JournalListing::read(Journal::defaultDirectory(), query);
    if (parsed.has(Json))
        printJson(session.out(), listing.entries);
    else
        session.out() << JournalText::table(listing.entries);
    session.out().flush();
    if (listing.damaged > 0)
        session.report(Msg(DamagedLines).arg(listing.damaged));
    return ExitDone;
}

} // namespace

void addJournalCommand(CommandRegistry& registry)
{
    registry.add({QStringLiteral("journal"), Usage, false, journal, Detail});
}
