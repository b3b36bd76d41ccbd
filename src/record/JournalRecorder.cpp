#include "record/JournalRecorder.h"

#include "link/Link.h"
#include "link/SequenceContext.h"
#include "link/VersionQuery.h"
#include "record/JournalWritten.h"
#include "record/ReportCollector.h"

namespace {

// The replies that carry the controller's version: three digits from the
// seventh character.
const QByteArray VersionReplies[] = {QByteArrayLiteral("0RV"), QByteArrayLiteral("0%C")};
constexpr int VersionDigitsAt = 6;
constexpr int VersionDigits = 3;

QString programVersion()
{
    return QStringLiteral("%1.%2.%3").arg(KTR_VERSION_MAJOR).arg(KTR_VERSION_MINOR).arg(KTR_VERSION_PATCH);
}

} // namespace

JournalRecorder::JournalRecorder(SequenceContext& ctx, const ErrorList& errors, PrompterTap& tap, QString program,
                                 UnitOf unitOf, Journal journal, QObject* parent)
    : QObject(parent)
    , m_ctx(ctx)
    , m_errors(errors)
    , m_tap(tap)
    , m_program(std::move(program))
    , m_unitOf(std::move(unitOf))
    , m_journal(std::move(journal))
{
    // Whoever asked for the version (the menu item, a report), the entries
    // that follow know it.
    connect(&ctx.link, &Link::lineReceived, this, &JournalRecorder::lineReceived);
}

void JournalRecorder::lineReceived(const QByteArray& line)
{
    for (const QByteArray& head : VersionReplies) {
        if (line.startsWith(head) && line.size() >= VersionDigitsAt + VersionDigits)
            m_controller = VersionQuery::versionText(QString::fromLatin1(line.mid(VersionDigitsAt, VersionDigits)));
    }
}

JournalEntry JournalRecorder::entry(const QString& action) const
{
    JournalEntry e;
    const QDateTime now = QDateTime::currentDateTime();
    e.time = now.toOffsetFromUtc(now.offsetFromUtc());
    e.program = m_program;
    e.version = programVersion();
    e.port = ReportCollector::portText(m_ctx);
    e.unit = m_unitOf(e.port);
    e.controller = m_controller;
    e.action = action;
    return e;
}

void JournalRecorder::rememberParameters(const ParaSet& set)
{
    m_parameters = JournalWritten::parameters(set);
}

QJsonObject JournalRecorder::writtenParameters(const ParaSet& set) const
{
    const QJsonObject now = JournalWritten::parameters(set);
    if (m_parameters.isEmpty())
        return {{"all", now}};
    QJsonObject changed;
    for (auto it = now.begin(); it != now.end(); ++it) {
        if (m_parameters.value(it.key()) != it.value())
            changed.insert(it.key(), it.value());
    }
    return {{"changed", changed}};
}
