#pragma once

#include "cli/CommandRegistry.h"

#include <functional>

class CliSession;
class Interrupt;
class QElapsedTimer;
class QTextStream;
class SerialPort;
struct GlobalOptions;

// One run of ktrctl: the command line's options taken, its command found
// and run, every result and message written to the streams its creator
// gives (the program's stdout and stderr; a test's buffers). The port comes
// from the creator too: by default the built-in controller for --simulator,
// the serial port otherwise.
class CliProgram {
public:
    using PortFactory = std::function<SerialPort*(const GlobalOptions& options)>;

    CliProgram(QTextStream& out, QTextStream& err);

    void setPortFactory(PortFactory factory) { m_makePort = std::move(factory); }
    // Called with the session before its command runs.
    void setSessionHook(std::function<void(CliSession&)> hook) { m_hook = std::move(hook); }

    // The command the options name; null when none.
    const CliCommand* command(const GlobalOptions& options, QStringList* args = nullptr) const;

    // The exit status.
    int run(const GlobalOptions& options, Interrupt& interrupt, const QElapsedTimer& clock);

private:
    void printHelp() const;
    void printCommandHelp(const QList<const CliCommand*>& commands) const;
    bool printGroupHelp(const QString& word) const;
    int runCommand(CliSession& session, const CliCommand& command, const QStringList& args,
                   const GlobalOptions& options, const QElapsedTimer& clock);

    QTextStream& m_out;
    QTextStream& m_err;
    CommandRegistry m_registry;
    PortFactory m_makePort;
    std::function<void(CliSession&)> m_hook;
};
