#include "record/JournalEntry.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonParseError>

const QString JournalEntry::ParamsWrite = QStringLiteral("params-write");
const QString JournalEntry::OpDataWrite = QStringLiteral("opdata-write");
const QString JournalEntry::OutputToggle = QStringLiteral("output-toggle");
const QString JournalEntry::AlarmReset = QStringLiteral("alarm-reset");
const QString JournalEntry::Home = QStringLiteral("home");
const QString JournalEntry::Move = QStringLiteral("move");

namespace {

const QString Success = QStringLiteral("success");
const QString Failed = QStringLiteral("failed");
const QByteArray TimeHead = QByteArrayLiteral("{\"time\":\"");

} // namespace

QJsonObject JournalEntry::toJson() const
{
    return {
        {"time", time.toString(Qt::ISODateWithMs)},
        {"program", program},
        {"version", version},
        {"port", port},
        {"unit", unit},
        {"controller", controller},
        {"action", action},
        {"written", written},
        {"outcome", success ? Success : Failed},
        {"message", message},
        {"frames", QJsonArray::fromStringList(frames)},
    };
}

// "time" comes first, so that a reader can pass over a line by its time
// alone; an object's keys would otherwise be written in sorted order.
QByteArray JournalEntry::toLine() const
{
    QJsonObject rest = toJson();
    rest.remove(QStringLiteral("time"));
    const QByteArray body = QJsonDocument(rest).toJson(QJsonDocument::Compact);
    return TimeHead + time.toString(Qt::ISODateWithMs).toLatin1() + "\"," + body.mid(1) + '\n';
}

std::optional<QDateTime> JournalEntry::timeOfLine(const QByteArray& line)
{
    if (!line.startsWith(TimeHead))
        return std::nullopt;
    const qsizetype end = line.indexOf('"', TimeHead.size());
    if (end < 0)
        return std::nullopt;
    const QDateTime time = QDateTime::fromString(QString::fromLatin1(line.mid(TimeHead.size(), end - TimeHead.size())),
                                                 Qt::ISODateWithMs);
    return time.isValid() ? std::optional(time) : std::nullopt;
}

std::optional<JournalEntry> JournalEntry::fromLine(const QByteArray& line)
{
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(line, &error);
    if (error.error != QJsonParseError::NoError || !doc.isObject())
        return std::nullopt;
    const QJsonObject o = doc.object();
    JournalEntry e;
    e.time = QDateTime::fromString(o.value("time").toString(), Qt::ISODateWithMs);
    const QString outcome = o.value("outcome").toString();
    e.action = o.value("action").toString();
    if (!e.time.isValid() || e.action.isEmpty() || (outcome != Success && outcome != Failed))
        return std::nullopt;
    e.success = outcome == Success;
    e.program = o.value("program").toString();
    e.version = o.value("version").toString();
    e.port = o.value("port").toString();
    e.unit = o.value("unit").toString();
    e.controller = o.value("controller").toString();
    e.written = o.value("written").toObject();
    e.message = o.value("message").toString();
    for (const QJsonValue& frame : o.value("frames").toArray())
        e.frames << frame.toString();
    return e;
}
