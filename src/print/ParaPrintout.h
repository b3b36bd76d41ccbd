#pragma once

#include "print/PrintParaList.h"
#include "print/Printout.h"

#include <QDateTime>
#include <QList>
#include <QString>

class PrintCanvas;

// The one-page parameter sheet: five titled sections on fixed rows, labels
// at 20 mm, values at 80 mm. The file name heads the sheet when the values
// came from a file (fromFile; entry 0 of the list is then its name).
class ParaPrintout : public Printout {
public:
    ParaPrintout(const PrintParaList& list, bool fromFile,
                 const QDateTime& printedAt = QDateTime::currentDateTime());

    // The parameter file's name, or the proposed one when printing the page.
    QString pdfFileName() const override;

    // A switch value by its leading number: 0, 1, ... give the texts of
    // those messages; any other value is printed as it is.
    static QString switchText(const QVariant& value, const QList<int>& messages);
    // The motor size: the first two characters of the motor code, with the
    // special actuator's "20" printed as "SP".
    static QString motorText(const QVariant& value);

protected:
    void draw(PrintCanvas& canvas) override;

private:
    void drawHeading(PrintCanvas& canvas) const;
    void drawSections(PrintCanvas& canvas) const;

    PrintParaList m_list;
    bool m_fromFile;
    QDateTime m_printedAt;
};
