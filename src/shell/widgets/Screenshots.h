#pragma once

#include <QString>

class MainWindow;
class QWidget;

// Pictures of the program's windows for checking the layout by eye
// (ktr-w5 --screenshot DIR): both tabs, the status bar during a transfer
// with an alarm shown, the transfer window, the about box and the splash.
class Screenshots {
public:
    // Returns the program's exit status: 0 when every picture was written.
    static int take(MainWindow& window, const QString& dir);
    // Writes DIR/NAME.png of w once its last repaint has settled.
    static bool save(QWidget* w, const QString& dir, const QString& name);
};
