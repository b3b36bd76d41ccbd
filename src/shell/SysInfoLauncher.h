#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class Prompter;

// Starts the operating system's system information tool from the about box,
// or says that it cannot (message 1206).
class SysInfoLauncher {
public:
    using Starter = std::function<bool(const QString& program)>;

    // Programs looked for on the search path where there is no registry
    // entry for the tool, in order of preference.
    static QStringList knownPrograms();

    // The tool's full path, or an empty text when none is found.
    static QString findProgram();

    void StartSysInfo(Prompter& prompter) const;

    // Tests replace the program start.
    void setStarter(Starter start) { m_start = std::move(start); }

private:
    bool start(const QString& program) const;

    Starter m_start;
};
