#pragma once

#include <QDateTime>
#include <QString>

class PrintCanvas;

// The closing line of every printout: when it was printed and by which
// program and version, ending at the right edge of the rules, with the
// closing rule under it.
class PrintFooter {
public:
    explicit PrintFooter(const QDateTime& printedAt) : m_printedAt(printedAt) {}

    QString text() const;
    // textTopMm: top of the footer line; ruleMm: where the closing rule runs.
    void draw(PrintCanvas& canvas, double textTopMm, double ruleMm) const;

private:
    QDateTime m_printedAt;
};
