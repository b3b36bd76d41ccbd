#pragma once

#include <QString>

class MainWindow;

// Pictures of the program's windows for checking the layout by eye
// (ktr-w5 --screenshot DIR): both tabs, the status bar during a transfer
// with an alarm shown, the transfer window, the about box and the splash.
class Screenshots {
public:
    // Returns the program's exit status: 0 when every picture was written.
    static int take(MainWindow& window, const QString& dir);
};
