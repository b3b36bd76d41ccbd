#pragma once

#include <QString>
#include <QStringList>

// What the desktop tool was asked on its command line. The link is told
// where to talk: the built-in virtual controller, or a device that replaces
// the numbered port for this run.
struct StartupOptions {
    bool simulator = false;
    QString portName;      // --port NAME
    QString screenshotDir; // --screenshot DIR: write pictures of the windows and end
    bool help = false;
    bool version = false;

    // A usage error: message id and the text for its %1; id 0 when the
    // command line is fine.
    int errorMessage = 0;
    QString errorArg;

    // The arguments as QApplication leaves them: the program name first,
    // Qt's own options (such as -platform) already taken out.
    static StartupOptions parse(const QStringList& arguments);

    // The help text in the active language, lines joined with "\n".
    static QString usage();
};
