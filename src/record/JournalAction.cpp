#include "record/JournalAction.h"

#include "link/DecodedFrames.h"
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
    DecodedFrames::follow(recorder.context().link, recorder.errors(), this,
                          [this](char direction, const QByteArray& frame, const QString& meaning) {
                              trace(direction, frame, meaning);
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
