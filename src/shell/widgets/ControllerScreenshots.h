#pragma once

#include <QString>

class MainWindow;

// Pictures of the window talking to the built-in virtual controller
// (ktr-w5 --simulator --screenshot DIR): the version message, an alarm in
// the status label with the red lamp, and each tab of the options dialog.
// The boxes are the real ones, opened by the real commands.
class ControllerScreenshots {
public:
    // true when every picture was written; without the virtual controller
    // there is nothing to take and nothing fails.
    static bool take(MainWindow& window, const QString& dir);
};
