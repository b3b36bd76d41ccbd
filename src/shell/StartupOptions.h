#pragma once

#include <QString>
#include <QStringList>

// What the desktop tool was asked on its command line. The link is told
// where to talk: the built-in virtual controller, or a device that replaces
// the numbered port for this run.
struct StartupOptions {
    bool simulator = false;
    QString portName;        // --port NAME
    QString screenshotDir;   // --screenshot DIR: write pictures of the windows and end

    // Unknown arguments are left to Qt (platform options such as -platform).
    static StartupOptions parse(const QStringList& arguments);
};
