#pragma once

#include <QDateTime>
#include <QString>

class PrintCanvas;

// The closing line of every printout: when it was printed and by which
// program and version, at the foot of the page and ending at the right edge
// of the rules, with the closing rule under it. Every sheet puts it in the
// same place, whatever its own line pitch.
class PrintFooter {
public:
    explicit PrintFooter(const QDateTime& printedAt)
        : m_printedAt(printedAt)
    {
    }

    QString text() const;
    void draw(PrintCanvas& canvas) const;

private:
    QDateTime m_printedAt;
};
