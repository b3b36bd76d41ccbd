#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

class CliSession;

// One command of ktrctl: its name (one or more words, such as "check" or
// "params read"), the message id of its line in the help, whether it talks
// to the controller, and what it does with the arguments after its name.
// run returns the exit status. A command may add lines that only its own
// help shows (0: none).
struct CliCommand {
    QString name;
    int usageMessage = 0;
    bool usesLink = true;
    std::function<int(CliSession& session, const QStringList& args)> run;
    int detailMessage = 0;
};

// The commands of ktrctl. Each group of commands lives in its own file and
// adds itself with one add...Commands(registry) call in main.
class CommandRegistry {
public:
    void add(const CliCommand& command);

    // The command whose name is the longest run of leading words of args;
    // null when none. rest receives the arguments after the name.
    const CliCommand* find(const QStringList& args, QStringList* rest) const;

    const QList<CliCommand>& commands() const { return m_commands; }

private:
    QList<CliCommand> m_commands;
};
