#pragma once

#include <QPageSize>
#include <QString>

class PrintCanvas;
class QPaintDevice;

// One printed page. The same drawing serves the printer and a PDF file, so a
// printout draws on whatever paint device it is given.
class Printout {
public:
    enum class Outcome {
        Sent,        // drawn and ended: the page went to the device
        NotStarted,  // the device could not be opened for drawing
        NotFinished, // drawn, but the device failed to take the page
    };

    virtual ~Printout() = default;

    Outcome render(QPaintDevice& device);

    // The name proposed when the page is saved as a PDF file.
    virtual QString pdfFileName() const = 0;
    // The paper of its PDF file.
    virtual QPageSize::PageSizeId paper() const { return QPageSize::A4; }

protected:
    virtual void draw(PrintCanvas& canvas) = 0;

    // A source file's name with ".pdf" for its extension.
    static QString pdfNameFor(const QString& sourceName);
};
