#pragma once

#include <QByteArray>
#include <QString>

class Printout;

// Renders a printout as a PDF on its paper, the page measured from the
// paper's edge as on the printer.
class PdfPrinter {
public:
    static constexpr int Resolution = 300;

    static QByteArray render(Printout& printout);
    // Saves the page to path; false with the reason in errorString.
    static bool write(Printout& printout, const QString& path, QString* errorString = nullptr);
};
