#include "record/JournalText.h"

#include "common/MessageTable.h"

#include <QJsonValue>

#include <algorithm>
#include <array>
#include <cstdio>
#include <numeric>

namespace {

constexpr int FirstHeading = 5613;
constexpr int AllParameters = 5619;
constexpr int Done = 5668;
constexpr int Failed = 5669;
constexpr int FailedWith = 5620;

// The names of the actions, as the report prints them too.
constexpr std::array<std::pair<const QString*, int>, 6> ActionNames{{
    {&JournalEntry::ParamsWrite, 5674},
    {&JournalEntry::OpDataWrite, 5675},
    {&JournalEntry::OutputToggle, 5676},
    {&JournalEntry::AlarmReset, 5677},
    {&JournalEntry::Home, 5678},
    {&JournalEntry::Move, 5679},
}};

QString valueText(const QJsonValue& value)
{
    if (value.isBool())
        return value.toBool() ? QStringLiteral("1") : QStringLiteral("0");
    if (value.isDouble())
        return QString::number(value.toDouble());
    return value.toString();
}

// Columns are lined up by what a terminal shows: wide characters take two
// cells, the half-width kana one.
int displayWidth(const QString& text)
{
    int width = 0;
    for (const QChar c : text) {
        const ushort u = c.unicode();
        const bool wide = u >= 0x1100 && !(u >= 0xFF61 && u <= 0xFF9F) && !c.isLowSurrogate();
        width += wide ? 2 : 1;
    }
    return width;
}

// A format string costs as much as the rest of a row.
QString timeText(const QDateTime& time)
{
    const QDate d = time.date();
    const QTime t = time.time();
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", d.year(), d.month(), d.day(), t.hour(), t.minute(),
                  t.second());
    return QString::fromLatin1(text);
}

QString padded(const QString& text, int width)
{
    return text + QString(std::max(0, width - displayWidth(text)), u' ');
}

} // namespace

QStringList JournalText::headings()
{
    QStringList names;
    for (int column = 0; column < Columns; ++column)
        names << Msg(FirstHeading + column);
    return names;
}

QString JournalText::actionName(const QString& action)
{
    for (const auto& [name, message] : ActionNames) {
        if (*name == action)
            return Msg(message);
    }
    return action;
}

QString JournalText::outcome(const JournalEntry& entry)
{
    if (entry.success)
        return Msg(Done);
    const QString first = entry.message.section(u'\n', 0, 0).trimmed();
    return first.isEmpty() ? Msg(Failed) : Msg(FailedWith).arg(first);
}

QString JournalText::writtenShort(const QJsonObject& written)
{
    QStringList parts;
    for (auto it = written.begin(); it != written.end(); ++it) {
        if (it.key() == u"all")
            parts << Msg(AllParameters).arg(it.value().toObject().size());
        else if (it.value().isObject())
            parts << writtenShort(it.value().toObject());
        else
            parts << it.key() + u'=' + valueText(it.value());
    }
    return parts.join(u' ');
}

QStringList JournalText::cells(const JournalEntry& entry)
{
    return {timeText(entry.time),
            entry.unit,
            entry.port,
            actionName(entry.action),
            outcome(entry),
            writtenShort(entry.written)};
}

QString JournalText::table(const QList<JournalEntry>& entries)
{
    QList<QStringList> rows{headings()};
    rows.reserve(entries.size() + 1);
    for (const JournalEntry& entry : entries)
        rows << cells(entry);
    std::array<int, Columns> widths{};
    for (const QStringList& row : rows) {
        for (int column = 0; column < Columns; ++column)
            widths[column] = std::max(widths[column], displayWidth(row[column]));
    }
    QString text;
    text.reserve(rows.size() * (std::accumulate(widths.begin(), widths.end(), 0) + 2 * Columns));
    for (const QStringList& row : rows) {
        for (int column = 0; column < Written; ++column)
            text += padded(row[column], widths[column]) + QStringLiteral("  ");
        text += row[Written] + u'\n';
    }
    return text;
}
