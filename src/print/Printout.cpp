#include "print/Printout.h"

#include "print/PrintCanvas.h"

#include <QFileInfo>

Printout::Outcome Printout::render(QPaintDevice& device)
{
    PrintCanvas canvas(device);
    if (!canvas.started())
        return Outcome::NotStarted;
    draw(canvas);
    return canvas.finish() ? Outcome::Sent : Outcome::NotFinished;
}

QString Printout::pdfNameFor(const QString& sourceName)
{
    return QFileInfo(sourceName).completeBaseName() + QStringLiteral(".pdf");
}
