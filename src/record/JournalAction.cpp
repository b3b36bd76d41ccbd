#include "record/JournalAction.h"

#include "link/CommandCatalogue.h"
#include "link/Link.h"
#include "link/PrompterTap.h"
#include "link/SequenceContext.h"
#include "link/TraceLine.h"
#include "record/JournalRecorder.h"

namespace {

// A box's lines are joined with CR LF; the journal keeps one line ending.
QString oneLineEnding(QString text)
{
    return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

} // namespace

JournalAction::JournalAction(JournalRecorder& recorder, const QString& action, QObject* parent)
    : QObject(parent)
    , m_recorder(recorder)
    , m_entry(recorder.entry(action))
{
    m_clock.start();
    Link& link = recorder.context().link;
    const ErrorList& errors = recorder.errors();
    connect(&link, &Link::frameSent, this, [this](const QByteArray& frame) {
        trace(TraceLine::Sent, frame, CommandCatalogue::meaningOfRequest(frame));
    });
    connect(&link, &Link::lineReceived, this, [this, &errors](const QByteArray& line) {
        trace(TraceLine::Received, line, CommandCatalogue::meaningOfReply(line, errors));
    });
    connect(&link, &Link::transactionFailed, this, [this](LinkOutcome::Kind kind, int timeoutMs) {
        trace(TraceLine::Event, {}, CommandCatalogue::meaningOfFailure(kind, timeoutMs));
    });
    connect(&recorder.tap(), &PrompterTap::told, this, [this](const QString& text) { m_told << oneLineEnding(text); });
}

void JournalAction::trace(char direction, const QByteArray& frame, const QString& meaning)
{
    if (!m_finished)
        m_entry.frames << TraceLine::format(m_clock.elapsed(), direction, frame, meaning);
}

void JournalAction::finish(bool success, const QString& message)
{
    if (std::exchange(m_finished, true) || !reachedLink())
        return;
    m_entry.success = success;
    if (!success)
        m_entry.message = message.isEmpty() ? toldText() : oneLineEnding(message);
    m_recorder.append(m_entry);
}
