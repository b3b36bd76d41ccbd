#pragma once

#include "print/OpDataPrintData.h"
#include "print/Printout.h"

#include <QDateTime>
#include <QString>

class PrintCanvas;

// The one-page operation data sheet, in the style of the parameter sheet
// but on the looser line pitch: where the data came from, the indexing
// record as sent to the controller with the speed choice it came from and
// the step angle it gives, and the operating current; the printing date
// closes the page at its foot.
class OpDataPrintout : public Printout {
public:
    explicit OpDataPrintout(const OpDataPrintData& data,
                            const QDateTime& printedAt = QDateTime::currentDateTime());

    // The operation data file's name, or the proposed one for the screen.
    QString pdfFileName() const override;

    // "File Name:" with the file and its format generation, or the screen.
    QString sourceText() const;
    // 360 degrees over the divisions; empty while the divisions are not a
    // whole number of at least 1.
    QString stepAngleText() const;

protected:
    void draw(PrintCanvas& canvas) override;

private:
    void drawHeading(PrintCanvas& canvas) const;
    void drawSections(PrintCanvas& canvas) const;
    QString directionText() const;
    QString currentText() const;

    OpDataPrintData m_data;
    QDateTime m_printedAt;
};
