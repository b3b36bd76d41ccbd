#pragma once

#include <QByteArray>
#include <QString>

class Printout;

// Renders a printout as a one-page A4 PDF, the page measured from the
// paper's edge as on the printer.
class PdfPrinter {
public:
    static constexpr int Resolution = 300;

    static QByteArray render(Printout& printout);
    // Saves the page to path; false with the reason in errorString.
    static bool write(Printout& printout, const QString& path, QString* errorString = nullptr);
};
