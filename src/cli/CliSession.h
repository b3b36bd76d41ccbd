#pragma once

#include "cli/StderrPrompter.h"
#include "common/ControlLock.h"
#include "common/FileChooser.h"
#include "link/AlarmDisplay.h"
#include "link/CommandSet.h"
#include "link/ErrorList.h"
#include "link/Link.h"
#include "link/PrompterTap.h"
#include "link/SequenceContext.h"
#include "record/JournalRecorder.h"

#include <QObject>
#include <QTextStream>

class Interrupt;
class SerialPort;
struct GlobalOptions;

// Everything a ktrctl command works with: the link on the chosen port (or
// the built-in virtual controller), its commands, the stderr prompter, and
// the journal of its changes, the do-nothing enabling, progress and file dialogs of a program without
// a window. out carries the command's results, err its messages; both
// streams and the port (which the session takes over) come from its creator.
class CliSession : public QObject {
    Q_OBJECT
public:
    CliSession(const GlobalOptions& options, SerialPort* port, Interrupt& interrupt, QTextStream& out,
               QTextStream& err, QObject* parent = nullptr);

    Link& link() { return m_link; }
    CommandSet& commands() { return m_commands; }
    SequenceContext& context() { return m_context; }
    AlarmDisplay& alarms() { return m_alarms; }
    Prompter& prompter() { return m_tap; }
    // Tells each text the user is told.
    PrompterTap& tap() { return m_tap; }
    Interrupt& interrupt() { return m_interrupt; }
    // --unit: names the unit for the journal and the report; empty when not given.
    const QString& unit() const { return m_unit; }

    // The journal of the changes this run makes to the controller.
    JournalRecorder& journal() { return m_journal; }

    // The controller's error texts, read before a command talks to it.
    ErrorList& errors() { return m_errors; }

    QTextStream& out() { return m_out; }
    QTextStream& err() { return m_err; }
    // A message line on the error stream.
    void report(const QString& text);
    // A usage error: the text, a hint at --help, and the exit status for it.
    int usageError(const QString& text);
    // The usual refusal of arguments a command does not take.
    int noArguments(const QStringList& args);

private:
    // The lamps and the status label: nothing to show on a command line.
    class NoLamps : public AlarmDisplay {
    public:
        void showAlarm(bool) override {}
        void setStatusText(const QString&) override {}
    };
    // Commands name their files on the command line; no dialog ever opens.
    class NoDialogs : public FileChooser {
    public:
        QString openFile(const QString&, const QString&, const QString&) override { return {}; }
        QString saveFile(const QString&, const QString&, const QString&, const QString&) override { return {}; }
    };

    QTextStream& m_out;
    QTextStream& m_err;
    Interrupt& m_interrupt;
    QString m_unit;
    StderrPrompter m_prompter{m_err};
    PrompterTap m_tap{m_prompter};
    NoLamps m_alarms;
    ErrorList m_errors;
    SerialPort* m_port;
    Link m_link;
    CommandSet m_commands{m_link};
    ControlLock m_lock;
    ProgressDisplay m_progress;
    NoDialogs m_files;
    SequenceContext m_context{m_link, m_commands, m_tap, m_lock, m_progress, m_files};
    JournalRecorder m_journal;
};
