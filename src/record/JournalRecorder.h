#pragma once

#include "record/Journal.h"

#include <QJsonObject>
#include <QObject>

#include <functional>

class ErrorList;
class PrompterTap;
struct ParaSet;
struct SequenceContext;

// What the journal entries of one run of a program share: the journal, the
// program, the port the link talks to and the unit named for it, and what
// this run has learnt of the controller (its version once it was asked, the
// parameters last read). The desktop tool and ktrctl each keep one.
class JournalRecorder : public QObject {
    Q_OBJECT
public:
    using UnitOf = std::function<QString(const QString& port)>;

    // tap: the prompter the sequences tell through, so entries say what the
    // user was told.
    JournalRecorder(SequenceContext& ctx, const ErrorList& errors, PrompterTap& tap, QString program, UnitOf unitOf,
                    Journal journal, QObject* parent = nullptr);

    SequenceContext& context() { return m_ctx; }
    const ErrorList& errors() const { return m_errors; }
    PrompterTap& tap() { return m_tap; }

    // An entry of this run, now, for the action: program, port, unit and
    // controller filled in.
    JournalEntry entry(const QString& action) const;
    bool append(const JournalEntry& entry) { return m_journal.append(entry); }

    // The parameters the controller is known to hold: read, verified, or
    // written in this run.
    void rememberParameters(const ParaSet& set);
    void forgetParameters() { m_parameters = {}; }
    // What a parameter write wrote: {"changed": {...}} against the set
    // remembered, or {"all": {...}} when none is.
    QJsonObject writtenParameters(const ParaSet& set) const;

private:
    void lineReceived(const QByteArray& line);

    SequenceContext& m_ctx;
    const ErrorList& m_errors;
    PrompterTap& m_tap;
    QString m_program;
    UnitOf m_unitOf;
    Journal m_journal;
    QString m_controller;
    QJsonObject m_parameters;
};
