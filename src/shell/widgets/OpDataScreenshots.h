#pragma once

#include <QString>

class MainWindow;

// Pictures of the operation data tab at work, on the built-in virtual
// controller (ktr-w5 --simulator --screenshot DIR): a continuous run with a
// dwell between its moves, and the monitor with its lamps lit and an output
// switched. Without the virtual controller nothing is taken.
class OpDataScreenshots {
public:
    // true when every picture was written.
    static bool take(MainWindow& window, const QString& dir);
};
