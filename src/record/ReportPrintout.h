#pragma once

#include "print/Printout.h"
#include "record/ReportData.h"

#include <QDateTime>
#include <QList>
#include <QPageSize>
#include <QString>

#include <optional>

class PrintCanvas;

// The commissioning report on paper, in the active language: the heading
// with the unit's identification, every named parameter beside its
// standard value (marked where they differ), the operation data, the
// inputs and outputs as lamps, the journal's entries of the unit and the
// sign-off lines. It runs on over as many pages as it needs; each page
// carries the title, its number and the printout footer.
class ReportPrintout : public Printout {
public:
    ReportPrintout(ReportData data, QPageSize::PageSizeId paper,
                   const QDateTime& printedAt = QDateTime::currentDateTime());

    // Letter where the system's country uses it (the United States and
    // Canada), A4 elsewhere.
    static QPageSize::PageSizeId defaultPaper();
    // "a4" or "letter" (any case); nothing for another name.
    static std::optional<QPageSize::PageSizeId> paperNamed(const QString& name);

    QString pdfFileName() const override;
    QPageSize::PageSizeId paper() const override { return m_paper; }
    const ReportData& data() const { return m_data; }

    // One text placed on a row; a width above 0 shortens it to fit.
    struct Cell {
        double xMm;
        QString text;
        double widthMm = 0;
    };
    // The rows of the report below its heading; a block is never split
    // over two pages unless it is longer than a page.
    using Row = QList<Cell>;
    using Block = QList<Row>;
    QList<Block> blocks() const;

protected:
    void draw(PrintCanvas& canvas) override;

private:
    QList<QList<Row>> pages(int rowsPerPage) const;
    void drawHeading(PrintCanvas& canvas, int page, int pageCount) const;

    ReportData m_data;
    QPageSize::PageSizeId m_paper;
    QDateTime m_printedAt;
};
