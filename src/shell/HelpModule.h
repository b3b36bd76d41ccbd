#pragma once

#include <QString>
#include <QUrl>

#include <functional>

class Prompter;

// The help: Japanese HTML pages shipped in the folder "help" beside the
// program, opened at their index page in the system's browser.
class HelpModule {
public:
    using Opener = std::function<bool(const QUrl&)>;

    // The name of the help file relative to the program's folder.
    static QString bareName() { return QStringLiteral("help/index.html"); }

    // folder + name with exactly one separator between them.
    static QString joinFolder(const QString& folder, const QString& name);

    // Fixes the help file's full path once, at start-up: the program's data
    // folder (beside the program, else the installed one).
    void SetHelpFilePath();
    void SetHelpFilePath(const QString& folder);

    QString helpFile() const { return m_helpFile; }

    // Opens the help file's index page, or shows missingText (information
    // icon) when there is no help file. When no browser can be started,
    // message 5002 says where the help file is.
    void ShowHelpContents(Prompter& prompter, const QString& missingText) const;

    // Tests replace the browser.
    void setOpener(Opener open) { m_open = std::move(open); }

private:
    QString m_helpFile = bareName();
    Opener m_open;
};
